#pragma once

// Inside the core only: how little of a JPEG file a crop that is then made
// smaller needs decoded. libjpeg decodes at M/8 of the stored size (M from 1
// to 16) in the DCT domain, skips whole rows above a band and stops after
// its last, and decodes only a band of columns. The plan takes the smallest
// M that still leaves the resize after it at least kMinResizeFactor and at
// which the cut's edges fall on whole pixels of the scaled picture, and the
// rows and columns under the cut in the picture as stored (a cut of a photo
// stored sideways is another band of the stored picture). A cut whose edges
// fall between scaled pixels at every such M below 8 is decoded at 8/8,
// still only its rows and columns: rounding it to whole scaled pixels would
// move it (up to a fifth of an output pixel) and soften it. On this
// machine's libjpeg-turbo only the 8/8 inverse DCT has SIMD code, so 5/8 to
// 7/8 cost about what 8/8 does (djpeg on a photo-like 24-megapixel JPEG's
// 4000-pixel square: 0.19 s at 8/8, 0.24 s at 6/8, 0.16 s at 4/8, 0.13 s
// at 1/8).
//
// Boxes here are whole pixels with the origin at the top-left corner, as the
// decoder counts rows.

#include <optional>

#include "imaging/Geometry.h"

namespace vellumo {

struct PixelBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

// The least reduction the resize after a scaled decode must still make.
// Measured on the benchmark's photo-like 24-megapixel JPEGs (centre 1:1 of
// 4000 pixels to 1080, written at q80, PSNR against the full decode cut and
// resized with Lanczos3, where a full decode's own output has 42.41 dB):
// 1.0 and 1.25 decode at 3/8 (41.72 dB), 1.5 at 4/8 (41.93), 2.0 at 5/8
// (42.10), 2.5 at 6/8 (42.26). The DCT's reduction lets more of the fine
// noise alias than Lanczos3 does; only 2.5 stays clearly within 0.3 dB. On
// such files the decoder's time is almost all Huffman decoding, which no
// scale saves, so the larger scale costs little (CutResizedTest).
inline constexpr double kMinResizeFactor = 2.5;

// The fewest stored pixels a picture needs for a plan. Below a megapixel the
// whole decode takes a few milliseconds, about what reading the file's
// header a second time for the plan costs, and the coarse scales a small
// picture leaves lose most of its detail (a 322-pixel photo made 87 pixels
// wide lost 3.5 dB at 6/8).
inline constexpr double kLeastPlannedPixels = 1'000'000.0;

struct JpegDecodePlan {
    int eighths = 8;   // decoded at eighths / 8 of the stored size
    PixelBox stored;   // the cut in the stored picture, full-size pixels
    PixelBox decoded;  // exactly `stored` at the scale: the rows and columns decoded
};

// The cut `upright` of the upright picture of `uprightSize` in the picture as
// stored, for the Exif orientation (1 to 8; others count as 1).
PixelBox StoredBox(const PixelBox& upright, Size uprightSize, int orientation);

// The smallest M (1 to 8) for which a cut of `cut` pixels decoded at M/8 is
// still at least `minFactor` times `output` on both sides; 8 when none is.
int ScaleEighths(Size cut, Size output, double minFactor = kMinResizeFactor);

// The plan for cutting `upright` out of a JPEG of `storedSize` pixels as
// stored, with orientation `orientation`, and resizing it to `output`:
// the smallest M that leaves the resize `minFactor` and puts the cut's four
// edges on whole scaled pixels, 8 when no smaller M does. Nothing when the
// picture has fewer than kLeastPlannedPixels: it is then decoded whole.
std::optional<JpegDecodePlan> PlanJpegDecode(Size storedSize, int orientation,
                                             const PixelBox& upright, Size output,
                                             double minFactor = kMinResizeFactor);

// Whether the span of `length` stored pixels from `begin` starts and ends on
// whole pixels at `eighths` / 8. An end at the picture's last pixel counts
// only when it is whole too: libjpeg rounds the scaled side up, and its last
// pixel then stands for less than a whole scaled pixel of the file.
bool OnWholeScaledPixels(int begin, int length, int eighths);

}  // namespace vellumo
