#pragma once

// Inside the core only: decoding the cut of a WebpDecodePlan with libwebp,
// cropped and scaled while it decodes.

#include <optional>
#include <vector>
#include <vips/vips8>

#include "imaging/WebpDecodePlan.h"

namespace vellumo::webpregion {

// The plan's kept box of the WebP file whose bytes are `file`, as stored
// (not turned upright): 8-bit RGB, or RGBA when the file has alpha. Decoded
// at once, into memory of the scaled crop's size only. Nothing when libwebp
// refuses the file (damaged, animated) or its size is not `storedSize`: the
// caller then decodes the file the usual way, which says why it fails.
std::optional<vips::VImage> Decode(const std::vector<unsigned char>& file, Size storedSize,
                                   const WebpDecodePlan& plan);

}  // namespace vellumo::webpregion
