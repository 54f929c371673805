#pragma once

// The crop rectangle drawn on the preview, with the eight handles a person
// drags to adjust it: where it sits on the screen, what a press takes hold
// of, and how it is painted. Rectangles are in the full image's pixels
// (origin at the lower-left corner, y upward); the picture on the screen is
// the whole image scaled into `target`.

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <vector>

#include "imaging/Geometry.h"
#include "imaging/RectEditing.h"

class QPainter;

namespace vellumo {

struct CropFrame {
    Rect rect;           // what the job cuts from this image
    Size imageSize;      // the full image's size
    double lockedRatio;  // width / height kept while resizing; 0: free
    bool adjusted;       // the rectangle was adjusted by hand
    // The faces the rule places the crop by, outlined while it does.
    std::vector<Rect> faces{};
};

// Between image pixels and the view's coordinates (y downward).
class FrameMapping {
  public:
    FrameMapping(Size imageSize, const QRectF& target) : image_(imageSize), target_(target) {}

    QRectF ToView(const Rect& rect) const;
    // A movement on the screen as a movement in image pixels.
    QPointF ToImageDelta(const QPointF& viewDelta) const;

  private:
    Size image_;
    QRectF target_;
};

// The handle under `point` (in the view's coordinates) of a frame drawn at
// `frame`: corners first, then edges, then the inside.
RectHandle HandleAt(const QRectF& frame, const QPointF& point);

// The cursor shape that tells what a handle does.
Qt::CursorShape CursorFor(RectHandle handle);

// The colour that marks a rectangle adjusted by hand, wherever it shows:
// the preview's frame, the list's rows, the contact sheet's cells.
QColor AdjustedMarkColour();

// The veil over the picture outside `frame` (within `target`), the frame's
// outline and its eight handles.
void PaintVeil(QPainter& painter, const QRectF& target, const QRectF& frame);
void PaintFrame(QPainter& painter, const QRectF& frame, bool adjusted);
// A thin outline around each face (in the view's coordinates).
void PaintFaceOutlines(QPainter& painter, const std::vector<QRectF>& faces);

}  // namespace vellumo
