#pragma once

// Inside the core only: putting a colour profile into a JPEG or JPEG 2000
// file that its libvips encoder wrote without one (the JPEG encoder cannot
// keep a profile without also writing an Exif block; the JPEG 2000 encoder
// writes none at all).

#include <cstddef>
#include <string>

#include "imaging/SaveResult.h"

namespace vellumo {

// Rewrites the file at `path`, which no one else sees yet, with the `size`
// bytes of the ICC profile `icc`; the coded pixels are copied unchanged.
SaveResult EmbedIccProfile(const std::string& path, const void* icc, std::size_t size);

}  // namespace vellumo
