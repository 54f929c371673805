#include "batch/CropRectangle.h"

#include <cmath>

#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

std::string WholePixelsText(double value) {
    return std::to_string(static_cast<long long>(std::trunc(value)));
}

}  // namespace

Rect ResolveCropRectangle(const CropSettings& settings, const Image& image) {
    switch (settings.mode) {
        case CropMode::Auto:
            return ImageTools::CalculateAutoCropRectangleWithImage(image, settings.autoCropFormat);
        case CropMode::Pixels:
            return {settings.pixelsOriginX, settings.pixelsOriginY, settings.pixelsWidth,
                    settings.pixelsHeight};
        case CropMode::Percents: {
            const float W = static_cast<float>(image.Width());
            const float H = static_cast<float>(image.Height());
            const float x = settings.percentsOriginX * W / 100.0f;
            const float y = settings.percentsOriginY * H / 100.0f;
            const float width = settings.percentsWidth * W / 100.0f;
            const float height = settings.percentsHeight * H / 100.0f;
            return {x, y, width, height};
        }
        case CropMode::None:
            break;
    }
    return {};
}

ResolvedCrop ResolveCrop(const CropSettings& settings, const Image& image) {
    ResolvedCrop crop;
    crop.rect = ResolveCropRectangle(settings, image);
    const double W = image.Width();
    const double H = image.Height();
    const Rect whole{0.0, 0.0, W, H};
    const Size wholeSize{std::trunc(W), std::trunc(H)};
    const auto keepWhole = [&](CropExtent extent) {
        crop.extent = extent;
        crop.cut = whole;
        crop.outputSize = wholeSize;
        return crop;
    };
    if (settings.mode == CropMode::None) {
        return keepWhole(CropExtent::WholeNoMode);
    }
    const Rect& r = crop.rect;
    // The cut itself is ImageTools::CropImage's: it gives back the image
    // for an empty rectangle or one beyond the image.
    const Image sized = Image::OfSize(W, H);
    const Image cut = ImageTools::CropImage(sized, r.x, r.y, r.width, r.height);
    if (cut.IsSameImage(sized)) {
        return keepWhole(r.width < 1.0 || r.height < 1.0 ? CropExtent::WholeEmpty
                                                         : CropExtent::WholeOutside);
    }
    // A cut of less than a pixel would leave nothing to write.
    if (cut.Width() < 1.0 || cut.Height() < 1.0) {
        return keepWhole(CropExtent::WholeSliver);
    }
    crop.outputSize = {std::trunc(cut.Width()), std::trunc(cut.Height())};
    crop.cut = {std::max(r.x, 0.0), std::max(r.y, 0.0), cut.Width(), cut.Height()};
    // Clipped when what is written differs from what was asked for by a
    // whole pixel; a percent rectangle that overshoots the image by a
    // rounding error is not clipped.
    const bool clipped = crop.outputSize.width != std::trunc(r.width) ||
                         crop.outputSize.height != std::trunc(r.height);
    crop.extent = clipped ? CropExtent::Clipped : CropExtent::Inside;
    return crop;
}

std::string CropExtentNote(const ResolvedCrop& crop) {
    switch (crop.extent) {
        case CropExtent::Inside:
            return {};
        case CropExtent::Clipped:
            return "Clipped to " + WholePixelsText(crop.outputSize.width) + " \u00d7 " +
                   WholePixelsText(crop.outputSize.height);
        case CropExtent::WholeNoMode:
            return "Whole image: neither pixels nor percents are chosen";
        case CropExtent::WholeEmpty:
            return "Whole image: the rectangle is empty";
        case CropExtent::WholeOutside:
            return "Whole image: the rectangle lies outside this image";
        case CropExtent::WholeSliver:
            return "Whole image: less than a pixel of the rectangle lies on this image";
    }
    return {};
}

std::string FirstPageNote(int pages) {
    if (pages <= 1) {
        return {};
    }
    return "first frame only (of " + std::to_string(pages) + ")";
}

std::string JoinNotes(const std::string& a, const std::string& b) {
    if (a.empty()) {
        return b;
    }
    if (b.empty()) {
        return a;
    }
    return a + "; " + b;
}

}  // namespace vellumo
