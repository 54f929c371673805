#pragma once

// Inside the core only: opening a file with the one libvips decoder its
// content calls for. Throws vips::VError; callers catch it.

#include <string>
#include <string_view>
#include <vector>
#include <vips/vips8>

#include "imaging/FileKind.h"

namespace vellumo::vipsload {

struct OpenOptions {
    VipsAccess access = VIPS_ACCESS_SEQUENTIAL;
    int page = 0;
    int shrink = 1;  // JPEG only: decode at 1/2, 1/4 or 1/8 of the size
    // JPEG 2000 only: decode the resolution level halved this many times
    // (libvips' `page`; the file's "n-pages" levels, the first 0).
    int reduction = 0;
    // HEIF only: the thumbnail the file holds in place of its image (the
    // image when it holds none).
    bool thumbnail = false;
    double scale = 1.0;  // WebP only: decode scaled by libwebp, below 1
    // Decoder errors and truncation fail the decode instead of leaving grey
    // rows behind.
    VipsFailOn failOn = VIPS_FAIL_ON_ERROR;
};

// Header now, pixels when asked for. Only for the kinds Vellumo reads. When
// the kind's own decoder refuses the file, ImageMagick's is tried (JPEG,
// JPEG 2000, PNG, GIF, TIFF), and for a TIFF then libtiff's RGBA reader
// (which decodes the page at once); when all refuse, the first's error is
// thrown.
vips::VImage Open(FileKind kind, const std::string& path, const OpenOptions& options = {});

// The kinds whose files another decoder may read when their own refuses
// them or crashes on them.
bool HasSecondDecoder(FileKind kind);

// From now on, in this process, files of those kinds go straight to the
// other decoders. A worker process sets it for a file on which the first
// decoder crashed the worker before; the others it clears it for.
void UseOnlySecondDecoder(bool only);

// Whether UseOnlySecondDecoder is in force.
bool OnlySecondDecoder();

// Whether libvips' `loader` ("heifload") read the opened image, from a file
// or from a source ("heifload_source").
bool ReadBy(const vips::VImage& image, std::string_view loader);

// The colour profile (ICC bytes) recorded with an opened file; empty when
// there is none.
std::vector<unsigned char> ColourProfile(const vips::VImage& image);

// The number of pages (TIFF) or frames (GIF) of an opened file, at least 1.
int PageCount(const vips::VImage& image);

// The EXIF or TIFF orientation (1 to 8) recorded with an opened file; 1 when
// there is none or it is out of range.
int Orientation(const vips::VImage& image);

}  // namespace vellumo::vipsload
