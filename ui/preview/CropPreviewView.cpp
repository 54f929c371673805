#include "ui/preview/CropPreviewView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QThreadPool>
#include <algorithm>
#include <cmath>

#include "ui/controls/FocusFrameStyle.h"

namespace vellumo {

namespace {

constexpr int kMargin = 6;
// The busy mark: twelve spokes, one turn a second.
constexpr int kSpokes = 12;
constexpr int kSpokeIntervalMs = 1000 / kSpokes;
constexpr int kBusyMarkRadius = 18;

}  // namespace

CropPreviewView::CropPreviewView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    busyAnimation_.setInterval(kSpokeIntervalMs);
    connect(&busyAnimation_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void CropPreviewView::SetImage(const QImage& image) {
    image_ = image;
    scaled_ = QImage();
    if (image.isNull()) {
        plain_ = plainScaled_ = QImage();
        frame_.reset();
        dragHandle_ = RectHandle::None;
    }
    // The new picture shows the adjusted rectangle itself.
    if (dragHandle_ == RectHandle::None) {
        liveRect_.reset();
    }
    update();
    Q_EMIT imageChanged();
}

void CropPreviewView::SetPlainPicture(const QImage& picture) {
    plain_ = picture;
    plainScaled_ = QImage();
    PrepareScaledPlain();
}

void CropPreviewView::PrepareScaledPlain() {
    const quint64 generation = ++plainGeneration_;
    const QRect target = PictureRect(plain_.size());
    if (plain_.isNull() || target.isEmpty()) {
        return;
    }
    const qreal ratio = devicePixelRatioF();
    const QSize deviceSize(static_cast<int>(std::lround(target.width() * ratio)),
                           static_cast<int>(std::lround(target.height() * ratio)));
    if (plain_.size() == deviceSize) {
        return;  // drawn as it is
    }
    QThreadPool::globalInstance()->start([view = QPointer<CropPreviewView>(this), plain = plain_,
                                          deviceSize, ratio, generation] {
        QImage scaled = plain.scaled(deviceSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        scaled.setDevicePixelRatio(ratio);
        QMetaObject::invokeMethod(
            view,
            [view, scaled = std::move(scaled), generation] {
                // A newer picture or size has asked for another scale;
                // one made on the GUI thread meanwhile is as good.
                if (view && view->plainGeneration_ == generation && view->plainScaled_.isNull()) {
                    view->plainScaled_ = scaled;
                }
            },
            Qt::QueuedConnection);
    });
}

void CropPreviewView::SetCropFrame(const std::optional<CropFrame>& frame) {
    frame_ = frame;
    Announce(frame_ ? std::optional<Rect>(frame_->rect) : std::nullopt);
    update();
}

void CropPreviewView::Announce(const std::optional<Rect>& rect) {
    // Said by a screen reader when the description changes (Qt sends the
    // event): where the crop is, in the image's pixels from the top left.
    if (!rect || !frame_) {
        setAccessibleDescription(tr("No crop to show"));
        return;
    }
    const double top = frame_->imageSize.height - rect->y - rect->height;
    setAccessibleDescription(tr("Crop %1 by %2 pixels at %3, %4 from the top left; arrow keys "
                                "move it by one pixel, with Shift by ten")
                                 .arg(std::lround(rect->width))
                                 .arg(std::lround(rect->height))
                                 .arg(std::lround(rect->x))
                                 .arg(std::lround(top)));
}

void CropPreviewView::SetFrameAdjustable(bool adjustable) {
    adjustable_ = adjustable;
    if (!adjustable) {
        dragHandle_ = RectHandle::None;
        unsetCursor();
    }
}

bool CropPreviewView::CanAdjust() const {
    return adjustable_ && frame_ && !image_.isNull() && frame_->imageSize.width >= 1.0 &&
           frame_->imageSize.height >= 1.0;
}

std::optional<FrameMapping> CropPreviewView::Mapping() const {
    const QRect target = ImageRect();
    if (!frame_ || target.isEmpty() || !(frame_->imageSize.width > 0.0) ||
        !(frame_->imageSize.height > 0.0)) {
        return std::nullopt;
    }
    return FrameMapping(frame_->imageSize, QRectF(target));
}

QRectF CropPreviewView::FrameRectInView() const {
    const std::optional<FrameMapping> mapping = Mapping();
    if (!mapping) {
        return {};
    }
    return mapping->ToView(liveRect_ ? *liveRect_ : frame_->rect);
}

void CropPreviewView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !CanAdjust()) {
        QWidget::mousePressEvent(event);
        return;
    }
    const RectHandle handle = HandleAt(FrameRectInView(), event->position());
    if (handle == RectHandle::None) {
        return;
    }
    dragHandle_ = handle;
    dragFrom_ = event->position();
    dragStart_ = liveRect_ ? *liveRect_ : frame_->rect;
    liveRect_ = dragStart_;
    update();
}

void CropPreviewView::mouseMoveEvent(QMouseEvent* event) {
    if (dragHandle_ == RectHandle::None) {
        if (CanAdjust()) {
            setCursor(CursorFor(HandleAt(FrameRectInView(), event->position())));
        }
        return;
    }
    const std::optional<FrameMapping> mapping = Mapping();
    if (!mapping) {
        return;
    }
    const QPointF delta = mapping->ToImageDelta(event->position() - dragFrom_);
    liveRect_ = DraggedRect(dragStart_, dragHandle_, delta.x(), delta.y(), frame_->imageSize,
                            frame_->lockedRatio);
    update();
}

void CropPreviewView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || dragHandle_ == RectHandle::None) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    mouseMoveEvent(event);
    dragHandle_ = RectHandle::None;
    if (!liveRect_ || !frame_ || *liveRect_ == frame_->rect) {
        liveRect_.reset();
        update();
        return;
    }
    Q_EMIT cropAdjusted(*liveRect_, false);
}

