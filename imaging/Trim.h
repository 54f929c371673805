#pragma once

// Trimming uniform borders: the part of an image that is not background.
// The background is the colour (or transparency) of the corners, compared
// as ImageMagick's -trim compares it, so that a trim here cuts exactly what
// `convert in -fuzz N% -trim` cuts: the left and top edges against the
// top-left corner, the right edge against the top-right corner, the bottom
// edge against the bottom-left corner. Conventions as in ImageTools.h.

#include <optional>

#include "imaging/Geometry.h"
#include "imaging/Image.h"

namespace vellumo {

// The tolerance is a percentage of the full sample range.
inline constexpr double kLargestTrimTolerance = 100.0;
// Margins are whole pixels kept around what the trim finds.
inline constexpr int kLargestTrimMargin = 65535;

struct TrimRule {
    bool on = false;
    double tolerance = 0.0;  // 0 to 100: how far a colour may be from the corner's
    int margin = 0;          // pixels of background kept on each side

    friend bool operator==(const TrimRule&, const TrimRule&) = default;
};

// `area` widened by `margin` pixels on each side, kept on an image of
// `image` size.
Rect WidenedByMargin(Rect area, Size image, int margin);

namespace ImageTools {

// The smallest rectangle holding every pixel that is not background, in
// whole pixels; nothing when the image has no pixels or is background
// throughout. A pixel is background when its distance from the corner's
// colour, sqrt((dR^2 + dG^2 + dB^2) / 3) on samples scaled to 16 bits,
// is at most `tolerance` percent of the range (alpha counted as
// ImageMagick counts it); at 0 only the same samples are.
std::optional<Rect> FindContent(const Image& image, double tolerance);

}  // namespace ImageTools

}  // namespace vellumo
