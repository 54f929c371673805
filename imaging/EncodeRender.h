#pragma once

// Inside the core only: bringing any decoded pixels to what an encoder
// writes. Every output is 8 bits per sample. Grey stays grey where the
// format has grey (JPEG, JPEG 2000, PNG, TIFF); everything else becomes sRGB.
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
