// On a high-density screen (this suite runs at a scale factor of 2) the
// preview draws the picture at the screen's own resolution.

#include <QTest>

#include "ui/CropPreviewView.h"

using vellumo::CropPreviewView;

class HiDpiTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void thePreviewIsSharpOnHighDensityScreens() {
        CropPreviewView preview;
        preview.resize(300, 200);
        preview.show();
        QVERIFY(QTest::qWaitForWindowExposed(&preview));
        QCOMPARE(preview.devicePixelRatioF(), 2.0);

        // A checkerboard of single screen pixels fits at its natural size:
        // 120 x 80 screen pixels are 60 x 40 units.
        QImage board(120, 80, QImage::Format_RGB32);
        for (int y = 0; y < board.height(); ++y) {
            for (int x = 0; x < board.width(); ++x) {
                board.setPixel(x, y, (x + y) % 2 == 0 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
            }
        }
        preview.SetImage(board);
        const QRect shown = preview.ImageRect();
        QCOMPARE(shown.size(), QSize(60, 40));

        const QImage drawn = preview.grab().toImage();
        QCOMPARE(drawn.size(), QSize(600, 400));
        const QPoint origin = shown.topLeft() * 2;
        int different = 0;
        for (int y = 0; y < board.height(); ++y) {
            for (int x = 0; x < board.width(); ++x) {
                different += drawn.pixel(origin.x() + x, origin.y() + y) != board.pixel(x, y);
            }
        }
        QCOMPARE(different, 0);
    }
};

QTEST_MAIN(HiDpiTest)
#include "HiDpiTest.moc"
