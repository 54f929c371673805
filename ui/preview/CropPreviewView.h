#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "ui/preview/CropFrame.h"

namespace vellumo {

// Shows one picture (the selected image with its crop marked) as large as
// fits, its aspect ratio kept, centred, never enlarged beyond one image pixel
// per screen pixel. On high-density screens it is drawn at the screen's own
// resolution, so it stays sharp. An empty QImage empties the view.
//
// Over the picture it draws the crop rectangle with eight handles. A person
// adjusts the rectangle by dragging inside it (to move it) or a handle (to
// resize it), or with the arrow keys (one image pixel, ten with Shift).
// While a drag lasts, the veil and the frame are painted here over the plain
// picture at display rate; when the drag ends the view says where the
// rectangle went, and keeps showing it until the next picture arrives.
//
// While a picture is being made elsewhere the view can show that it is busy:
// a spinning mark over whatever it shows. The mark appears only when the
// wait lasts long enough to be noticed, so quick pictures do not flicker.
class CropPreviewView : public QWidget {
    Q_OBJECT

  public:
    // How long the view waits before it draws the busy mark.
    static constexpr int kBusyMarkDelayMs = 120;

    explicit CropPreviewView(QWidget* parent = nullptr);

    // The picture to show, veiled outside the crop as the job cuts it. An
    // empty one empties the view, its frame included.
    void SetImage(const QImage& image);
    const QImage& image() const { return image_; }
    // The same picture without the veil, painted under a rectangle that is
    // being adjusted.
    void SetPlainPicture(const QImage& picture);

    // The crop rectangle of the image shown; none hides it.
    void SetCropFrame(const std::optional<CropFrame>& frame);
    const std::optional<CropFrame>& cropFrame() const { return frame_; }
    // The outlines of the frame's faces as drawn now, in the view's
    // coordinates; none without a frame or a picture.
    std::vector<QRectF> FaceOutlines() const;
    // Whether a person may adjust the rectangle (not while a job runs).
    void SetFrameAdjustable(bool adjustable);
    // The rectangle being dragged, or adjusted and not yet shown by a new
    // picture; none otherwise.
    const std::optional<Rect>& liveRect() const { return liveRect_; }
    // Where the frame is drawn, in the view's coordinates; empty without one.
    QRectF FrameRectInView() const;

    void SetBusy(bool busy);
    bool isBusy() const { return busy_; }
    // True while the busy mark is drawn (the view has been busy for a while).
    bool isShowingBusyMark() const;

    // Where the picture is drawn, in the view's coordinates; empty when there
    // is no picture.
    QRect ImageRect() const;

    // The longest side, in screen pixels, a picture can be shown at: a
    // picture of this longer side is never shown enlarged.
    int LongestPictureSide() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    // A picture was set (an empty one too).
    void imageChanged();
    // The view's size changed, so pictures of another size may suit it.
    void resized();
    // A person moved or resized the rectangle: by a drag that has just
    // ended, or by an arrow key (`byKeys`).
    void cropAdjusted(const vellumo::Rect& rect, bool byKeys);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Tells assistive technology where the crop is now.
    void Announce(const std::optional<Rect>& rect);

  private:
    // The area inside the margins where pictures go.
    QRect PictureArea() const;
    // Where a picture of `size` pixels is drawn, in the view's coordinates.
    QRect PictureRect(QSize size) const;
    // Scales the plain picture to the screen away from the GUI thread, so
    // that the first frame of a drag does not wait for it.
    void PrepareScaledPlain();
    // The picture scaled to `deviceSize` screen pixels, made once per size.
    const QImage& ScaledImage(const QSize& deviceSize, qreal devicePixelRatio);
    const QImage& ScaledPlain(const QSize& deviceSize, qreal devicePixelRatio);
    std::optional<FrameMapping> Mapping() const;
    bool CanAdjust() const;
    void PaintBusyMark(QPainter& painter);

    QImage image_;
    QImage scaled_;
    QImage plain_;
    QImage plainScaled_;
    quint64 plainGeneration_ = 0;
    std::optional<CropFrame> frame_;
    bool adjustable_ = true;
    // A drag under way: what it holds, where it began, the rectangle then.
    RectHandle dragHandle_ = RectHandle::None;
    QPointF dragFrom_;
    Rect dragStart_;
    std::optional<Rect> liveRect_;
    bool busy_ = false;
    QElapsedTimer busyFor_;
    QTimer busyAnimation_;
};

}  // namespace vellumo
