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

// A small picture of an image of `fullSize` pixels scaled to the size its
// preview picture of `side` pixels has (never larger than the image), to
// stand in for it while it is decoded. Null when either is empty.
QImage StandInPicture(const QImage& small, Size fullSize, int side);

// `picture`'s pixels as a QImage in the format the screen draws fastest;
// null when it has none. Safe on any thread.
QImage PictureAsQImage(const Image& picture);

}  // namespace vellumo
