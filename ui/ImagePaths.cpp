#include "ui/ImagePaths.h"

#include <QFileInfo>
#include <QUrl>
#include <algorithm>

namespace vellumo {

QStringList AcceptedImageExtensions() {
    return {"jpg", "jpeg", "jpe", "jp2", "jpx", "png", "gif", "tif", "tiff", "bmp"};
}

QStringList OpenPanelImageExtensions() {
    return {"jpg", "jpeg", "jpe", "jp2", "jpx", "png", "tiff", "tif", "gif", "bmp"};
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

bool IsImageFileUrl(const QUrl& url) {
    if (!url.isLocalFile()) {
        return false;
    }
    // The extensions of the six image kinds are exactly the ten the list
    // accepts; a drop is judged by name, like the list itself.
    return AcceptedImageExtensions().contains(LowerCaseExtension(url.toLocalFile()));
}

}  // namespace vellumo
