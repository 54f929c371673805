// Previews decoded by the real worker processes while a person moves through
// the list faster than the pictures come: every picture shown belongs to the
// row selected, and no good file is ever marked unreadable.

#include <QLabel>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "ui/list/ImageList.h"
#include "ui/list/ImageTableView.h"

using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;

namespace {

struct Row {
    QString path;
    QColor colour;
    QSize size;
};

// Pictures of different colours and sizes, large enough to take a while to
// decode (uncompressed TIFF, so the decode reads every byte).
QList<Row> MakeRows(const QTemporaryDir& dir) {
    const QList<QColor> colours = {Qt::red,  Qt::green,   Qt::blue,      Qt::yellow,
                                   Qt::cyan, Qt::magenta, Qt::darkGreen, Qt::darkBlue};
    QList<Row> rows;
    for (int i = 0; i < colours.size(); ++i) {
        const QSize size(1600 + 40 * i, 1200 - 30 * i);
        const QString path = dir.filePath(QStringLiteral("r%1.tif").arg(i));
        vellumo::test::Write(vellumo::test::Plain(size.width(), size.height(), colours[i]), path);
        rows.push_back({path, colours[i], size});
    }
    return rows;
}

void Press(LoadedWindow& loaded, int row) {
    auto& table = loaded.Control<vellumo::ImageTableView>("tableViewImage");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      table.visualRect(table.model()->index(row, 0)).center());
}

// The picture on the preview is the row's: its colour at the centre (outside
// any veil: the start values leave the image whole) and its size in the
// labels.
void VerifyShows(LoadedWindow& loaded, const Row& row) {
    const QImage picture = vellumo::test::PreviewPicture(loaded);
    QVERIFY2(!picture.isNull(), qPrintable(row.path));
    const QColor centre = picture.pixelColor(picture.width() / 2, picture.height() / 2);
    QVERIFY2(vellumo::test::Near(centre, row.colour, 4),
             qPrintable(row.path + " shows " + centre.name()));
    QCOMPARE(LabelText(loaded, "labelOriginalDimensionsWidth"),
             QStringLiteral("Width: %1").arg(row.size.width()));
    QCOMPARE(LabelText(loaded, "labelOriginalDimensionsHeight"),
             QStringLiteral("Height: %1").arg(row.size.height()));
}

}  // namespace

class PreviewWorkersTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void rowsSelectedFasterThanTheyDecodeEachShowTheirOwnPicture() {
        QTemporaryDir dir;
        const QList<Row> rows = MakeRows(dir);
        LoadedWindow loaded;  // the window's own worker processes
        loaded.Show();
        for (const Row& row : rows) {
            loaded.AddImages({row.path});
        }
        QRandomGenerator random(20261123);
        constexpr int kSelections = 400;
        for (int i = 0; i < kSelections; ++i) {
            const int row = random.bounded(rows.size());
            Press(loaded, row);
            // Mostly faster than a decode; now and then a moment longer.
            QTest::qWait(random.bounded(8) == 0 ? random.bounded(40) : random.bounded(3));
            if (i % 50 == 49) {
                QVERIFY(vellumo::test::WaitForPreview(loaded));
                VerifyShows(loaded, rows[row]);
                if (QTest::currentTestFailed()) {
                    return;
                }
            }
        }
        const int last = loaded.Control<vellumo::ImageTableView>("tableViewImage").SelectedRow();
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        VerifyShows(loaded, rows[last]);
        // No good file was ever taken for unreadable.
        auto* model = qobject_cast<vellumo::ImageList*>(
            loaded.Control<vellumo::ImageTableView>("tableViewImage").model());
        QVERIFY(model != nullptr);
        for (const Row& row : rows) {
            QVERIFY2(model->UnreadableReason(row.path).isEmpty(),
                     qPrintable(row.path + ": " + model->UnreadableReason(row.path)));
        }
    }
};

QTEST_MAIN(PreviewWorkersTest)
#include "PreviewWorkersTest.moc"
