#pragma once

// Padding instead of cutting: the whole picture placed in the smallest canvas
// of a ratio, the rest filled. Conventions as in ImageTools.h.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "imaging/CropPlacement.h"
#include "imaging/Geometry.h"
#include "imaging/Image.h"

namespace vellumo {

// What fills the canvas around the picture.
enum class PadBackground {
    Colour,       // one solid colour
    Edge,         // the picture's outermost pixels, repeated outward
    Blur,         // a blurred copy of the picture, enlarged to cover the canvas
    Transparent,  // nothing (formats with alpha only)
};

// The names of the three fills that are not a colour, by enum value after
// Colour: "edge", "blur", "transparent".
inline constexpr std::array<std::string_view, 3> kPadBackgroundNames = {"edge", "blur",
                                                                        "transparent"};

struct RgbColour {
    std::uint8_t red = 255;
    std::uint8_t green = 255;
    std::uint8_t blue = 255;

    friend bool operator==(const RgbColour&, const RgbColour&) = default;
};

struct PadRule {
    bool on = false;
    AspectRatio ratio{1, 1};  // the canvas's W:H, as given (never turned)
    PadBackground background = PadBackground::Colour;
    RgbColour colour;  // for PadBackground::Colour

    friend bool operator==(const PadRule&, const PadRule&) = default;
};

// A colour by name ("white", "black", "grey" ... as in CSS, any case) or as
// #RGB or #RRGGBB; nothing for anything else.
std::optional<RgbColour> ColourNamed(std::string_view text);
// "#rrggbb".
std::string ColourText(RgbColour colour);

// The fill a --background value names: a colour (see ColourNamed) or one of
// kPadBackgroundNames, into `rule`; false, `rule` unchanged, for neither.
bool ReadPadBackground(std::string_view text, PadRule& rule);
// The value that reads back as the rule's fill: "edge", "#ffffff".
std::string PadBackgroundText(const PadRule& rule);

// Where a picture of `picture` whole pixels sits in its padded canvas: the
// canvas's size in whole pixels, and the picture's rectangle in it.
struct PadLayout {
    Size canvas;
    Rect placed;

    friend bool operator==(const PadLayout&, const PadLayout&) = default;
};

// The smallest canvas of `ratio` holding the picture (sides rounded to the
// nearest pixel, never below the picture's), and the picture moved to the
// anchor's place in it: on the edge the anchor names, else centred at half
// the canvas less half the picture, each half in whole pixels (as
// ImageMagick's -gravity places it). Smart anchors centre.
PadLayout PadLayoutFor(Size picture, AspectRatio ratio, CropAnchor anchor);

namespace ImageTools {

// The image placed in its canvas as `layout` says, the rest filled as `rule`
// says; 8-bit sRGB, with alpha when the image has it or the fill is
// transparent. The input itself when it has no pixels.
Image PadImage(const Image& image, const PadLayout& layout, const PadRule& rule);

}  // namespace ImageTools

}  // namespace vellumo
