// Image files dropped onto the table, driven by real drag-and-drop events
// that carry file URLs, as a file manager sends them (drags from other
// programs have no source in this one). Drags that start in this program are
// in DragSourceTest.

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "tests/gui/support/DragAndDrop.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/SizedImage.h"
#include "ui/list/ImageTableView.h"
#include "ui/preview/CropPreviewView.h"

using vellumo::CropPreviewView;
using vellumo::ImageTableView;
using vellumo::test::BelowLastRow;
using vellumo::test::DragAndDrop;
using vellumo::test::DragAnswer;
using vellumo::test::FileUrlData;
using vellumo::test::GapAboveRow;
using vellumo::test::LoadedWindow;
using vellumo::test::MiddleOfRow;
using vellumo::test::SendDragEnter;
using vellumo::test::SendDragLeave;
using vellumo::test::SendDragMove;
using vellumo::test::SendDrop;

namespace {

// Files that exist, in a fresh folder.
class Files {
  public:
    QString Make(const QString& name) {
        const QString path = folder_.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) {
            qFatal("cannot create %s", qPrintable(path));
        }
        return path;
    }
    QString Missing(const QString& name) const { return folder_.filePath(name); }

  private:
    QTemporaryDir folder_;
};

ImageTableView& Table(LoadedWindow& loaded) {
    return loaded.Control<ImageTableView>("tableViewImage");
}

QStringList List(LoadedWindow& loaded) {
    return loaded.imageList().paths();
}

QStringList TableRows(LoadedWindow& loaded) {
    QStringList rows;
    const QAbstractItemModel* model = Table(loaded).model();
    for (int row = 0; row < model->rowCount(); ++row) {
        rows << model->index(row, 0).data().toString();
    }
    return rows;
}

}  // namespace

class DragDropTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aDropOntoARowIsRefused() {
        Files files;
        LoadedWindow loaded;
        loaded.AddImages({files.Make("a.png"), files.Make("b.png"), files.Make("c.png")});
        loaded.Show();
        const auto data = FileUrlData({files.Make("new.png")});
        const QPoint onto = MiddleOfRow(Table(loaded), 1);

