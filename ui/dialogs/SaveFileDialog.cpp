#include "ui/dialogs/SaveFileDialog.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

#include "ui/dialogs/LastFolders.h"

namespace vellumo {

SaveFileResult RunSaveFileDialog(const SaveFileRequest& request, QWidget* parent) {
    QFileDialog dialog(parent, request.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!request.fileType.isEmpty()) {
        dialog.setNameFilter(
            QCoreApplication::translate("SaveFileDialog", "Vellumo profiles (*.%1)")
                .arg(request.fileType));
        dialog.setDefaultSuffix(request.fileType);
    }
    const QString folder = LastFolder(request.memoryKey);
    if (!folder.isEmpty()) {
        dialog.setDirectory(folder);
    }
    dialog.selectFile(request.suggestedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    const QString chosen = dialog.selectedFiles().constFirst();
    RememberLastFolder(request.memoryKey, QFileInfo(chosen).absolutePath());
    return chosen;
}

}  // namespace vellumo
