#pragma once

// The size an output is brought to after cropping. Sizes are whole pixels;
// the rule never distorts (one scale for both sides) except for Exact, whose
// crop already has the target's ratio.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "imaging/Geometry.h"
#include "imaging/Sentence.h"

namespace vellumo {

enum class ResizeMode {
    None,    // the crop's own size
    Width,   // to the width, the height following
    Height,  // to the height, the width following
    Fit,     // as large as fits within width x height
    Exact,   // exactly width x height (the crop takes the ratio width:height)
};

// Names in profiles: "none", "width", "height", "fit", "exact".
inline constexpr std::array<std::string_view, 5> kResizeModeNames = {"none", "width", "height",
                                                                     "fit", "exact"};
std::optional<ResizeMode> ResizeModeNamed(std::string_view name);
std::string_view ResizeModeName(ResizeMode mode);

// Sides a resize accepts, in pixels.
inline constexpr int kLargestResizeSide = 65535;

struct ResizeRule {
    ResizeMode mode = ResizeMode::None;
    int width = 0;  // 1 to kLargestResizeSide where the mode uses it
    int height = 0;
    bool enlarge = false;  // a smaller crop is brought up to the size too

    friend bool operator==(const ResizeRule&, const ResizeRule&) = default;
};

// The size an output of `cut` pixels (whole numbers) is written at: the scale
// is target over cut (for Fit the smaller of the two), at most 1 without
// `enlarge`, and each side is rounded to the nearest pixel, at least 1. For
// Exact the target itself, or the cut when it is smaller and may not be
// enlarged.
Size ResizedSize(Size cut, const ResizeRule& rule);

// What the person should know when the rule could not be met: "not enlarged:
// the crop is 800 x 600" when a smaller crop keeps its size. Empty otherwise.
Sentence ResizeNote(Size cut, const ResizeRule& rule);

}  // namespace vellumo
