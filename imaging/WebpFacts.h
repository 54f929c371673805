#pragma once

// Inside the core only: what a WebP file's container says of its picture,
// read by libwebp's demuxer from the file's bytes. libvips' WebP loader
// makes a canvas of the whole picture (4 bytes a pixel) as soon as it reads
// the header, whatever is decoded after; a decode that keeps a small part
// of the picture reads the header here instead.

#include <optional>
#include <vector>

#include "imaging/Geometry.h"

namespace vellumo {

struct WebpFacts {
    Size stored;  // the canvas, as stored (not turned upright)
    int frames = 1;
    int orientation = 1;                    // from its Exif chunk, 1 to 8; 1 when none
    std::vector<unsigned char> iccProfile;  // empty when none
};

// Nothing when the demuxer refuses the bytes (not a whole WebP file).
std::optional<WebpFacts> ReadWebpFacts(const std::vector<unsigned char>& bytes);

}  // namespace vellumo
