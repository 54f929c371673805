#pragma once

// Editing a crop rectangle by hand: moving it, and dragging one of its
// eight handles, in an image's own pixels (origin at the lower-left corner,
// y upward). Shared conventions:
//   - every result lies wholly on the image (0, 0, width, height) and is at
//     least one pixel on each side;
//   - every result has whole-pixel corners, so that what is written is
//     exactly what was shown;
//   - a positive `lockedRatio` (width / height) is kept to the pixel while
//     resizing: the height is the width divided by the ratio, rounded.

#include "imaging/Geometry.h"

namespace vellumo {

// What a press on the rectangle takes hold of.
enum class RectHandle {
    None,    // nothing: the press is off the rectangle
    Inside,  // the whole rectangle, to move it
    Left,
    Right,
    Bottom,  // the edge at the rectangle's y
    Top,     // the edge at y + height
    BottomLeft,
    BottomRight,
    TopLeft,
    TopRight,
};

// `rect` with whole-pixel corners, at least one pixel wide and high, moved
// and shrunk as little as possible to lie on an image of `image` size.
Rect SnappedRect(const Rect& rect, Size image);

// `rect` moved by (dx, dy) pixels, stopping at the image's edges.
Rect MovedRect(const Rect& rect, double dx, double dy, Size image);

// `start` after its `handle` was dragged by (dx, dy) pixels: Inside moves it,
// an edge moves that edge, a corner both of its edges; the opposite edge or
// corner stays put. With a locked ratio an edge drag keeps the rectangle's
// centre on the other axis, and a corner drag follows the larger movement.
Rect DraggedRect(const Rect& start, RectHandle handle, double dx, double dy, Size image,
                 double lockedRatio = 0.0);

}  // namespace vellumo
