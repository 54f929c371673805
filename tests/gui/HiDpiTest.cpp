// On a high-density screen (this suite runs at a scale factor of 2) the
// preview draws the picture at the screen's own resolution.

#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "ui/preview/CropPreviewView.h"

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

    // The selected image is decoded for the screen's pixels, not the view's
    // units, and shown one picture pixel per screen pixel.
    void aSelectedImageIsDecodedForTheScreensPixels() {
        QTemporaryDir dir;
        vellumo::test::LoadedWindow loaded;
        auto decoder = std::make_shared<vellumo::test::GatedPreviewDecoder>();
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(4000, 2000), dir.filePath("wide.png"))});
        vellumo::test::ClickRow(loaded, 0);

        auto& view = loaded.Control<CropPreviewView>("imageViewCropPreview");
        const int longest = std::max(view.width(), view.height()) - 12;  // inside the margins
        QCOMPARE(decoder->maxSides().back(), 2 * longest);
        const QImage picture = vellumo::test::PreviewPicture(loaded);
        QCOMPARE(picture.width(), 2 * longest);
        // Fitted into the view, never enlarged beyond the screen's pixels.
        const QRect shown = view.ImageRect();
        QVERIFY(shown.width() * 2 <= picture.width());
        QVERIFY(shown.width() >= view.width() - 13 || shown.height() >= view.height() - 13);
    }
};

QTEST_MAIN(HiDpiTest)
#include "HiDpiTest.moc"
