#include "imaging/CropPlacement.h"

#include <algorithm>
#include <utility>

namespace vellumo {

std::optional<CropAnchor> CropAnchorNamed(std::string_view name) {
    if (name == "center") {
        return CropAnchor::Centre;
    }
    const auto found = std::find(kCropAnchorNames.begin(), kCropAnchorNames.end(), name);
    if (found == kCropAnchorNames.end()) {
        return std::nullopt;
    }
    return static_cast<CropAnchor>(found - kCropAnchorNames.begin());
}

std::string_view CropAnchorName(CropAnchor anchor) {
    return kCropAnchorNames.at(static_cast<std::size_t>(anchor));
}

AspectRatio RatioMatchingOrientation(Size image, AspectRatio ratio) {
    const bool landscape = static_cast<float>(image.width / image.height) >= 1.0f;
    const bool wide = ratio.width >= ratio.height;
    if (landscape != wide) {
        std::swap(ratio.width, ratio.height);
    }
    return ratio;
}

Rect LargestCentredRectangle(Size image, AspectRatio ratio) {
    const double W = image.width;
    const double H = image.height;
    const double fullHeightWidth = H * ratio.width / ratio.height;
    if (W >= fullHeightWidth) {
        return {(W - fullHeightWidth) * 0.5, 0.0, fullHeightWidth, H};
    }
    const double fullWidthHeight = W * ratio.height / ratio.width;
    return {0.0, (H - fullWidthHeight) * 0.5, W, fullWidthHeight};
}

Rect MoveToAnchor(Size image, Rect rect, CropAnchor anchor) {
    // y grows upward: the top of the image is y = H - height.
    const double left = 0.0;
    const double right = image.width - rect.width;
    const double bottom = 0.0;
    const double top = image.height - rect.height;
    switch (anchor) {
        case CropAnchor::Top:
            rect.y = top;
            break;
        case CropAnchor::Bottom:
            rect.y = bottom;
            break;
        case CropAnchor::Left:
            rect.x = left;
            break;
        case CropAnchor::Right:
            rect.x = right;
            break;
        case CropAnchor::TopLeft:
            rect.x = left;
            rect.y = top;
            break;
        case CropAnchor::TopRight:
            rect.x = right;
            rect.y = top;
            break;
        case CropAnchor::BottomLeft:
            rect.x = left;
            rect.y = bottom;
            break;
        case CropAnchor::BottomRight:
            rect.x = right;
            rect.y = bottom;
            break;
        case CropAnchor::Centre:
        case CropAnchor::Attention:
        case CropAnchor::Entropy:
            break;
    }
    return rect;
}

}  // namespace vellumo
