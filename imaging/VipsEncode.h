#pragma once

// Inside the core only: the libvips encoder for each output codec.

#include <string>
#include <vips/vips8>

#include "imaging/OutputCodec.h"
#include "imaging/SaveResult.h"

namespace vellumo::vipsencode {

// Writes `rendered` (pixels made by encoderender::ForCodec for `codec`) into
// the existing, empty file at `path`, which no one else sees yet. `quality`
// is the compression factor for JPEG and JPEG 2000 and is ignored for the
// rest. The failure's reason is the decoder's when the pixels turn out
// damaged while they are read, or the file system's.
SaveResult WriteFile(const vips::VImage& rendered, OutputCodec codec, double quality,
                     const std::string& path);

}  // namespace vellumo::vipsencode
