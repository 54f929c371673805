#pragma once

// Inside the core only: an output written no larger than a byte limit.

#include <string>
#include <vips/vips8>

#include "imaging/ByteLimit.h"
#include "imaging/OutputCodec.h"
#include "imaging/SaveResult.h"

namespace vellumo::sizefitting {

// Writes `rendered` into the empty file at `path` as vipsencode::WriteFile
// would, at most `limit.maxBytes` long. JPEG, WebP, AVIF, HEIC and JPEG XL
// take the highest quality factor, up to the one `quality` gives, whose
// encoding fits: a bisection over the factors, each encoded into memory
// (at most 7 encodings), and only the one that fits is written. When even
// factor 1 does not fit, the save fails with the smallest size reached,
// unless `limit.scaleDown`: then the picture is made smaller, a fifth at a
// time, and fitted again. Other codecs are written as they are and fail
// when the file is larger. The result's `fit` tells what was chosen.
SaveResult WriteFileWithin(const vips::VImage& rendered, OutputCodec codec, double quality,
                           const ByteLimit& limit, const std::string& path);

}  // namespace vellumo::sizefitting
