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

}  // namespace vellumo
