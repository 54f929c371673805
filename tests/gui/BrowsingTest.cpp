// Moving through the list: the rows around the selected one are decoded
// ahead, so the next photo shows without waiting for a decoder; what is kept
// stays within its bound, and a file changed on disk is decoded again.

#include <QAbstractItemView>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <memory>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/PreviewPrefetch.h"

using vellumo::PreviewPrefetch;
using vellumo::test::LoadedWindow;

namespace {

const QColor kColours[] = {Qt::red, Qt::green, Qt::blue, Qt::yellow, Qt::cyan, Qt::magenta};

struct Browsing {
    QTemporaryDir dir;
    LoadedWindow loaded;
    std::shared_ptr<vellumo::test::GatedPreviewDecoder> decoder =
        std::make_shared<vellumo::test::GatedPreviewDecoder>();
    QStringList paths;

    Browsing() {
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        for (int i = 0; i < 6; ++i) {
            paths << vellumo::test::Write(vellumo::test::Plain(400, 300, kColours[i]),
                                          dir.filePath(QStringLiteral("p%1.png").arg(i)));
        }
        loaded.AddImages(paths);
    }
    ~Browsing() {
        for (const QString& path : paths) {
            decoder->Release(path.toStdString());
        }
    }
    int Side() {
        const auto& view = loaded.Control<vellumo::CropPreviewView>("imageViewCropPreview");
        return std::clamp(view.LongestPictureSide(), 256, 4096);
    }
    PreviewPrefetch& Prefetch() { return loaded.preview().prefetch(); }
    bool Kept(int row) { return Prefetch().Find(paths[row], Side()).has_value(); }
};

class BrowsingTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theNextPhotoIsShownWithoutADecode() {
        Browsing b;
        vellumo::test::ClickRow(b.loaded, 2);
        // The next and previous two are made ahead.
        QTRY_VERIFY(b.Kept(3) && b.Kept(1) && b.Kept(4) && b.Kept(0));
        QVERIFY(!b.Kept(5));
        // From now on a decode would never come back.
        for (const QString& path : b.paths) {
            b.decoder->Hold(path.toStdString());
        }
        auto& table = b.loaded.Control<QAbstractItemView>("tableViewImage");
        QTest::keyClick(&table, Qt::Key_Down);
        QVERIFY(vellumo::test::WaitForPreview(b.loaded, 5000));
        const QImage shown = vellumo::test::PreviewPicture(b.loaded);
        QCOMPARE(shown.pixelColor(shown.width() / 2, shown.height() / 2), kColours[3]);
        QTest::keyClick(&table, Qt::Key_Up);
        QTest::keyClick(&table, Qt::Key_Up);
        QVERIFY(vellumo::test::WaitForPreview(b.loaded, 5000));
        const QImage back = vellumo::test::PreviewPicture(b.loaded);
        QCOMPARE(back.pixelColor(back.width() / 2, back.height() / 2), kColours[1]);
    }

    void aFileChangedOnDiskIsDecodedAgain() {
        Browsing b;
        vellumo::test::ClickRow(b.loaded, 0);
        QTRY_VERIFY(b.Kept(1));
        QFile file(b.paths[1]);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(60),
                                 QFileDevice::FileModificationTime));
        file.close();
        QVERIFY(!b.Kept(1));
    }

    void whatIsKeptStaysWithinItsBound() {
        PreviewPrefetch prefetch;
        QTemporaryDir dir;
        const QString path = vellumo::test::Write(vellumo::test::Plain(10, 10, Qt::red),
                                                  dir.filePath(QStringLiteral("a.png")));
        for (int side = 1; side <= 40; ++side) {
            // A 2000 x 1000 picture: 8 MB drawn, 8 MB decoded.
            vellumo::Preview preview{{2000, 1000}, vellumo::Image::OfSize(2000, 1000), 1, {}};
            prefetch.Keep(path, side,
                          {vellumo::PreviewResult::Success(preview),
                           QImage(2000, 1000, QImage::Format_ARGB32_Premultiplied)});
            QVERIFY(prefetch.bytes() <= PreviewPrefetch::kByteBound);
        }
        QVERIFY(prefetch.Find(path, 40).has_value());  // the newest stay
        QVERIFY(!prefetch.Find(path, 1).has_value());  // the oldest went
    }
};

}  // namespace

QTEST_MAIN(BrowsingTest)
#include "BrowsingTest.moc"
