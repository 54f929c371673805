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
    // Per anchor, by enum value: where the rectangle goes on each axis,
    // -1 to the left (bottom), +1 to the right (top), 0 where it is.
    constexpr std::array<std::pair<int, int>, kCropAnchorNames.size()> kPlaces = {{
        {0, 0},    // centre
        {0, 1},    // top
        {0, -1},   // bottom
        {-1, 0},   // left
        {1, 0},    // right
        {-1, 1},   // top-left
        {1, 1},    // top-right
        {-1, -1},  // bottom-left
        {1, -1},   // bottom-right
        {0, 0},    // attention: placed from the pixels
        {0, 0},    // entropy: likewise
        {0, 0},    // faces: likewise
    }};
    const auto [horizontal, vertical] = kPlaces.at(static_cast<std::size_t>(anchor));
    if (horizontal != 0) {
        rect.x = horizontal < 0 ? 0.0 : image.width - rect.width;
    }
    // y grows upward: the top of the image is y = H - height.
    if (vertical != 0) {
        rect.y = vertical < 0 ? 0.0 : image.height - rect.height;
    }
    return rect;
}

}  // namespace vellumo
