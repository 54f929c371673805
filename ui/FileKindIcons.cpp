#include "ui/FileKindIcons.h"

#include "ui/ImagePaths.h"

namespace vellumo {

std::optional<QString> FileKindIconName(const QString& path) {
    const QString extension = LowerCaseExtension(path);
    if (extension == "jpg" || extension == "jpeg" || extension == "jpe" || extension == "jp2" ||
        extension == "jpx") {
        return QStringLiteral("JPG");
    }
    if (extension == "png") {
        return QStringLiteral("PNG");
    }
    if (extension == "tiff" || extension == "tif") {
        return QStringLiteral("TIF");
    }
    if (extension == "gif") {
        return QStringLiteral("GIF");
    }
    if (extension == "bmp") {
        return QStringLiteral("BMP");
    }
    return std::nullopt;
}

QIcon FileKindIcon(const QString& name) {
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name));
}

}  // namespace vellumo
