#include "ui/list/ImagePaths.h"

#include <QCollator>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSet>
#include <QUrl>
#include <algorithm>

#include "imaging/Formats.h"

namespace vellumo {

QStringList AcceptedImageExtensions() {
    QStringList extensions;
    for (const InputExtensionInfo& row : kInputExtensions) {
        extensions << QString::fromLatin1(row.extension.data(),
                                          static_cast<qsizetype>(row.extension.size()));
    }
    return extensions;
}

QStringList OpenFilesImageExtensions() {
    // The output formats' extensions, in their list's order, then those
    // only read ("heif").
    QStringList extensions;
    for (const OutputFormatInfo& row : kOutputFormats) {
        extensions << QString::fromStdString(OutputFormatExtension(row.format));
    }
    for (const QString& extension : AcceptedImageExtensions()) {
        if (!extensions.contains(extension)) {
            extensions << extension;
        }
    }
    return extensions;
}

QString LowerCaseExtension(const QString& path) {
    return QFileInfo(path).suffix().toLower();
}

bool SamePathText(const QString& a, const QString& b) {
    if (a == b) {
        return true;
    }
    return a.normalized(QString::NormalizationForm_C) == b.normalized(QString::NormalizationForm_C);
}

bool ListContainsPath(const QStringList& list, const QString& path) {
    return std::any_of(list.begin(), list.end(),
                       [&](const QString& entry) { return SamePathText(entry, path); });
}

void SortInReadingOrder(QStringList& paths) {
    const QLocale locale =
        QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale();
    QCollator natural(locale);
    natural.setNumericMode(true);
    std::stable_sort(paths.begin(), paths.end(), [&natural](const QString& a, const QString& b) {
        return natural.compare(a, b) < 0;
    });
}

void AppendNewPaths(QStringList& list, const QStringList& paths) {
    QSet<QString> held;
    held.reserve(list.size() + paths.size());
    for (const QString& entry : list) {
        held.insert(entry.normalized(QString::NormalizationForm_C));
    }
    for (const QString& path : paths) {
        const QString key = path.normalized(QString::NormalizationForm_C);
        if (!path.isEmpty() && !held.contains(key)) {
            held.insert(key);
            list.append(path);
        }
    }
}

bool IsImageFileUrl(const QUrl& url) {
    if (!url.isLocalFile()) {
        return false;
    }
    // A drop is judged by name, like the list itself.
    return InputExtensionOfPath(QFile::encodeName(url.toLocalFile()).toStdString()) != nullptr;
}

std::vector<std::string> NativePaths(const QStringList& paths) {
    std::vector<std::string> native;
    native.reserve(paths.size());
    for (const QString& path : paths) {
        native.push_back(QFile::encodeName(path).toStdString());
    }
    return native;
}

OpenFilesRequest AddImagesRequest() {
    OpenFilesRequest request;
    request.allowsMultipleSelection = true;
    request.canChooseDirectories = false;
    request.canCreateDirectories = false;
    request.canChooseFiles = true;
    request.allowedFileTypes = OpenFilesImageExtensions();
    request.memoryKey = QStringLiteral("addImages");
    return request;
}

}  // namespace vellumo