void CropPreviewView::keyPressEvent(QKeyEvent* event) {
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    int dx = 0;
    int dy = 0;
    switch (event->key()) {
        case Qt::Key_Left:
            dx = -step;
            break;
        case Qt::Key_Right:
            dx = step;
            break;
        case Qt::Key_Up:
            dy = step;  // image y grows upward
            break;
        case Qt::Key_Down:
            dy = -step;
            break;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    if (!CanAdjust() || dragHandle_ != RectHandle::None) {
        return;
    }
    const Rect moved = MovedRect(liveRect_ ? *liveRect_ : frame_->rect, dx, dy, frame_->imageSize);
    if (moved == (liveRect_ ? *liveRect_ : frame_->rect)) {
        return;
    }
    liveRect_ = moved;
    Announce(moved);
    update();
    Q_EMIT cropAdjusted(moved, true);
}

void CropPreviewView::SetBusy(bool busy) {
    if (busy == busy_) {
        return;
    }
    busy_ = busy;
    if (busy_) {
        busyFor_.start();
        busyAnimation_.start();
    } else {
        busyAnimation_.stop();
    }
    update();
}

bool CropPreviewView::isShowingBusyMark() const {
    return busy_ && busyFor_.elapsed() >= kBusyMarkDelayMs;
}

QRect CropPreviewView::PictureArea() const {
    return rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

int CropPreviewView::LongestPictureSide() const {
    const QRect area = PictureArea();
    return static_cast<int>(std::ceil(std::max(area.width(), area.height()) * devicePixelRatioF()));
}

QRect CropPreviewView::ImageRect() const {
    return PictureRect(image_.size());
}

QRect CropPreviewView::PictureRect(QSize size) const {
    if (size.isEmpty()) {
        return {};
    }
    const QRect area = PictureArea();
    if (area.isEmpty()) {
        return {};
    }
    // One image pixel per screen pixel at most: its natural size in the
    // view's (device-independent) units.
    const qreal ratio = devicePixelRatioF();
    const qreal naturalWidth = size.width() / ratio;
    const qreal naturalHeight = size.height() / ratio;
    const qreal scale = std::min({1.0, area.width() / naturalWidth, area.height() / naturalHeight});
    const int width = std::max(1, static_cast<int>(std::floor(naturalWidth * scale)));
    const int height = std::max(1, static_cast<int>(std::floor(naturalHeight * scale)));
    return {area.x() + (area.width() - width) / 2, area.y() + (area.height() - height) / 2, width,
            height};
}

QSize CropPreviewView::sizeHint() const {
    // Modest, so that the settings above it get their full height first;
    // the preview takes whatever room is left.
    return {480, 200};
}

QSize CropPreviewView::minimumSizeHint() const {
    return {160, 120};
}

std::vector<QRectF> CropPreviewView::FaceOutlines() const {
    std::vector<QRectF> outlines;
    const std::optional<FrameMapping> mapping = Mapping();
    if (!mapping || image_.isNull()) {
        return outlines;
    }
    for (const Rect& face : frame_->faces) {
        outlines.push_back(mapping->ToView(face));
    }
    return outlines;
}

void CropPreviewView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base).darker(104));

    const QRect target = ImageRect();
    if (!target.isEmpty()) {
        const qreal ratio = devicePixelRatioF();
        const QSize deviceSize(static_cast<int>(std::lround(target.width() * ratio)),
                               static_cast<int>(std::lround(target.height() * ratio)));
        const std::optional<FrameMapping> mapping = Mapping();
        if (liveRect_ && mapping && !plain_.isNull()) {
            // A rectangle under adjustment: veiled here, over the plain
            // picture, without waiting for a new picture.
            painter.drawImage(target.topLeft(), ScaledPlain(deviceSize, ratio));
            PaintVeil(painter, QRectF(target), mapping->ToView(*liveRect_));
        } else {
            painter.drawImage(target.topLeft(), ScaledImage(deviceSize, ratio));
        }
        if (mapping) {
            PaintFaceOutlines(painter, FaceOutlines());
            PaintFrame(painter, FrameRectInView(), frame_->adjusted || liveRect_.has_value());
        }
    }

    if (isShowingBusyMark()) {
        PaintBusyMark(painter);
    }

    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.frameShape = QFrame::StyledPanel;
    frame.state |= QStyle::State_Sunken;
    frame.lineWidth = 1;
    style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
    // The arrow keys move the crop: the frame says where they go.
    PaintFocusFrame(*this, painter, rect().adjusted(1, 1, -1, -1));
}

