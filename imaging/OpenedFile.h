#pragma once

// Inside the core only: a file opened once for what the window and the
// engine read of it first, its header, and the picture read from it next.

#include <optional>
#include <string>
#include <vips/vips8>

#include "imaging/FileKind.h"
#include "imaging/Geometry.h"
#include "imaging/Preview.h"

namespace vellumo {

struct OpenedFile {
    FileKind kind = FileKind::Jpeg;
    // Its first picture, as stored: header now, pixels when read. Empty for
    // a WebP, whose header libwebp's demuxer reads (WebpFacts.h): libvips'
    // loader would make a canvas of the whole picture at once. A WebP is
    // opened when its pixels are wanted, at the scale wanted.
    vips::VImage first;
    Size stored;          // the first picture's size as stored
    int orientation = 1;  // of the first picture, 1 to 8
    ImageHeader header;
};

// The file at `path` opened by the decoder its content calls for, its header
// read: the upright size (the largest of a TIFF's pages), the pages, and a
// JPEG's block grid. Nothing, with the sniff's reason in `refused`, when the
// content is of no kind Vellumo reads. Throws vips::VError when a decoder
// refuses the file; the caller holds a vipsruntime::FailureScope.
std::optional<OpenedFile> OpenFile(const std::string& path, std::string& refused);

// Whether `picture` has the shape of a picture of `size`, to within 2%. A
// picture that stands in for the file's own (a thumbnail the file holds)
// must not when its shape differs: cameras that store a 4:3 thumbnail of a
// 3:2 photo add black bars, a thumbnail may be cut or not turned.
bool SameShape(const vips::VImage& picture, Size size);

// The preview of a file of `header` whose picture, upright and scaled down,
// is `picture`.
Preview PreviewOf(const ImageHeader& header, vips::VImage picture);

}  // namespace vellumo