        // The table follows the drag, but nothing may be dropped here.
        QCOMPARE(SendDragEnter(Table(loaded), onto, *data).action, Qt::IgnoreAction);
        QVERIFY(!SendDragMove(Table(loaded), onto, *data).accepted);
        QVERIFY(!Table(loaded).DropIndicatorRow());
        // Between the same rows it would be taken...
        QVERIFY(SendDragMove(Table(loaded), GapAboveRow(Table(loaded), 1), *data).accepted);
        QCOMPARE(Table(loaded).DropIndicatorRow(), std::optional<int>(1));
        // ...but back onto the row it is refused again, and so is the drop.
        QVERIFY(!SendDragMove(Table(loaded), onto, *data).accepted);
        QVERIFY(!Table(loaded).DropIndicatorRow());
        QVERIFY(!SendDrop(Table(loaded), onto, *data).accepted);
        QCOMPARE(List(loaded).size(), 3);
    }

    void aPngAndATextFileAreTakenButOnlyThePngIsInserted() {
        Files files;
        LoadedWindow loaded;
        loaded.Show();
        const QString png = files.Make("photo.png");
        const auto data = FileUrlData({files.Make("notes.txt"), png});
        const QPoint below = BelowLastRow(Table(loaded));

        const DragAnswer entered = SendDragEnter(Table(loaded), below, *data);
        QVERIFY(entered.accepted);
        const DragAnswer moved = SendDragMove(Table(loaded), below, *data);
        QVERIFY(moved.accepted);
        // The files stay where they are: the list takes a copy of their names.
        QCOMPARE(moved.action, Qt::CopyAction);
        const DragAnswer dropped = SendDrop(Table(loaded), below, *data);
        QVERIFY(dropped.accepted);
        QCOMPARE(dropped.action, Qt::CopyAction);
        QCOMPARE(List(loaded), QStringList({png}));
        QCOMPARE(TableRows(loaded), QStringList({png}));
    }

    void aDragOfOnlyTextFilesIsRefused() {
        Files files;
        LoadedWindow loaded;
        loaded.AddImages({files.Make("a.png")});
        loaded.Show();
        const auto data = FileUrlData({files.Make("notes.txt"), files.Make("readme.md")});
        const QPoint gap = GapAboveRow(Table(loaded), 0);

        QVERIFY(!SendDragEnter(Table(loaded), gap, *data).accepted);
        QVERIFY(!SendDragMove(Table(loaded), gap, *data).accepted);
        QVERIFY(!Table(loaded).DropIndicatorRow());
        QVERIFY(!SendDrop(Table(loaded), gap, *data).accepted);
        QCOMPARE(List(loaded).size(), 1);
    }

    void imagesElsewhereThanOnThisComputerAreRefused() {
        LoadedWindow loaded;
        loaded.Show();
        QMimeData data;
        data.setUrls({QUrl("https://example.com/photo.png")});
        QVERIFY(!DragAndDrop(Table(loaded), BelowLastRow(Table(loaded)), data).accepted);
        QVERIFY(List(loaded).isEmpty());
    }

    void anUpperCaseExtensionIsInsertedAndAListedFileIsNot() {
        Files files;
        LoadedWindow loaded;
        const QString listed = files.Make("listed.png");
        loaded.AddImages({listed});
        loaded.Show();
        const QString upper = files.Make("A.PNG");
        const auto data = FileUrlData({listed, upper});

        QVERIFY(DragAndDrop(Table(loaded), GapAboveRow(Table(loaded), 0), *data).accepted);
        QCOMPARE(List(loaded), QStringList({upper, listed}));
    }

    void aDropOfNothingNewStillReportsSuccess() {
        Files files;
        LoadedWindow loaded;
        const QString listed = files.Make("listed.png");
        loaded.AddImages({listed});
        loaded.Show();
        // Listed already, missing, and of another extension.
        const auto data = FileUrlData({listed, files.Missing("gone.jpg"), files.Make("x.jp2.txt")});

        const DragAnswer dropped = DragAndDrop(Table(loaded), BelowLastRow(Table(loaded)), *data);
        QVERIFY(dropped.accepted);
        QCOMPARE(List(loaded), QStringList({listed}));
        QCOMPARE(TableRows(loaded), QStringList({listed}));
    }

    void threeFilesDroppedAboveRowTwoOfFiveGoToRowsTwoToFour() {
        Files files;
        LoadedWindow loaded;
        const QStringList before = {files.Make("0.jpg"), files.Make("1.jpg"), files.Make("2.jpg"),
                                    files.Make("3.jpg"), files.Make("4.jpg")};
        loaded.AddImages(before);
        loaded.Show();
        const QStringList dragged = {files.Make("x.tif"), files.Make("y.gif"), files.Make("z.bmp")};

        const QPoint gap = GapAboveRow(Table(loaded), 2);
        QCOMPARE(Table(loaded).ProposedDropAt(gap),
                 std::make_pair(2, vellumo::DropPosition::AboveItem));
        QVERIFY(DragAndDrop(Table(loaded), gap, *FileUrlData(dragged)).accepted);

        const QStringList expected = {before[0],  before[1], dragged[0], dragged[1],
                                      dragged[2], before[2], before[3],  before[4]};
        QCOMPARE(List(loaded), expected);
        QCOMPARE(TableRows(loaded), expected);
    }

    void aDropBelowTheLastRowAppends() {
        Files files;
        LoadedWindow loaded;
        const QStringList before = {files.Make("0.jpg"), files.Make("1.jpg")};
        loaded.AddImages(before);
        loaded.Show();
        const QString first = files.Make("first.png");
        const QString second = files.Make("second.png");

        // In the empty area below the rows.
        QVERIFY(DragAndDrop(Table(loaded), BelowLastRow(Table(loaded)), *FileUrlData({first}))
                    .accepted);
        QCOMPARE(List(loaded), before + QStringList({first}));

        // In the lower edge of the last row: the gap after it.
        const QRect last = Table(loaded).visualRect(Table(loaded).model()->index(2, 0));
        const QPoint lowerEdge(last.center().x(), last.bottom() - 1);
        QCOMPARE(Table(loaded).ProposedDropAt(lowerEdge),
                 std::make_pair(3, vellumo::DropPosition::AboveItem));
        QVERIFY(DragAndDrop(Table(loaded), lowerEdge, *FileUrlData({second})).accepted);
        QCOMPARE(List(loaded), before + QStringList({first, second}));
    }

    void theDropLineShowsWhereTheFilesWillGo() {
        Files files;
        LoadedWindow loaded;
        loaded.AddImages({files.Make("0.jpg"), files.Make("1.jpg"), files.Make("2.jpg")});
        loaded.Show();
        auto& table = Table(loaded);
        const auto data = FileUrlData({files.Make("new.png")});

        SendDragEnter(table, GapAboveRow(table, 2), *data);
        QVERIFY(SendDragMove(table, GapAboveRow(table, 2), *data).accepted);
        QCOMPARE(table.DropIndicatorRow(), std::optional<int>(2));

        // The line is drawn in the highlight colour along the top of row 2.
        const QImage shown = table.viewport()->grab().toImage();
        const int y = table.visualRect(table.model()->index(2, 0)).top();
        const QColor highlight = table.palette().color(QPalette::Highlight);
        const int x = table.viewport()->width() / 2;
        const auto near = [&](int dy) {
            const QColor c = shown.pixelColor(x, y + dy);
            return std::abs(c.red() - highlight.red()) < 40 &&
                   std::abs(c.green() - highlight.green()) < 40 &&
                   std::abs(c.blue() - highlight.blue()) < 40;
        };
        QVERIFY(near(0) || near(-1));
        // Not in the middle of a row.
        QVERIFY(!near(table.rowHeight(2) / 2));

        SendDragMove(table, MiddleOfRow(table, 1), *data);
        QVERIFY(!table.DropIndicatorRow());
        SendDragMove(table, BelowLastRow(table), *data);
        QCOMPARE(table.DropIndicatorRow(), std::optional<int>(3));
        SendDragLeave(table);
        QVERIFY(!table.DropIndicatorRow());
    }

    void aDropChangesNeitherSelectionNorPreview() {
        Files files;
        LoadedWindow loaded;
        const QStringList before = {files.Make("0.jpg"), files.Make("1.jpg")};
        loaded.AddImages(before);
        loaded.Show();
        auto& table = Table(loaded);
        table.selectRow(1);
        int notices = 0;
        connect(&table, &ImageTableView::selectedRowsChanged, [&] { ++notices; });
        const vellumo::Image current = vellumo::test::SizedImage(640, 480);
        loaded.preview().SetImage(current);
        auto& preview = loaded.Control<CropPreviewView>("imageViewCropPreview");
        preview.SetImage(QImage(64, 48, QImage::Format_RGB32));

        QVERIFY(DragAndDrop(table, GapAboveRow(table, 0), *FileUrlData({files.Make("new.png")}))
                    .accepted);

        QCOMPARE(List(loaded).size(), 3);
        // The same image is still selected (it moved down with its row).
        QCOMPARE(List(loaded)[table.SelectedRow()], before[1]);
        QCOMPARE(notices, 0);
        QVERIFY(loaded.preview().image().IsSameImage(current));
        QCOMPARE(preview.image().size(), QSize(64, 48));
    }

    void aTableThatIsNotRegisteredTakesNoDrops() {
        Files files;
        vellumo::ImageTableView bare;
        bare.resize(300, 200);
        const auto data = FileUrlData({files.Make("a.png")});
        QVERIFY(!SendDragEnter(bare, QPoint(10, 10), *data).accepted);
        QVERIFY(!SendDrop(bare, QPoint(10, 10), *data).accepted);
    }
};

QTEST_MAIN(DragDropTest)
#include "DragDropTest.moc"
