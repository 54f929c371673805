#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "imaging/Geometry.h"
#include "imaging/Image.h"
#include "imaging/LoadResult.h"

namespace vellumo {

// What the window shows of a file: the whole picture, upright, small enough
// to draw at once, and the size of the file's full picture, which the
// labels and the crop rectangle speak of.
struct Preview {
    Size fullSize;  // upright pixel size, as PixelSizeOfFile gives it
    Image picture;  // upright, scaled down to fit the requested box
    int pages = 1;  // pages or frames of the file; the picture is the first
    // A JPEG's block grid, which a crop without re-encoding follows.
    std::optional<JpegGrid> jpegGrid;
};

using PreviewResult = Loaded<Preview>;

// Interleaved 8-bit sRGB samples with alpha (R, G, B, A), rows top first,
// ready for a toolkit's image type.
struct RgbaBitmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;  // width * height * 4 bytes
};

}  // namespace vellumo
