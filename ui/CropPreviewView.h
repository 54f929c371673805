#pragma once

#include <QImage>
#include <QWidget>

namespace vellumo {

// Shows one picture (the selected image with its crop marked) as large as
// fits, its aspect ratio kept, centred, never enlarged beyond one image pixel
// per screen pixel. On high-density screens it is drawn at the screen's own
// resolution, so it stays sharp. An empty QImage empties the view.
class CropPreviewView : public QWidget {
    Q_OBJECT

  public:
    explicit CropPreviewView(QWidget* parent = nullptr);

    void SetImage(const QImage& image);
    const QImage& image() const { return image_; }

    // Where the picture is drawn, in the view's coordinates; empty when there
    // is no picture.
    QRect ImageRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    // The picture scaled to `deviceSize` screen pixels, made once per size.
    const QImage& ScaledImage(const QSize& deviceSize, qreal devicePixelRatio);

    QImage image_;
    QImage scaled_;
};

}  // namespace vellumo
