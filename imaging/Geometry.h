#pragma once

#include <optional>

namespace vellumo {

// Rectangles and sizes in an image's own units (pixels once the image has its
// actual size). The origin is the image's lower-left corner, x grows to the
// right and y grows upward. Nothing here rounds to whole pixels.
struct Rect {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

struct Size {
    double width = 0.0;
    double height = 0.0;

    friend bool operator==(const Size&, const Size&) = default;
};

// How a JPEG file's pixels are coded, which is what a crop that does not
// re-encode them must follow: the pixel size of its blocks (MCUs: 8 or 16,
// 32 for 4:1:1, from its chroma subsampling), its size as stored (before
// its orientation turns it upright), and that orientation (1 to 8).
struct JpegGrid {
    int blockWidth = 8;
    int blockHeight = 8;
    int storedWidth = 0;
    int storedHeight = 0;
    int orientation = 1;

    friend bool operator==(const JpegGrid&, const JpegGrid&) = default;
};

// What a file's headers tell without decoding pixels.
struct ImageHeader {
    Size pixelSize;  // upright; the largest over all pages
    int pages = 1;   // pages or frames, at least 1
    // A JPEG that libjpeg reads, with a subsampling its transforms know.
    std::optional<JpegGrid> jpegGrid;

    friend bool operator==(const ImageHeader&, const ImageHeader&) = default;
};

// `size` with its sides swapped when `orientation` (Exif, 1 to 8) turns the
// picture a quarter (5 to 8): the upright size of a picture stored so, and
// the stored size of an upright one.
inline Size TurnedBy(Size size, int orientation) {
    const bool sideways = orientation >= 5 && orientation <= 8;
    return sideways ? Size{size.height, size.width} : size;
}

}  // namespace vellumo
