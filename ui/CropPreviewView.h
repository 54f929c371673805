#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

namespace vellumo {

// Shows one picture (the selected image with its crop marked) as large as
// fits, its aspect ratio kept, centred, never enlarged beyond one image pixel
// per screen pixel. On high-density screens it is drawn at the screen's own
// resolution, so it stays sharp. An empty QImage empties the view.
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

    void SetImage(const QImage& image);
    const QImage& image() const { return image_; }

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

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // The area inside the margins where pictures go.
    QRect PictureArea() const;
    // The picture scaled to `deviceSize` screen pixels, made once per size.
    const QImage& ScaledImage(const QSize& deviceSize, qreal devicePixelRatio);
    void PaintBusyMark(QPainter& painter);

    QImage image_;
    QImage scaled_;
    bool busy_ = false;
    QElapsedTimer busyFor_;
    QTimer busyAnimation_;
};

}  // namespace vellumo
