#include "tests/gui/support/DragAndDrop.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QTableView>
#include <QUrl>

#include "imaging/Fatal.h"

namespace vellumo::test {

namespace {

DragAnswer Deliver(QTableView& table, QDropEvent& event) {
    QCoreApplication::sendEvent(table.viewport(), &event);
    return {event.isAccepted(), event.dropAction()};
}

}  // namespace

std::unique_ptr<QMimeData> FileUrlData(const QStringList& paths) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString& path : paths) {
        urls << QUrl::fromLocalFile(path);
    }
    data->setUrls(urls);
    return data;
}

DragAnswer SendDragEnter(QTableView& table, QPoint position, const QMimeData& data,
                         Qt::DropActions actions) {
    QDragEnterEvent event(position, actions, &data, Qt::LeftButton, Qt::NoModifier);
    return Deliver(table, event);
}

DragAnswer SendDragMove(QTableView& table, QPoint position, const QMimeData& data,
                        Qt::DropActions actions) {
    QDragMoveEvent event(position, actions, &data, Qt::LeftButton, Qt::NoModifier);
    return Deliver(table, event);
}

DragAnswer SendDrop(QTableView& table, QPoint position, const QMimeData& data,
                    Qt::DropActions actions) {
    QDropEvent event(QPointF(position), actions, &data, Qt::LeftButton, Qt::NoModifier);
    return Deliver(table, event);
}

void SendDragLeave(QTableView& table) {
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(table.viewport(), &event);
}

DragAnswer DragAndDrop(QTableView& table, QPoint position, const QMimeData& data,
                       Qt::DropActions actions) {
    SendDragEnter(table, position, data, actions);
    SendDragMove(table, position, data, actions);
    return SendDrop(table, position, data, actions);
}

QPoint GapAboveRow(const QTableView& table, int row) {
    const QRect cell = table.visualRect(table.model()->index(row, 0));
    if (!cell.isValid()) {
        Fatal("test: row " + std::to_string(row) + " is not visible");
    }
    return {cell.center().x(), cell.top() + 1};
}

QPoint MiddleOfRow(const QTableView& table, int row) {
    const QRect cell = table.visualRect(table.model()->index(row, 0));
    if (!cell.isValid()) {
        Fatal("test: row " + std::to_string(row) + " is not visible");
    }
    return cell.center();
}

QPoint BelowLastRow(const QTableView& table) {
    const int rows = table.model()->rowCount();
    const int bottom =
        rows == 0 ? 0 : table.visualRect(table.model()->index(rows - 1, 0)).bottom() + 1;
    const QPoint point(table.viewport()->width() / 2, bottom + 20);
    if (point.y() >= table.viewport()->height()) {
        Fatal("test: the table has no empty area below its rows");
    }
    return point;
}

}  // namespace vellumo::test
