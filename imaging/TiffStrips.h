#pragma once

// Inside the core only: the pixels of a plain stripped TIFF page, read
// strip by strip as regions ask for them. libvips' own TIFF decoder reads
// strips only in order and keeps every row it passes until a crop begins
// (the 4,375 rows above a 16:9 crop of a 20000 × 20000 page, 262 MB); this
// reader decodes just the strips a region covers and keeps one.

#include <optional>
#include <string>
#include <vips/vips8>

namespace vellumo::tiffstrips {

// `header` is the first page of `path` as libvips' TIFF decoder opened it
// (nothing read yet). Returns an image with the header's size, format and
// metadata whose pixels come from the file's strips, or nothing when the
// page is not one this reader takes as libvips would: tiled, planar,
// JPEG-compressed, palette, YCbCr, CMYK, associated alpha, other than 8- or
// 16-bit unsigned samples, or a header that did not come from libvips' TIFF
// decoder. A strip that cannot be decoded fails the region with libtiff's
// reason.
std::optional<vips::VImage> Open(const std::string& path, const vips::VImage& header);

}  // namespace vellumo::tiffstrips
