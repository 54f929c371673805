#include "ui/list/ImageTableView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "imaging/Fatal.h"
#include "ui/controls/FocusFrameStyle.h"
#include "ui/list/ImageList.h"
#include "ui/list/ImagePathCellDelegate.h"

namespace vellumo {

ImageTableView::ImageTableView(QWidget* parent) : FileDropView<QTableView>(parent) {
    setItemDelegate(new ImagePathCellDelegate(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragDropMode(QAbstractItemView::NoDragDrop);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    setIconSize(QSize(20, 20));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(std::max(28, fontMetrics().height() + 12));
}

void ImageTableView::SetImageList(ImageList* list) {
    // Connected before the view's own connections, so the notices are
    // paused before the selection model follows the change; resumed after
    // it has.
    for (const auto about :
         {&QAbstractItemModel::rowsAboutToBeInserted, &QAbstractItemModel::rowsAboutToBeRemoved}) {
        connect(list, about, this, &ImageTableView::PauseSelectionNotices);
    }
    connect(list, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        PauseSelectionNotices();
        rowsSelectedBeforeReset_ = SelectedRows();
    });
    setModel(list);
    for (const auto done : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(list, done, this, &ImageTableView::ResumeSelectionNotices);
    }
    connect(list, &QAbstractItemModel::modelReset, this, [this, list] {
        for (const int row : std::exchange(rowsSelectedBeforeReset_, {})) {
            if (row < list->rowCount()) {
                selectionModel()->select(list->index(row),
                                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
            }
        }
        ResumeSelectionNotices();
    });
    AcceptModelDrops();
}

void ImageTableView::PauseSelectionNotices() {
    selectionNoticesPaused_ = true;
}

void ImageTableView::ResumeSelectionNotices() {
    selectionNoticesPaused_ = false;
}

int ImageTableView::SelectedRow() const {
    const QItemSelectionModel* selection = selectionModel();
    if (selection == nullptr) {
        return -1;
    }
    const QModelIndex current = selection->currentIndex();
    if (current.isValid() && selection->isRowSelected(current.row())) {
        return current.row();
    }
    int last = -1;
    for (const QModelIndex& index : selection->selectedRows()) {
        last = std::max(last, index.row());
    }
    return last;
}

QList<int> ImageTableView::SelectedRows() const {
    QList<int> rows;
    if (const QItemSelectionModel* selection = selectionModel()) {
        for (const QModelIndex& index : selection->selectedRows()) {
            rows << index.row();
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ImageTableView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Delete) || event->key() == Qt::Key_Backspace) {
        Q_EMIT deletePressed();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

std::pair<int, DropPosition> ImageTableView::ProposedDropAt(const QPoint& position) const {
    const int rows = model() != nullptr ? model()->rowCount() : 0;
    const QModelIndex index = indexAt(position);
    if (!index.isValid()) {
        return {rows, DropPosition::AboveItem};
    }
    const QRect cell = visualRect(index);
    const int quarter = std::max(1, cell.height() / 4);
    if (position.y() < cell.top() + quarter) {
        return {index.row(), DropPosition::AboveItem};
    }
    if (position.y() > cell.bottom() - quarter) {
        return {index.row() + 1, DropPosition::AboveItem};
    }
    return {index.row(), DropPosition::OnItem};
}

void ImageTableView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    // Without a current row no row shows the focus: the list does.
    if (!currentIndex().isValid()) {
        QPainter painter(viewport());
        PaintFocusFrame(*this, painter, viewport()->rect());
    }
    const std::optional<int> dropRow = DropIndicatorRow();
    if (!dropRow) {
        return;
    }
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = palette().color(QPalette::Highlight);
    const int y = DropLineY(*dropRow);
    constexpr int kRadius = 3;
    painter.setPen(QPen(color, 2));
    painter.drawLine(QPoint(4 + 2 * kRadius, y), QPoint(viewport()->width() - 4, y));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawEllipse(QPoint(4 + kRadius, y), kRadius, kRadius);
}

void ImageTableView::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (!selectionNoticesPaused_) {
        Q_EMIT selectedRowsChanged();
    }
}

int ImageTableView::DropLineY(int row) const {
    const int rows = model() != nullptr ? model()->rowCount() : 0;
    int y = 0;
    if (rows > 0 && row < rows) {
        y = rowViewportPosition(row);
    } else if (rows > 0) {
        y = rowViewportPosition(rows - 1) + rowHeight(rows - 1);
    }
    // Keep the whole line inside the viewport at the very top and bottom.
    return std::clamp(y, 1, std::max(1, viewport()->height() - 2));
}

}  // namespace vellumo
