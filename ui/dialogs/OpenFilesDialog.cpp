#include "ui/dialogs/OpenFilesDialog.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

#include "ui/dialogs/LastFolders.h"

namespace vellumo {

namespace {

// "*.jpg" as "*.[jJ][pP][gG]": file dialogs on Linux match names
// case-sensitively, while the extensions are meant without regard to case.
QString CaseInsensitivePattern(const QString& extension) {
    QString pattern = QStringLiteral("*.");
    for (const QChar c : extension) {
        if (c.isLetter()) {
            pattern += QLatin1Char('[') + c.toLower() + c.toUpper() + QLatin1Char(']');
        } else {
            pattern += c;
        }
    }
    return pattern;
}

QFileDialog::FileMode FileModeFor(const OpenFilesRequest& request) {
    if (!request.canChooseFiles && request.canChooseDirectories) {
        return QFileDialog::Directory;
    }
    return request.allowsMultipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

}  // namespace

QString NameFilterForExtensions(const QStringList& extensions) {
    QStringList patterns;
    for (const QString& extension : extensions) {
        patterns << CaseInsensitivePattern(extension);
    }
    return QCoreApplication::translate("OpenFilesDialog", "Images (%1)")
        .arg(patterns.join(QLatin1Char(' ')));
}

OpenFilesResult RunOpenFilesDialog(const OpenFilesRequest& request, QWidget* parent) {
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(FileModeFor(request));
    if (!request.canChooseFiles && request.canChooseDirectories) {
        dialog.setOption(QFileDialog::ShowDirsOnly);
    }
    // A read-only dialog offers no "new folder" command.
    dialog.setOption(QFileDialog::ReadOnly, !request.canCreateDirectories);
    if (!request.allowedFileTypes.isEmpty()) {
        // The bracketed patterns are for matching, not for reading.
        dialog.setOption(QFileDialog::HideNameFilterDetails);
        dialog.setNameFilter(NameFilterForExtensions(request.allowedFileTypes));
    }
    if (!request.prompt.isEmpty()) {
        dialog.setWindowTitle(request.prompt);
        dialog.setLabelText(QFileDialog::Accept, request.prompt);
    }
    const QString folder = LastFolder(request.memoryKey);
    if (!folder.isEmpty()) {
        dialog.setDirectory(folder);
    }
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    const QStringList chosen = dialog.selectedFiles();
    if (!chosen.isEmpty()) {
        // A chosen folder is remembered itself; chosen files, their folder.
        const QFileInfo first(chosen.constFirst());
        RememberLastFolder(request.memoryKey,
                           first.isDir() ? first.absoluteFilePath() : first.absolutePath());
    }
    return chosen;
}

}  // namespace vellumo
