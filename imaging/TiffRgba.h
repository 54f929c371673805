#pragma once

// Inside the core only: libtiff's own RGBA reader, the last resort for TIFF
// files that are valid but that neither libvips' TIFF decoder nor its bridge
// to ImageMagick takes (YCbCr with subsampled chroma, among others). It
// decodes the whole page to 8-bit RGB(A) in memory, so it is used only when
// both have refused the file.

#include <string>
#include <vips/vips8>

namespace vellumo::tiffrgba {

// Page `page` of the TIFF file at `path` as 8-bit sRGB, with alpha when the
// file has it, rows top first. Throws vips::VError with libtiff's reason.
vips::VImage Read(const std::string& path, int page);

}  // namespace vellumo::tiffrgba
