#pragma once

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

// What a file's headers tell without decoding pixels.
struct ImageHeader {
    Size pixelSize;  // upright; the largest over all pages
    int pages = 1;   // pages or frames, at least 1

    friend bool operator==(const ImageHeader&, const ImageHeader&) = default;
};

}  // namespace vellumo
