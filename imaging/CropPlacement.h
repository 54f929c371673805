#pragma once

// Where an auto-crop rectangle sits, and how large it is for any ratio.
// Conventions as in ImageTools.h: doubles in image pixels, origin at the
// image's lower-left corner, y upward, nothing rounded.

#include <array>
#include <optional>
#include <string_view>

#include "imaging/Geometry.h"

namespace vellumo {

// A width : height ratio; both sides positive.
struct AspectRatio {
    double width = 1.0;
    double height = 1.0;

    friend bool operator==(const AspectRatio&, const AspectRatio&) = default;
};

// The four ratios whose rectangles, turned for portrait images, have their
// own arithmetic (AutoCropRectangle in ImageTools.h): 1:1, 4:3, 3:2, 16:9.
enum class ClassicRatio {
    Square,       // 1:1
    FourThree,    // 4:3, 3:4 for portrait
    ThreeTwo,     // 3:2, 2:3 for portrait
    SixteenNine,  // 16:9, 9:16 for portrait
};

// Where the rectangle goes: one of nine places on a 3 x 3 grid, or a place
// chosen from the pixels (libvips' measures of what draws the eye).
enum class CropAnchor {
    Centre,
    Top,
    Bottom,
    Left,
    Right,
    TopLeft,
    TopRight,
    BottomLeft,
    BottomRight,
    Attention,  // skin, saturated colour and edges
    Entropy,    // the busiest part of the picture
    Faces,      // the most faces whole (imaging/FacePlacement.h)
};

// The names anchors go by in profiles and on the command line, by enum value:
// "centre", "top", ..., "bottom-right", "attention", "entropy", "faces".
inline constexpr std::array<std::string_view, 12> kCropAnchorNames = {
    "centre",    "top",         "bottom",       "left",      "right",   "top-left",
    "top-right", "bottom-left", "bottom-right", "attention", "entropy", "faces"};

// The anchor of a name ("center" too); nothing for an unknown one.
std::optional<CropAnchor> CropAnchorNamed(std::string_view name);
std::string_view CropAnchorName(CropAnchor anchor);

// Placed from the pixels of the reduced picture (below).
inline bool IsSmartAnchor(CropAnchor anchor) {
    return anchor == CropAnchor::Attention || anchor == CropAnchor::Entropy ||
           anchor == CropAnchor::Faces;
}

// The longer side of the reduced picture a smart anchor is judged on (the
// file decoded to fit in this square, as ImageTools::LoadPreview makes it):
// the window and the job look at the same pixels, so they agree.
inline constexpr int kPlacementPictureSide = 512;

// The ratio turned so that its longer side lies along the image's longer
// side (an image is landscape when float(W / H) >= 1, a square included).
AspectRatio RatioMatchingOrientation(Size image, AspectRatio ratio);

// The largest rectangle of `ratio` inside the image, centred: the full
// height when the image is at least as wide as that needs, else the full
// width.
Rect LargestCentredRectangle(Size image, AspectRatio ratio);

// `rect` moved to the anchor's place on the image, its size unchanged.
// Centre and the smart anchors leave it where it is.
Rect MoveToAnchor(Size image, Rect rect, CropAnchor anchor);

}  // namespace vellumo
