#pragma once

// Inside the core only: decoding the box of a JpegDecodePlan with libjpeg,
// reading the file at offsets (FileHandles.h): the rows above the box are
// skipped without colour conversion, only the box's columns are converted,
// and decoding stops after its last row.

#include <optional>
#include <string>
#include <vips/vips8>

#include "imaging/JpegDecodePlan.h"

namespace vellumo::jpegregion {

// The plan's decoded box, as stored (not turned upright): 8-bit RGB, or grey
// for a grey file, exactly plan.decoded's size. Its rows are decoded as the
// pipeline reads them, top to bottom, and only a few are held at a time; a
// row asked for again after libvips' cache dropped it starts the decode
// again. Nothing when libjpeg refuses the file's header, it is not 8-bit
// grey, RGB or YCbCr (CMYK), or its scaled size is not the plan's; damage
// found in the rows fails the read of the picture (libvips' error "the
// planned decode of the cut failed"). Either way the caller then decodes
// the file the usual way, which says why it fails.
std::optional<vips::VImage> Decode(const std::string& path, Size storedSize,
                                   const JpegDecodePlan& plan);

}  // namespace vellumo::jpegregion
