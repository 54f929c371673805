#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "imaging/FaceDetection.h"
#include "imaging/Geometry.h"
#include "imaging/Image.h"
#include "imaging/LoadResult.h"

namespace vellumo {

// What a preview is asked to look for in the file besides its picture, so
// that the window can show what the crop rule will find there without ever
// decoding in its own process: the faces in the picture (asked of the
// reduced picture a smart anchor judges), and the content a trim at this
// tolerance finds on the full decoded image.
struct PreviewLooks {
    bool faces = false;
    std::optional<double> trimTolerance;

    friend bool operator==(const PreviewLooks&, const PreviewLooks&) = default;
};

// What a trim at `tolerance` found (ImageTools::FindContent): the content's
// rectangle, or nothing when the image is background throughout.
struct TrimLook {
    double tolerance = 0.0;
    std::optional<Rect> content;

    friend bool operator==(const TrimLook&, const TrimLook&) = default;
};

// What the window shows of a file: the whole picture, upright, small enough
// to draw at once, and the size of the file's full picture, which the
// labels and the crop rectangle speak of.
struct Preview {
    Size fullSize;  // upright pixel size, as PixelSizeOfFile gives it
    Image picture;  // upright, scaled down to fit the requested box
    int pages = 1;  // pages or frames of the file; the picture is the first
    // A JPEG's block grid, which a crop without re-encoding follows.
    std::optional<JpegGrid> jpegGrid;
    // Only when asked for (PreviewLooks).
    std::optional<FaceSearch> faces{};
    std::optional<TrimLook> trim{};
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
