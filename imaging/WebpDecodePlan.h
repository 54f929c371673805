#pragma once

// Inside the core only: how little of a WebP file a crop that is then made
// smaller needs decoded. libwebp crops and scales while it decodes
// (WebPDecoderConfig's use_cropping and use_scaling): it stops after the
// crop's last row, converts only the crop's pixels to RGB and averages them
// down to any size, its edges mapped exactly onto the scaled picture's. The
// libwebp of Debian 12 (1.2.4) moves a crop's origin to even coordinates; a
// cut at an odd origin is therefore decoded one column or row larger, at
// full size, and the extra edge cut off after.
//
// Boxes are whole pixels with the origin at the top-left corner, as the
// decoder counts rows (JpegDecodePlan.h).

#include <optional>

#include "imaging/Geometry.h"
#include "imaging/JpegDecodePlan.h"

namespace vellumo {

// The least reduction the resize after libwebp's scaling must still make.
// libwebp scales by averaging the pixels each scaled pixel covers, which
// lets less of the fine detail alias than libjpeg's reduced DCT. Measured
// as kMinResizeFactor was (WebpCutResizedTest; centre square to 3.7 times
// smaller, written at q80, PSNR against the full decode cut and resized
// with Lanczos3): a real photo written as WebP q90, where the full decode's
// own output has 41.44 dB, had 40.92 dB at 1.0 (as `vips thumbnail`,
// which scales on load to the output), 41.06 at 1.25, 41.23 at 1.5, 41.27
// at 2.0; fine detail (24.14 dB) had 23.50, 24.05, 24.13, 24.30. 1.5 is the
// least that stays within 0.3 dB of the full decode on both.
inline constexpr double kWebpMinResizeFactor = 1.5;

struct WebpDecodePlan {
    PixelBox stored;       // the cut in the picture as stored
    PixelBox cropped;      // what libwebp is asked to crop: `stored` from an even origin
    int scaledWidth = 0;   // what libwebp scales `cropped` to
    int scaledHeight = 0;  //
    PixelBox kept;         // the cut within the decoded picture
};

// The plan for cutting `upright` out of a WebP of `storedSize` pixels as
// stored, with orientation `orientation`, and resizing it to `output`: the
// cut scaled to the least size that leaves the resize `minFactor` on both
// sides (no larger than the cut), when its origin is even; the cut at full
// size otherwise. Nothing when the picture has fewer than
// kLeastPlannedPixels: it is then decoded whole.
std::optional<WebpDecodePlan> PlanWebpDecode(Size storedSize, int orientation,
                                             const PixelBox& upright, Size output,
                                             double minFactor = kWebpMinResizeFactor);

}  // namespace vellumo
