#include "batch/CropRectangle.h"

#include "imaging/ImageTools.h"

namespace vellumo {

Rect ResolveCropRectangle(const CropSettings& settings, const Image& image) {
    if (settings.autoCrop) {
        return ImageTools::CalculateAutoCropRectangleWithImage(image, settings.autoCropFormat);
    }
    if (!settings.customCrop) {
        return {};
    }
    if (settings.customCropPixels) {
        return {settings.pixelsOriginX, settings.pixelsOriginY, settings.pixelsWidth,
                settings.pixelsHeight};
    }
    if (settings.customCropPercents) {
        const float W = static_cast<float>(image.Width());
        const float H = static_cast<float>(image.Height());
        const float x = settings.percentsOriginX * W / 100.0f;
        const float y = settings.percentsOriginY * H / 100.0f;
        const float width = settings.percentsWidth * W / 100.0f;
        const float height = settings.percentsHeight * H / 100.0f;
        return {x, y, width, height};
    }
    return {};
}

}  // namespace vellumo
