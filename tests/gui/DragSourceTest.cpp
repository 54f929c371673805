// Drags that start inside the program: rows of a table (ours or another) are
// never dropped onto the image list; a drag from another kind of control is
// judged by its files.
//
// The drag must really be in progress for the table to see its source, so
// this suite runs on Qt's "minimal" platform, whose drags run their own event
// loop (the offscreen platform ends every drag at once).

#include <QApplication>
#include <QDrag>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "tests/gui/support/DragAndDrop.h"
#include "tests/gui/support/LoadedWindow.h"
#include "ui/list/ImageTableView.h"

using vellumo::ImageTableView;
using vellumo::test::DragAnswer;
using vellumo::test::FileUrlData;
using vellumo::test::GapAboveRow;
using vellumo::test::LoadedWindow;
using vellumo::test::SendDragEnter;
using vellumo::test::SendDragMove;
using vellumo::test::SendDrop;

namespace {

struct Outcome {
    bool dragWasRunning = false;
    DragAnswer move;
    DragAnswer drop;
};

// Starts a real drag of `paths` from `source`; while it runs, drags over the
// gap above row 1 of `table` and drops there; then ends the drag with Escape.
Outcome DragFrom(QObject* source, const QStringList& paths, ImageTableView& table) {
    Outcome outcome;
    QObject whileDragging;  // cancels the timer if the drag never runs
    auto* drag = new QDrag(source);
    drag->setMimeData(FileUrlData(paths).release());
    QTimer::singleShot(0, &whileDragging, [&] {
        outcome.dragWasRunning = true;
        const QPoint gap = GapAboveRow(table, 1);
        const auto data = FileUrlData(paths);
        SendDragEnter(table, gap, *data);
        outcome.move = SendDragMove(table, gap, *data);
        outcome.drop = SendDrop(table, gap, *data);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&table, &escape);
    });
    drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
    drag->deleteLater();
    return outcome;
}

QString MakeFile(const QTemporaryDir& folder, const char* name) {
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("cannot create %s", qPrintable(path));
    }
    return path;
}

}  // namespace

class DragSourceTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void dragsFromTablesAreRefusedOursIncluded() {
        QTemporaryDir folder;
        LoadedWindow loaded;
        loaded.AddImages({MakeFile(folder, "a.png"), MakeFile(folder, "b.png")});
        loaded.Show();
        auto& table = loaded.Control<ImageTableView>("tableViewImage");
        const QString png = MakeFile(folder, "new.png");

        const Outcome own = DragFrom(&table, {png}, table);
        QVERIFY(own.dragWasRunning);
        QVERIFY(!own.move.accepted);
        QVERIFY(!own.drop.accepted);

        const Outcome ownViewport = DragFrom(table.viewport(), {png}, table);
        QVERIFY(ownViewport.dragWasRunning);
        QVERIFY(!ownViewport.move.accepted);
        QVERIFY(!ownViewport.drop.accepted);

        QTableView otherTable;
        QStandardItemModel otherModel(1, 1);
        otherTable.setModel(&otherModel);
        const Outcome other = DragFrom(&otherTable, {png}, table);
        QVERIFY(other.dragWasRunning);
        QVERIFY(!other.move.accepted);
        QVERIFY(!other.drop.accepted);

        QCOMPARE(loaded.imageList().paths().size(), 2);
    }

    void aDragFromAnotherKindOfControlIsJudgedByItsFiles() {
        QTemporaryDir folder;
        LoadedWindow loaded;
        loaded.AddImages({MakeFile(folder, "a.png"), MakeFile(folder, "b.png")});
        loaded.Show();
        auto& table = loaded.Control<ImageTableView>("tableViewImage");
        const QString png = MakeFile(folder, "new.png");
        QLabel label;

        const Outcome fromLabel = DragFrom(&label, {png}, table);
        QVERIFY(fromLabel.dragWasRunning);
        QVERIFY(fromLabel.move.accepted);
        QVERIFY(fromLabel.drop.accepted);
        QCOMPARE(loaded.imageList().paths().size(), 3);
        QCOMPARE(loaded.imageList().paths()[1], png);
    }
};

QTEST_MAIN(DragSourceTest)
#include "DragSourceTest.moc"
