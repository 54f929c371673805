#pragma once

// Inside the core only: bringing pixels of any kind the decoders give (grey,
// palette-expanded, 16-bit, float, CMYK, Lab, with or without alpha) to
// 8-bit sRGB.

#include <vips/vips8>

namespace vellumo::pixelconvert {

// 8-bit sRGB with three bands, or four when `withAlpha` (opaque alpha is
// added to an image that has none; an existing alpha is dropped when
// `withAlpha` is false, without flattening).
vips::VImage ToSrgb8(const vips::VImage& image, bool withAlpha);

}  // namespace vellumo::pixelconvert
