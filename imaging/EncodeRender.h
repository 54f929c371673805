#pragma once

// Inside the core only: bringing any decoded pixels to what an encoder
// writes. Outputs are 8 bits per sample, except that 16-bit grey or RGB
// keeps its 16 bits, sample for sample, where the format stores them (PNG,
// TIFF, JPEG 2000, JPEG XL; AVIF is given 16 and writes 12). Grey stays grey
// where the format has grey (JPEG, JPEG 2000, PNG, TIFF, JPEG XL);
// everything else becomes sRGB.
// Alpha is kept only where the image has it and the format carries it;
// JPEG gets it flattened onto white, as a photo tool is expected to do.
// The result carries no metadata but the ICC profile, and that one only
// when it describes the written pixels (an RGB profile on RGB output, a
// grey one on grey): a CMYK or Lab source's profile never comes along.

#include <vips/vips8>

#include "imaging/OutputCodec.h"

namespace vellumo::encoderender {

vips::VImage ForCodec(const vips::VImage& pixels, OutputCodec codec);

}  // namespace vellumo::encoderender
