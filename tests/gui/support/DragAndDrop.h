#pragma once

// Real drag-and-drop events, delivered to a table's viewport the way the
// window system delivers them.

#include <QMimeData>
#include <QPoint>
#include <QStringList>
#include <memory>

class QTableView;
class QWidget;

namespace vellumo::test {

// A drag's data as a file manager offers it: a list of file URLs.
std::unique_ptr<QMimeData> FileUrlData(const QStringList& paths);

struct DragAnswer {
    bool accepted = false;
    Qt::DropAction action = Qt::IgnoreAction;
};

// File managers offer to copy, move or link.
inline constexpr Qt::DropActions kFileManagerActions =
    Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

DragAnswer SendDragEnter(QTableView& table, QPoint position, const QMimeData& data,
                         Qt::DropActions actions = kFileManagerActions);
DragAnswer SendDragMove(QTableView& table, QPoint position, const QMimeData& data,
                        Qt::DropActions actions = kFileManagerActions);
DragAnswer SendDrop(QTableView& table, QPoint position, const QMimeData& data,
                    Qt::DropActions actions = kFileManagerActions);
void SendDragLeave(QTableView& table);

// Enter, move, then drop at one position; the drop's answer.
DragAnswer DragAndDrop(QTableView& table, QPoint position, const QMimeData& data,
                       Qt::DropActions actions = kFileManagerActions);

// Points in viewport coordinates: in the gap just above a row, in the middle
// of a row, and in the empty area below the last row.
QPoint GapAboveRow(const QTableView& table, int row);
QPoint MiddleOfRow(const QTableView& table, int row);
QPoint BelowLastRow(const QTableView& table);

}  // namespace vellumo::test
