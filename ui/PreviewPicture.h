#pragma once

// The picture the preview shows, made away from the GUI thread.

#include <QImage>

#include "imaging/Geometry.h"
#include "imaging/Image.h"

namespace vellumo {

// `picture` is the whole of an image of `fullSize` pixels, at a reduced
// size; `rect` is a crop rectangle in the full image's pixels (origin at the
// lower-left corner). The result is the picture veiled outside the
// rectangle, scaled to the picture, ready to draw. Null when the picture has
// no pixels or the full size is empty. Safe on any thread.
QImage VeiledPreviewPicture(const Image& picture, Size fullSize, Rect rect);

// The picture as it is, ready to draw; null without pixels. Safe on any
// thread.
QImage PlainPreviewPicture(const Image& picture);

}  // namespace vellumo
