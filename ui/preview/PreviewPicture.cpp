#include "ui/preview/PreviewPicture.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "imaging/ImageTools.h"

namespace vellumo {

QImage VeiledPreviewPicture(const Image& picture, Size fullSize, Rect rect) {
    if (!(fullSize.width > 0.0) || !(fullSize.height > 0.0) || picture.IsEmpty()) {
        return {};
    }
    // Each side on its own scale: the picture's sides were rounded to whole
    // pixels when it was made, so one factor would leave the far edges off.
    const double sx = picture.Width() / fullSize.width;
    const double sy = picture.Height() / fullSize.height;
    const Image veiled = ImageTools::VeilOutsideRectangle(
        picture, {rect.x * sx, rect.y * sy, rect.width * sx, rect.height * sy});
    return PictureAsQImage(veiled);
}

QImage StandInPicture(const QImage& small, Size fullSize, int side) {
    if (small.isNull() || !(fullSize.width >= 1.0) || !(fullSize.height >= 1.0) || side < 1) {
        return {};
    }
    const double scale = std::min({1.0, side / fullSize.width, side / fullSize.height});
    const QSize size(std::max(1, static_cast<int>(std::lround(fullSize.width * scale))),
                     std::max(1, static_cast<int>(std::lround(fullSize.height * scale))));
    return small.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage PictureAsQImage(const Image& picture) {
    const std::optional<RgbaBitmap> bitmap = ImageTools::RenderRgba8(picture);
    if (!bitmap || bitmap->width <= 0 || bitmap->height <= 0) {
        return {};
    }
    QImage rgba(bitmap->width, bitmap->height, QImage::Format_RGBA8888);
    const qsizetype rowBytes = static_cast<qsizetype>(bitmap->width) * 4;
    for (int y = 0; y < bitmap->height; ++y) {
        std::memcpy(rgba.scanLine(y), bitmap->pixels.data() + y * rowBytes, rowBytes);
    }
    // The format the screen draws fastest, converted here rather than on the
    // GUI thread.
    return rgba.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace vellumo
