#pragma once

// Images made by the tests themselves. Pixels that encode their own
// coordinates let a test tell exactly which pixels an operation kept.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include <vips/vips8>

#include "imaging/Image.h"

namespace vellumo::test {

// An 8-bit sRGB image whose pixel at column x, row y (from the top) is
// CoordinatePixel(x, y).
vips::VImage CoordinateImage(int width, int height);

struct Rgb {
    std::uint8_t r, g, b;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};
// R and G hold the low bytes of x and y, B their high nibbles.
Rgb CoordinatePixel(int x, int y);

// A smooth, textured photo-like 8-bit sRGB image (gradients and noise), for
// timings and lossy-codec checks.
vips::VImage PhotoLikeImage(int width, int height);

// A photo-like 1200 x 800 picture without a face: a flat background with one
// bright, busy patch near its right edge, 200 x 200 at columns 950 to 1149
// and rows 300 to 499 from the top.
vips::VImage OffCentreSubject();

// An Image whose logical size and pixels are `pixels`.
Image MakeImage(const vips::VImage& pixels);

// An Image of the given logical size with no pixels, for pure geometry.
Image MakeSizedImage(double width, double height);

// The pixels behind an Image, decoded into memory (top row first,
// interleaved samples).
vips::VImage PixelsOf(const Image& image);

// Whether `image` is there and every one of its pixels can be read: a
// picture decoded while it is read fails only then.
bool ReadsWhole(const std::optional<Image>& image);

// The raw interleaved bytes of a decoded image.
std::vector<unsigned char> RawBytes(const vips::VImage& image);

}  // namespace vellumo::test