void CropPreviewView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    PrepareScaledPlain();
    Q_EMIT resized();
}

void CropPreviewView::PaintBusyMark(QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect().center());
    // The spoke at the front is the darkest; the ones behind it fade.
    const int front = static_cast<int>(busyFor_.elapsed() / kSpokeIntervalMs) % kSpokes;
    QColor colour = palette().color(QPalette::Text);
    for (int i = 0; i < kSpokes; ++i) {
        const int behind = (front - i + kSpokes) % kSpokes;
        colour.setAlphaF(1.0 - 0.8 * behind / (kSpokes - 1.0));
        painter.setPen(QPen(colour, 3.0, Qt::SolidLine, Qt::RoundCap));
        painter.save();
        painter.rotate(360.0 * i / kSpokes);
        painter.drawLine(QPointF(0, -kBusyMarkRadius / 2.0), QPointF(0, -kBusyMarkRadius));
        painter.restore();
    }
    painter.restore();
}

const QImage& CropPreviewView::ScaledImage(const QSize& deviceSize, qreal devicePixelRatio) {
    if (scaled_.isNull() || scaled_.size() != deviceSize ||
        scaled_.devicePixelRatio() != devicePixelRatio) {
        scaled_ = image_.size() == deviceSize
                      ? image_
                      : image_.scaled(deviceSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        scaled_.setDevicePixelRatio(devicePixelRatio);
    }
    return scaled_;
}

const QImage& CropPreviewView::ScaledPlain(const QSize& deviceSize, qreal devicePixelRatio) {
    if (plainScaled_.isNull() || plainScaled_.size() != deviceSize ||
        plainScaled_.devicePixelRatio() != devicePixelRatio) {
        plainScaled_ =
            plain_.size() == deviceSize
                ? plain_
                : plain_.scaled(deviceSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        plainScaled_.setDevicePixelRatio(devicePixelRatio);
    }
    return plainScaled_;
}

}  // namespace vellumo
