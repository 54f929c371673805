#include "ui/FileKindIcons.h"

#include "ui/ImagePaths.h"

namespace vellumo {

std::optional<QString> FileKindIconName(const QString& path) {
    const QString extension = LowerCaseExtension(path);
    if (extension == "jpg" || extension == "jpeg" || extension == "jpe") {
        return QStringLiteral("JPG");
    }
    // JPEG 2000 is another format altogether, and says so.
    if (extension == "jp2" || extension == "jpx") {
        return QStringLiteral("JP2");
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
