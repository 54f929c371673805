#include "ui/CropPreviewView.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>

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
    busyAnimation_.setInterval(kSpokeIntervalMs);
    connect(&busyAnimation_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void CropPreviewView::SetImage(const QImage& image) {
    image_ = image;
    scaled_ = QImage();
    update();
    Q_EMIT imageChanged();
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
    if (image_.isNull()) {
        return {};
    }
    const QRect area = PictureArea();
    if (area.isEmpty()) {
        return {};
    }
    // One image pixel per screen pixel at most: its natural size in the
    // view's (device-independent) units.
    const qreal ratio = devicePixelRatioF();
    const qreal naturalWidth = image_.width() / ratio;
    const qreal naturalHeight = image_.height() / ratio;
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

void CropPreviewView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base).darker(104));

    const QRect target = ImageRect();
    if (!target.isEmpty()) {
        const qreal ratio = devicePixelRatioF();
        const QSize deviceSize(static_cast<int>(std::lround(target.width() * ratio)),
                               static_cast<int>(std::lround(target.height() * ratio)));
        painter.drawImage(target.topLeft(), ScaledImage(deviceSize, ratio));
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
}

void CropPreviewView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
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

}  // namespace vellumo
