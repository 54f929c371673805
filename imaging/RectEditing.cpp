#include "imaging/RectEditing.h"

#include <algorithm>
#include <cmath>

namespace vellumo {

namespace {

bool MovesLeft(RectHandle h) {
    return h == RectHandle::Left || h == RectHandle::BottomLeft || h == RectHandle::TopLeft;
}
bool MovesRight(RectHandle h) {
    return h == RectHandle::Right || h == RectHandle::BottomRight || h == RectHandle::TopRight;
}
bool MovesBottom(RectHandle h) {
    return h == RectHandle::Bottom || h == RectHandle::BottomLeft || h == RectHandle::BottomRight;
}
bool MovesTop(RectHandle h) {
    return h == RectHandle::Top || h == RectHandle::TopLeft || h == RectHandle::TopRight;
}

// The whole pixels of an image side: a rectangle never reaches into the
// part-pixel an image of fractional size has at its far edges.
double Pixels(double side) {
    return std::max(1.0, std::floor(side));
}

// A free resize: each moved edge follows the drag, stopping at the image's
// edge and one pixel short of the opposite edge.
Rect FreeResize(const Rect& r, RectHandle h, double dx, double dy, double W, double H) {
    double left = r.x, right = r.x + r.width, bottom = r.y, top = r.y + r.height;
    if (MovesLeft(h))
        left = std::clamp(std::round(left + dx), 0.0, right - 1.0);
    if (MovesRight(h))
        right = std::clamp(std::round(right + dx), left + 1.0, W);
    if (MovesBottom(h))
        bottom = std::clamp(std::round(bottom + dy), 0.0, top - 1.0);
    if (MovesTop(h))
        top = std::clamp(std::round(top + dy), bottom + 1.0, H);
    return {left, bottom, right - left, top - bottom};
}

// The largest whole width not above `width` whose rounded height at the ratio
// is at most `maxHeight`, and at least one pixel for both.
double FitWidth(double width, double maxWidth, double maxHeight, double ratio) {
    width = std::floor(std::min({width, maxWidth, maxHeight * ratio}) + 1e-9);
    while (width > 1.0 && std::round(width / ratio) > maxHeight) {
        width -= 1.0;
    }
    const double smallest = std::max(1.0, std::ceil(ratio - 1e-9));
    return std::max(width, std::min(smallest, maxWidth));
}

Rect LockedResize(const Rect& r, RectHandle h, double dx, double dy, double W, double H,
                  double ratio) {
    const bool horizontal = MovesLeft(h) || MovesRight(h);
    const bool vertical = MovesBottom(h) || MovesTop(h);
    // The width the drag asks for, from whichever movement is the larger.
    double wanted = r.width + (MovesLeft(h) ? -dx : MovesRight(h) ? dx : 0.0);
    const double fromHeight = (r.height + (MovesBottom(h) ? -dy : MovesTop(h) ? dy : 0.0)) * ratio;
    if (!horizontal || (vertical && std::abs(fromHeight - r.width) > std::abs(wanted - r.width))) {
        wanted = fromHeight;
    }
    // Room from the edges that stay put; an edge handle grows both ways on
    // the other axis around the centre.
    const double cx = r.x + r.width / 2.0;
    const double cy = r.y + r.height / 2.0;
    const double maxWidth = MovesLeft(h)    ? r.x + r.width
                            : MovesRight(h) ? W - r.x
                                            : 2.0 * std::min(cx, W - cx);
    const double maxHeight = MovesBottom(h) ? r.y + r.height
                             : MovesTop(h)  ? H - r.y
                                            : 2.0 * std::min(cy, H - cy);
    const double width = FitWidth(wanted, Pixels(maxWidth), Pixels(maxHeight), ratio);
    const double height = std::max(1.0, std::round(width / ratio));
    const double x = MovesLeft(h) ? r.x + r.width - width : MovesRight(h) ? r.x : cx - width / 2.0;
    const double y = MovesBottom(h) ? r.y + r.height - height
                     : MovesTop(h)  ? r.y
                                    : cy - height / 2.0;
    return {x, y, width, height};
}

}  // namespace

Rect SnappedRect(const Rect& rect, Size image) {
    const double W = Pixels(image.width);
    const double H = Pixels(image.height);
    const double width = std::clamp(std::round(rect.width), 1.0, W);
    const double height = std::clamp(std::round(rect.height), 1.0, H);
    return {std::clamp(std::round(rect.x), 0.0, W - width),
            std::clamp(std::round(rect.y), 0.0, H - height), width, height};
}

Rect MovedRect(const Rect& rect, double dx, double dy, Size image) {
    return SnappedRect({rect.x + dx, rect.y + dy, rect.width, rect.height}, image);
}

Rect DraggedRect(const Rect& start, RectHandle handle, double dx, double dy, Size image,
                 double lockedRatio) {
    const Rect r = SnappedRect(start, image);
    switch (handle) {
        case RectHandle::None:
            return r;
        case RectHandle::Inside:
            return MovedRect(r, dx, dy, image);
        default:
            break;
    }
    const double W = Pixels(image.width);
    const double H = Pixels(image.height);
    if (lockedRatio > 0.0 && std::isfinite(lockedRatio)) {
        return SnappedRect(LockedResize(r, handle, dx, dy, W, H, lockedRatio), image);
    }
    return FreeResize(r, handle, dx, dy, W, H);
}

}  // namespace vellumo
