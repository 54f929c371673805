#include "ui/preview/CropFrame.h"

#include <QPainter>
#include <QPainterPath>
#include <array>
#include <cmath>

namespace vellumo {

namespace {

// Handles are drawn this wide and taken hold of a little further out, so
// that a thin rectangle can still be grabbed by its edges.
constexpr qreal kHandleSide = 8.0;
constexpr qreal kGrabDistance = 7.0;

// The veil the preview pictures carry: white at 60 % over the picture.
const QColor kVeil(255, 255, 255, 153);

struct HandlePlace {
    RectHandle handle;
    qreal fx, fy;  // place on the frame, 0 to 1 from its top-left corner
};
constexpr std::array<HandlePlace, 8> kHandles = {{
    {RectHandle::TopLeft, 0, 0},
    {RectHandle::TopRight, 1, 0},
    {RectHandle::BottomLeft, 0, 1},
    {RectHandle::BottomRight, 1, 1},
    {RectHandle::Top, 0.5, 0},
    {RectHandle::Bottom, 0.5, 1},
    {RectHandle::Left, 0, 0.5},
    {RectHandle::Right, 1, 0.5},
}};

QPointF PlaceOn(const QRectF& frame, const HandlePlace& place) {
    return {frame.left() + place.fx * frame.width(), frame.top() + place.fy * frame.height()};
}

}  // namespace

QColor AdjustedMarkColour() {
    return {255, 170, 0};
}

QRectF FrameMapping::ToView(const Rect& rect) const {
    const qreal sx = target_.width() / image_.width;
    const qreal sy = target_.height() / image_.height;
    return {target_.left() + rect.x * sx,
            target_.top() + (image_.height - rect.y - rect.height) * sy, rect.width * sx,
            rect.height * sy};
}

QPointF FrameMapping::ToImageDelta(const QPointF& viewDelta) const {
    return {viewDelta.x() * image_.width / target_.width(),
            -viewDelta.y() * image_.height / target_.height()};
}

RectHandle HandleAt(const QRectF& frame, const QPointF& point) {
    for (const HandlePlace& place : kHandles) {
        const QPointF at = PlaceOn(frame, place);
        if (std::abs(point.x() - at.x()) <= kGrabDistance &&
            std::abs(point.y() - at.y()) <= kGrabDistance) {
            return place.handle;
        }
    }
    const bool withinX =
        point.x() >= frame.left() - kGrabDistance && point.x() <= frame.right() + kGrabDistance;
    const bool withinY =
        point.y() >= frame.top() - kGrabDistance && point.y() <= frame.bottom() + kGrabDistance;
    if (withinY && std::abs(point.x() - frame.left()) <= kGrabDistance) {
        return RectHandle::Left;
    }
    if (withinY && std::abs(point.x() - frame.right()) <= kGrabDistance) {
        return RectHandle::Right;
    }
    if (withinX && std::abs(point.y() - frame.top()) <= kGrabDistance) {
        return RectHandle::Top;
    }
    if (withinX && std::abs(point.y() - frame.bottom()) <= kGrabDistance) {
        return RectHandle::Bottom;
    }
    return frame.contains(point) ? RectHandle::Inside : RectHandle::None;
}

Qt::CursorShape CursorFor(RectHandle handle) {
    switch (handle) {
        case RectHandle::None:
            return Qt::ArrowCursor;
        case RectHandle::Inside:
            return Qt::SizeAllCursor;
        case RectHandle::Left:
        case RectHandle::Right:
            return Qt::SizeHorCursor;
        case RectHandle::Bottom:
        case RectHandle::Top:
            return Qt::SizeVerCursor;
        case RectHandle::TopLeft:
        case RectHandle::BottomRight:
            return Qt::SizeFDiagCursor;
        case RectHandle::TopRight:
        case RectHandle::BottomLeft:
            return Qt::SizeBDiagCursor;
    }
    return Qt::ArrowCursor;
}

void PaintVeil(QPainter& painter, const QRectF& target, const QRectF& frame) {
    QPainterPath outside;
    outside.addRect(target);
    QPainterPath inside;
    inside.addRect(frame.intersected(target));
    painter.fillPath(outside.subtracted(inside), kVeil);
}

void PaintFrame(QPainter& painter, const QRectF& frame, bool adjusted) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    // Dark under light: visible on any picture. An adjusted rectangle is
    // drawn in the accent colour, so it is told from the rule's at a glance.
    const QColor light = adjusted ? AdjustedMarkColour() : QColor(Qt::white);
    painter.setPen(QPen(QColor(0, 0, 0, 160), 3.0));
    painter.drawRect(frame);
    painter.setPen(QPen(light, 1.0));
    painter.drawRect(frame);
    for (const HandlePlace& place : kHandles) {
        const QPointF at = PlaceOn(frame, place);
        const QRectF handle(at.x() - kHandleSide / 2, at.y() - kHandleSide / 2, kHandleSide,
                            kHandleSide);
        painter.fillRect(handle, light);
        painter.setPen(QPen(QColor(0, 0, 0, 200), 1.0));
        painter.drawRect(handle);
    }
    painter.restore();
}

void PaintFaceOutlines(QPainter& painter, const std::vector<QRectF>& faces) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setBrush(Qt::NoBrush);
    // Thin and dashed, in a colour of their own: they say what the rule saw
    // and are not taken for the crop's frame.
    QPen pen(QColor(255, 214, 0), 1.0, Qt::DashLine);
    pen.setCosmetic(true);
    for (const QRectF& face : faces) {
        painter.setPen(QPen(QColor(0, 0, 0, 120), 2.0));
        painter.drawRect(face);
        painter.setPen(pen);
        painter.drawRect(face);
    }
    painter.restore();
}

}  // namespace vellumo
