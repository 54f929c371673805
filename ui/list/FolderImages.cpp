#include "ui/list/FolderImages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <string>

#include "batch/InputFolders.h"
#include "ui/list/ImagePaths.h"

namespace vellumo {

QStringList ImagesInFolder(const QString& folder, bool recursive) {
    const WalkedInputs walked = WalkInputs({QFile::encodeName(folder).toStdString()}, recursive);
    QStringList images;
    images.reserve(static_cast<qsizetype>(walked.images.size()));
    for (const std::string& image : walked.images) {
        images << QFile::decodeName(QByteArray::fromStdString(image));
    }
    SortInReadingOrder(images);
    return images;
}

bool IsLocalFolderUrl(const QUrl& url) {
    return url.isLocalFile() && QFileInfo(url.toLocalFile()).isDir();
}

QString CleanFolderPath(const QUrl& url) {
    return QDir::cleanPath(QFileInfo(url.toLocalFile()).absoluteFilePath());
}

}  // namespace vellumo
