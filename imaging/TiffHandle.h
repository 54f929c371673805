#pragma once

// Inside the core only: a libtiff handle whose messages stay with it.
// libtiff's process-wide handlers may belong to another library
// (ImageMagick's TIFF coder installs handlers that expect its own state and
// abort without it), so every handle opened here reports to its own string.

#include <tiffio.h>

#include <memory>
#include <string>

namespace vellumo::tiffhandle {

using Tiff = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

// Opens `path` for reading. The first error libtiff reports about this
// handle is kept in `*error`, which must outlive the handle; warnings are
// dropped. Null when the file cannot be opened (the reason in `*error`).
Tiff Open(const std::string& path, std::string* error);

}  // namespace vellumo::tiffhandle
