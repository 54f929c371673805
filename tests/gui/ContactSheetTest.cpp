// The contact sheet: the image list's second view, its thumbnails, and the
// shared thumbnail folder they are kept in. Every test keeps its thumbnails
// in a folder of its own ($XDG_CACHE_HOME), never in the user's.

#include <sys/stat.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QMenu>
#include <QMenuBar>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "tests/gui/support/DragAndDrop.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/RealImages.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "ui/list/ImageTableView.h"
#include "ui/sheet/ContactSheetView.h"
#include "ui/thumbnails/SharedThumbnails.h"
#include "ui/thumbnails/ThumbnailCache.h"
#include "ui/thumbnails/ThumbnailLoader.h"

using vellumo::ContactSheetView;
using vellumo::ImageTableView;
using vellumo::Size;
using vellumo::Thumbnail;
using vellumo::ThumbnailCache;
using vellumo::ThumbnailLoader;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::FileUrlData;
using vellumo::test::LoadedWindow;
using vellumo::test::Near;
using vellumo::test::Plain;
using vellumo::test::Write;

namespace {

constexpr int kThumbnailWaitMs = 30000;

ContactSheetView& Sheet(LoadedWindow& loaded) {
    return loaded.Control<ContactSheetView>("contactSheetImages");
}

ImageTableView& Table(LoadedWindow& loaded) {
    return loaded.Control<ImageTableView>("tableViewImage");
}

ThumbnailLoader& Loader(LoadedWindow& loaded) {
    return *Sheet(loaded).thumbnailLoader();
}

void ShowSheet(LoadedWindow& loaded) {
    loaded.Control<QAction>("actionShowContactSheet").trigger();
    QCoreApplication::processEvents();
}

// Waits until the loader has the thumbnail of `path`; null on time-out.
const Thumbnail* WaitForThumbnail(LoadedWindow& loaded, const QString& path) {
    ThumbnailLoader& loader = Loader(loaded);
    const auto made = [&] {
        const Thumbnail* thumbnail = loader.Find(path);
        return thumbnail != nullptr && !thumbnail->standIn;
    };
    if (!QTest::qWaitFor(made, kThumbnailWaitMs)) {
        return nullptr;
    }
    return loader.Find(path);
}

QColor CentreOf(const QImage& image) {
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

// The thumbnail name another program would compute for a plain path.
QString ExpectedThumbnailName(const QString& path) {
    const QByteArray uri = QUrl::fromLocalFile(path).toEncoded();
    return QString::fromLatin1(QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex()) +
           ".png";
}

qint64 MTime(const QString& path) {
    return QFileInfo(path).lastModified().toSecsSinceEpoch();
}

// A thumbnail as another program would keep it; `withSize` adds the full
// size keys.
void WriteForeignThumbnail(const QString& path, const QImage& picture, qint64 mtime,
                           bool withSize) {
    QDir().mkpath(vellumo::SharedThumbnailFolder());
    QImage kept = picture;
    kept.setText("Thumb::URI", QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()));
    kept.setText("Thumb::MTime", QString::number(mtime));
    if (withSize) {
        kept.setText("Thumb::Image::Width", "400");
        kept.setText("Thumb::Image::Height", "200");
    }
    kept.setText("Software", "another program");
    QVERIFY(kept.save(vellumo::SharedThumbnailPath(path), "png"));
}

QImage Drawn(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool SendToSheet(ContactSheetView& sheet, QDropEvent& event) {
    QCoreApplication::sendEvent(sheet.viewport(), &event);
    return event.isAccepted();
}

bool DropOnSheet(ContactSheetView& sheet, QPoint position, const QMimeData& data) {
    const Qt::DropActions actions = vellumo::test::kFileManagerActions;
    QDragEnterEvent enter(position, actions, &data, Qt::LeftButton, Qt::NoModifier);
    if (!SendToSheet(sheet, enter)) {
        return false;
    }
    QDragMoveEvent move(position, actions, &data, Qt::LeftButton, Qt::NoModifier);
    SendToSheet(sheet, move);
    QDropEvent drop(position, actions, &data, Qt::LeftButton, Qt::NoModifier);
    return SendToSheet(sheet, drop);
}

long ResidentKilobytes() {
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) {
        return -1;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.mid(6).trimmed().split(' ').front().toLong();
        }
    }
    return -1;
}

}  // namespace

class ContactSheetTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> cacheHome_;
    QTemporaryDir pictures_;

    QString Picture(const QString& name, int width, int height, QColor colour) {
        return Write(Plain(width, height, colour), pictures_.filePath(name));
    }

  private Q_SLOTS:
    void init() {
        cacheHome_ = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CACHE_HOME", cacheHome_->path().toLocal8Bit());
    }

    void theSheetAndTheListAreTwoViewsOfOneList() {
        LoadedWindow loaded;
        loaded.Show();
        auto& stack = loaded.Control<QStackedWidget>("stackImageViews");
        QCOMPARE(stack.currentWidget(), &Table(loaded));
        QVERIFY(loaded.Control<QAction>("actionShowList").isChecked());
        QCOMPARE(loaded.Control<QAction>("actionShowContactSheet").text(),
                 QStringLiteral("Show as Contact Sheet"));
        QCOMPARE(loaded.Control<QAction>("actionShowContactSheet").shortcut(),
                 QKeySequence("Ctrl+2"));
        QCOMPARE(loaded.Control<QAction>("actionShowList").shortcut(), QKeySequence("Ctrl+1"));
        QStringList menus;
        for (QAction* menu : loaded.window().menuBar()->actions()) {
            menus << menu->text();
        }
        QVERIFY2(menus.contains("&View"), qPrintable(menus.join(", ")));

        // The button over the list shows the sheet; Ctrl+1 the list again.
        Click(loaded.Control<QToolButton>("buttonShowContactSheet"));
        QCOMPARE(stack.currentWidget(), &Sheet(loaded));
        QVERIFY(!loaded.Control<QAction>("actionShowList").isChecked());
        QTest::keyClick(&loaded.window(), Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(stack.currentWidget(), &Table(loaded));
        QTest::keyClick(&loaded.window(), Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(stack.currentWidget(), &Sheet(loaded));
    }

    void theSheetShowsTheSameRowsAndSelection() {
        LoadedWindow loaded;
        // Wide enough for the three cells side by side: in a narrow window the
        // settings keep their width and the sheet gets what is left.
        loaded.window().resize(1280, 800);
        loaded.Show();
        const QString a = Picture("a.png", 120, 80, Qt::red);
        const QString b = Picture("b.png", 80, 120, Qt::green);
        const QString c = Picture("c.png", 100, 100, Qt::blue);
        loaded.AddImages({a, b, c});
        ShowSheet(loaded);
        ContactSheetView& sheet = Sheet(loaded);
        ImageTableView& table = Table(loaded);
        QCOMPARE(sheet.model(), table.model());
        QCOMPARE(sheet.selectionModel(), table.selectionModel());
        QCOMPARE(sheet.VisibleRows(), QList<int>({0, 1, 2}));
        QCOMPARE(sheet.model()->index(2, 0).data().toString(), c);

        // Selected in the list, the sheet shows it selected.
        table.selectRow(1);
        QVERIFY(sheet.selectionModel()->isRowSelected(1));
        // Clicked in the sheet, the list follows, and so does the preview.
        const QRect cell = sheet.visualRect(sheet.model()->index(2, 0));
        QTest::mouseClick(sheet.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
        QCOMPARE(table.SelectedRows(), QList<int>({2}));
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QCOMPARE(vellumo::test::LabelText(loaded, "labelOriginalDimensionsWidth"),
                 QStringLiteral("Width: 100"));
        // Ctrl-click adds to the selection in both.
        const QRect first = sheet.visualRect(sheet.model()->index(0, 0));
        QTest::mouseClick(sheet.viewport(), Qt::LeftButton, Qt::ControlModifier, first.center());
        QCOMPARE(table.SelectedRows(), QList<int>({0, 2}));
        QCOMPARE(vellumo::test::LabelText(loaded, "labelImageCount"),
                 QStringLiteral("3 images, 2 selected"));
        // Delete in the sheet removes the selected rows from the list.
        sheet.setFocus();
        QTest::keyClick(sheet.viewport(), Qt::Key_Delete);
        QCOMPARE(loaded.imageList().paths(), QStringList({b}));
        QCOMPARE(sheet.model()->rowCount(), 1);
    }

    void thumbnailsArriveInTheCellsAndTheListRows() {
        LoadedWindow loaded;
        loaded.Show();
        const QString red = Picture("red.png", 400, 200, QColor(220, 30, 40));
        const QString blue = Picture("blue.jpg", 100, 200, QColor(30, 60, 220));
        loaded.AddImages({red, blue});
        const int redRow = static_cast<int>(loaded.imageList().paths().indexOf(red));
        const QIcon kindIcon =
            Table(loaded).model()->index(redRow, 0).data(Qt::DecorationRole).value<QIcon>();
        ShowSheet(loaded);

        const Thumbnail* thumbnail = WaitForThumbnail(loaded, red);
        QVERIFY(thumbnail != nullptr);
        QCOMPARE(thumbnail->fullSize, (Size{400, 200}));
        QCOMPARE(thumbnail->picture.size(), QSize(256, 128));
        QVERIFY2(Near(CentreOf(thumbnail->picture), QColor(220, 30, 40), 3),
                 qPrintable(CentreOf(thumbnail->picture).name()));
        thumbnail = WaitForThumbnail(loaded, blue);
        QVERIFY(thumbnail != nullptr);
        // Smaller than the thumbnail size: not enlarged.
        QCOMPARE(thumbnail->picture.size(), QSize(100, 200));
        QVERIFY2(Near(CentreOf(thumbnail->picture), QColor(30, 60, 220), 8),
                 qPrintable(CentreOf(thumbnail->picture).name()));

        // The cell draws it.
        // (The list is in name order: blue, then red.)
        const int row = static_cast<int>(loaded.imageList().paths().indexOf(red));
        QTRY_VERIFY(!Sheet(loaded).PictureRectOfRow(row).isEmpty());
        const QRect picture = Sheet(loaded).PictureRectOfRow(row);
        QCOMPARE(picture.size(), QSize(160, 80));
        const QImage drawn = Drawn(*Sheet(loaded).viewport());
        QVERIFY2(Near(drawn.pixelColor(picture.center()), QColor(220, 30, 40), 3),
                 qPrintable(drawn.pixelColor(picture.center()).name()));

        // The list's row shows the thumbnail in place of the file-kind icon.
        const QIcon rowIcon =
            Table(loaded).model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        const QImage icon = rowIcon.pixmap(QSize(24, 24)).toImage();
        QVERIFY(icon != kindIcon.pixmap(QSize(24, 24)).toImage());
        QVERIFY2(Near(icon.pixelColor(icon.width() / 2, icon.height() / 2), QColor(220, 30, 40), 3),
                 qPrintable(icon.pixelColor(icon.width() / 2, icon.height() / 2).name()));
    }

    void anUnreadableFileKeepsItsPlaceholder() {
        LoadedWindow loaded;
        loaded.Show();
        const QString bad = pictures_.filePath("bad.jpg");
        {
            QFile file(bad);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("not a picture");
        }
        loaded.AddImages({bad});
        ShowSheet(loaded);
        QTRY_VERIFY_WITH_TIMEOUT(Loader(loaded).HasFailed(bad), kThumbnailWaitMs);
        QVERIFY(Loader(loaded).Find(bad) == nullptr);
        QVERIFY(!QFile::exists(vellumo::SharedThumbnailPath(bad)));
    }

    // A camera photo's own small picture fills its cell at once, and the
    // file's thumbnail replaces it; a file that cannot be decoded shows
    // none, whatever its camera stored.
    void aCamerasThumbnailStandsInUntilTheFilesOwnIsMade() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        const QString photo = vellumo::test::RealImage("orientation/Apple iPhone 5.jpg");
        const QString damaged = pictures_.filePath("damaged.jpg");
        {
            // The first two fifths: the Exif block whole, the pixels cut off.
            QFile in(photo);
            QVERIFY(in.open(QIODevice::ReadOnly));
            QFile out(damaged);
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write(in.read(in.size() * 2 / 5));
        }
        auto decoder = std::make_shared<vellumo::test::GatedPreviewDecoder>();
        decoder->Hold(photo.toStdString());
        decoder->Hold(damaged.toStdString());
        ThumbnailLoader loader(decoder);
        loader.Want({photo, damaged});
        QTRY_VERIFY_WITH_TIMEOUT(loader.Find(photo) != nullptr && loader.Find(damaged) != nullptr,
                                 kThumbnailWaitMs);
        QVERIFY(loader.Find(photo)->standIn);
        QCOMPARE(loader.Find(photo)->picture.size(), QSize(160, 120));
        QCOMPARE(loader.Find(photo)->fullSize, (Size{3264, 2448}));
        QVERIFY(!loader.isIdle());

        decoder->Release(photo.toStdString());
        decoder->Release(damaged.toStdString());
        QTRY_VERIFY_WITH_TIMEOUT(loader.isIdle(), kThumbnailWaitMs);
        QVERIFY(!loader.Find(photo)->standIn);
        QCOMPARE(loader.Find(photo)->picture.size(), QSize(256, 192));
        QCOMPARE(loader.deliveries().standIns, quint64{2});
        QVERIFY(loader.HasFailed(damaged));
        QVERIFY(loader.Find(damaged) == nullptr);
    }

    void theThumbnailIsKeptInTheSharedFolder() {
        LoadedWindow loaded;
        loaded.Show();
        const QString red = Picture("kept.png", 400, 200, QColor(220, 30, 40));
        loaded.AddImages({red});
        ShowSheet(loaded);
        QVERIFY(WaitForThumbnail(loaded, red) != nullptr);
        QCOMPARE(Loader(loaded).deliveries().made, quint64{1});

        const QString folder = cacheHome_->path() + "/thumbnails/large";
        const QString kept = folder + '/' + ExpectedThumbnailName(red);
        QCOMPARE(vellumo::SharedThumbnailPath(red), kept);
        QVERIFY(QFile::exists(kept));
        const QImage picture = QImageReader(kept).read();
        QCOMPARE(picture.text("Thumb::URI"), QString::fromLatin1("file://" + red.toUtf8()));
        QCOMPARE(picture.text("Thumb::MTime"), QString::number(MTime(red)));
        QCOMPARE(picture.text("Thumb::Image::Width"), QStringLiteral("400"));
        QCOMPARE(picture.text("Thumb::Image::Height"), QStringLiteral("200"));
        QCOMPARE(picture.text("Software"), QStringLiteral("Vellumo"));
        QCOMPARE(picture.size(), QSize(256, 128));
        QVERIFY(Near(CentreOf(picture), QColor(220, 30, 40), 3));

        // Plain tEXt chunks, before the pixels, as the convention has them.
        QFile raw(kept);
        QVERIFY(raw.open(QIODevice::ReadOnly));
        const QByteArray bytes = raw.readAll();
        const QByteArray uriChunk =
            QByteArray("tEXtThumb::URI") + '\0' + "file://" + QFile::encodeName(red);
        QVERIFY(bytes.contains(uriChunk));
        QVERIFY(bytes.indexOf(uriChunk) < bytes.indexOf("IDAT"));
        QVERIFY(bytes.contains(QByteArray("tEXtThumb::MTime") + '\0'));

        // Private to the user, and no temporary file left beside it.
        struct stat status {};
        QCOMPARE(::stat(QFile::encodeName(kept).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, 0600u);
        QCOMPARE(::stat(QFile::encodeName(folder).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, 0700u);
        QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden),
                 QStringList({ExpectedThumbnailName(red)}));
    }

    void aMatchingSharedThumbnailIsUsedAndAStaleOneIsNot() {
        const QString red = Picture("shared.png", 400, 200, QColor(220, 30, 40));
        // Another program's thumbnail of this very file, in green.
        WriteForeignThumbnail(red, Plain(256, 128, QColor(20, 200, 60)), MTime(red), true);
        {
            LoadedWindow loaded;
            loaded.Show();
            loaded.AddImages({red});
            ShowSheet(loaded);
            const Thumbnail* thumbnail = WaitForThumbnail(loaded, red);
            QVERIFY(thumbnail != nullptr);
            QVERIFY2(Near(CentreOf(thumbnail->picture), QColor(20, 200, 60), 3),
                     qPrintable(CentreOf(thumbnail->picture).name()));
            QCOMPARE(thumbnail->fullSize, (Size{400, 200}));
            QCOMPARE(Loader(loaded).deliveries().fromSharedFolder, quint64{1});
            QCOMPARE(Loader(loaded).deliveries().made, quint64{0});
        }
        // The file changes: the kept thumbnail is of another version of it.
        QFile file(red);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::fromSecsSinceEpoch(MTime(red) + 100),
                                 QFileDevice::FileModificationTime));
        file.close();
        {
            LoadedWindow loaded;
            loaded.Show();
            loaded.AddImages({red});
            ShowSheet(loaded);
            const Thumbnail* thumbnail = WaitForThumbnail(loaded, red);
            QVERIFY(thumbnail != nullptr);
            QVERIFY2(Near(CentreOf(thumbnail->picture), QColor(220, 30, 40), 3),
                     qPrintable(CentreOf(thumbnail->picture).name()));
            QCOMPARE(Loader(loaded).deliveries().made, quint64{1});
        }
        // ... and is replaced by one of the new version.
        const QImage replaced = QImageReader(vellumo::SharedThumbnailPath(red)).read();
        QCOMPARE(replaced.text("Thumb::MTime"), QString::number(MTime(red)));
        QVERIFY(Near(CentreOf(replaced), QColor(220, 30, 40), 3));
    }

    void aSharedThumbnailWithoutTheFullSizeIsNotUsed() {
        const QString red = Picture("foreign.png", 400, 200, QColor(220, 30, 40));
        WriteForeignThumbnail(red, Plain(256, 128, QColor(20, 200, 60)), MTime(red), false);
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({red});
        ShowSheet(loaded);
        const Thumbnail* thumbnail = WaitForThumbnail(loaded, red);
        QVERIFY(thumbnail != nullptr);
        QVERIFY(Near(CentreOf(thumbnail->picture), QColor(220, 30, 40), 3));
        QCOMPARE(thumbnail->fullSize, (Size{400, 200}));
    }

    void uriAreEscapedAsOtherProgramsEscapeThem() {
        QCOMPARE(vellumo::ThumbnailUri("/home/a b/ü#;[x]~_-.!$&'()*+,=:@.jpg"),
                 QByteArray("file:///home/a%20b/%C3%BC%23%3B%5Bx%5D~_-.!$&'()*+,=:@.jpg"));
    }

    void theCacheStaysUnderItsBoundAfter2000Thumbnails() {
        const long before = ResidentKilobytes();
        ThumbnailCache cache;
        QVERIFY(cache.capacityBytes() < qsizetype{200} * 1024 * 1024);
        for (int i = 0; i < 2000; ++i) {
            Thumbnail thumbnail;
            thumbnail.picture = QImage(256, 192, QImage::Format_ARGB32_Premultiplied);
            thumbnail.picture.fill(QColor(i % 256, 0, 0));
            thumbnail.cellPicture = QImage(160, 120, QImage::Format_ARGB32_Premultiplied);
            thumbnail.cellPicture.fill(Qt::white);
            thumbnail.rowIcon = QImage(24, 18, QImage::Format_ARGB32_Premultiplied);
            thumbnail.rowIcon.fill(Qt::white);
            cache.Insert(QStringLiteral("/photos/%1.jpg").arg(i), std::move(thumbnail));
            QVERIFY(cache.bytes() <= cache.capacityBytes());
            // An early entry that keeps being used stays.
            QVERIFY(cache.Find("/photos/0.jpg") != nullptr);
        }
        QVERIFY(cache.count() < 2000);
        QVERIFY(cache.count() > 300);
        QVERIFY(cache.Find("/photos/1999.jpg") != nullptr);
        QVERIFY(cache.Find("/photos/1.jpg") == nullptr);
        const long grown = ResidentKilobytes() - before;
        QVERIFY2(grown < 200L * 1024, qPrintable(QString::number(grown)));
    }

    void filesDroppedOnTheSheetAreInsertedWhereDropped() {
        LoadedWindow loaded;
        loaded.Show();
        const QString a = Picture("da.png", 60, 40, Qt::red);
        const QString b = Picture("db.png", 60, 40, Qt::green);
        const QString dropped = Picture("dnew.png", 60, 40, Qt::blue);
        const QString last = Picture("dlast.png", 60, 40, Qt::yellow);
        loaded.AddImages({a, b});
        ShowSheet(loaded);
        ContactSheetView& sheet = Sheet(loaded);

        // The left half of b's cell: before b.
        const QRect cellB = sheet.visualRect(sheet.model()->index(1, 0));
        const auto data = FileUrlData({dropped});
        QVERIFY(DropOnSheet(sheet, cellB.center() - QPoint(cellB.width() / 4, 0), *data));
        QCOMPARE(loaded.imageList().paths(), QStringList({a, dropped, b}));
        QCOMPARE(sheet.model()->rowCount(), 3);
        QVERIFY(!sheet.DropIndicatorRow());

        // The right half of the last cell: at the end.
        const QRect lastCell = sheet.visualRect(sheet.model()->index(2, 0));
        const auto more = FileUrlData({last});
        QVERIFY(DropOnSheet(sheet, lastCell.center() + QPoint(lastCell.width() / 4, 0), *more));
        QCOMPARE(loaded.imageList().paths(), QStringList({a, dropped, b, last}));

        // What the list refuses, the sheet refuses: a file already listed.
        const auto again = FileUrlData({a});
        DropOnSheet(sheet, QPoint(5, 5), *again);
        QCOMPARE(loaded.imageList().paths().size(), 4);
    }

    void theVeilFollowsTheCropRule() {
        LoadedWindow loaded;
        loaded.Show();
        const QColor grey(200, 200, 200);
        const QString wide = Picture("wide.png", 400, 200, grey);
        loaded.AddImages({wide});
        ShowSheet(loaded);
        ContactSheetView& sheet = Sheet(loaded);
        QVERIFY(WaitForThumbnail(loaded, wide) != nullptr);
        QTRY_VERIFY(!sheet.PictureRectOfRow(0).isEmpty());
        const QRect picture = sheet.PictureRectOfRow(0);
        const QPoint leftSide(picture.left() + picture.width() / 10, picture.center().y());
        const QPoint rightSide(picture.right() - picture.width() / 10, picture.center().y());

        // Auto crop to 1:1 on a 2:1 image: the sides are veiled.
        Choose(loaded.Control<QComboBox>("comboAutoCropFormat"), "1:1");
        Click(loaded.Control<QAbstractButton>("radioAutoCrop"));
        const auto crop = loaded.contactSheet().CellCropOf(wide, Size{400, 200});
        QVERIFY(crop.has_value());
        QCOMPARE(crop->cut, (vellumo::Rect{100, 0, 200, 200}));
        QCOMPARE(crop->outputSize, (Size{200, 200}));
        QImage drawn = Drawn(*sheet.viewport());
        QVERIFY2(Near(drawn.pixelColor(picture.center()), grey, 3),
                 qPrintable(drawn.pixelColor(picture.center()).name()));
        for (const QPoint side : {leftSide, rightSide}) {
            const QColor veiled = drawn.pixelColor(side);
            QVERIFY2(veiled.red() < 120, qPrintable(veiled.name()));
        }

        // A ratio of the image's own leaves nothing veiled.
        Choose(loaded.Control<QComboBox>("comboAutoCropFormat"), "2:1");
        drawn = Drawn(*sheet.viewport());
        QVERIFY(Near(drawn.pixelColor(leftSide), grey, 3));
        QVERIFY(Near(drawn.pixelColor(rightSide), grey, 3));
    }
};

QTEST_MAIN(ContactSheetTest)
#include "ContactSheetTest.moc"
