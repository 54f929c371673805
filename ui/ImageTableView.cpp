#include "ui/ImageTableView.h"

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <algorithm>

#include "imaging/Fatal.h"
#include "ui/ImageListModel.h"
#include "ui/ImagePathCellDelegate.h"

namespace vellumo {

namespace {

// Accepting a drag of files into the list means only noting their paths.
// Answering "move" would tell the file manager it may delete its originals
// after the drop, so the list answers with a copy (or a link) instead.
Qt::DropAction ActionForTakingFiles(Qt::DropActions possible) {
    if (possible & Qt::CopyAction) {
        return Qt::CopyAction;
    }
    if (possible & Qt::LinkAction) {
        return Qt::LinkAction;
    }
    return Qt::IgnoreAction;
}

}  // namespace

ImageTableView::ImageTableView(QWidget* parent) : QTableView(parent) {
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

void ImageTableView::RegisterForDraggedTypes(const QStringList& mimeTypes) {
    draggedTypes_ = mimeTypes;
    // Drops arrive at the viewport; the table itself stays out of it, or a
    // drag the viewport refused would be offered to the table a second time.
    setAcceptDrops(false);
    viewport()->setAcceptDrops(!mimeTypes.isEmpty());
}

void ImageTableView::SetDropDelegate(TableDropDelegate* delegate) {
    dropDelegate_ = delegate;
}

void ImageTableView::SetImageListModel(ImageListModel* model) {
    imageListModel_ = model;
    setModel(model);
}

void ImageTableView::ReloadData() {
    if (imageListModel_ == nullptr) {
        Fatal("the image table has no rows to reload");
    }
    QList<int> selectedRows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        selectedRows << index.row();
    }
    selectionNoticesPaused_ = true;
    imageListModel_->Reload();
    const int rows = imageListModel_->rowCount();
    for (const int row : selectedRows) {
        if (row < rows) {
            selectionModel()->select(imageListModel_->index(row),
                                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
    }
    selectionNoticesPaused_ = false;
}

void ImageTableView::InsertRow(int row) {
    if (imageListModel_ == nullptr) {
        Fatal("the image table has no rows to insert into");
    }
    selectionNoticesPaused_ = true;
    imageListModel_->RowInserted(row);
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

std::pair<int, TableDropOperation> ImageTableView::ProposedDropAt(const QPoint& position) const {
    const int rows = model() != nullptr ? model()->rowCount() : 0;
    const QModelIndex index = indexAt(position);
    if (!index.isValid()) {
        return {rows, TableDropOperation::Above};
    }
    const QRect cell = visualRect(index);
    const int quarter = std::max(1, cell.height() / 4);
    if (position.y() < cell.top() + quarter) {
        return {index.row(), TableDropOperation::Above};
    }
    if (position.y() > cell.bottom() - quarter) {
        return {index.row() + 1, TableDropOperation::Above};
    }
    return {index.row(), TableDropOperation::On};
}

void ImageTableView::dragEnterEvent(QDragEnterEvent* event) {
    if (!CarriesRegisteredType(event->mimeData())) {
        event->ignore();
        return;
    }
    // Only a widget that takes the enter is told of the moves that follow.
    // The table follows every drag it could take in some gap, so a pointer
    // that enters over the middle of a row can still move on between rows;
    // each position is then judged as the pointer moves.
    const TableDragInfo info{event->mimeData(), event->source()};
    const int gapAfterLastRow = model() != nullptr ? model()->rowCount() : 0;
    const bool takenInSomeGap =
        dropDelegate_->tableViewValidateDrop(
            *this, info, gapAfterLastRow, TableDropOperation::Above) == TableDragOperation::Move &&
        ActionForTakingFiles(event->possibleActions()) != Qt::IgnoreAction;
    if (!takenInSomeGap) {
        event->ignore();
        return;
    }
    setState(QAbstractItemView::DraggingState);
    AnswerProposedDrop(*event);
    event->accept();
}

void ImageTableView::dragMoveEvent(QDragMoveEvent* event) {
    if (!CarriesRegisteredType(event->mimeData())) {
        event->ignore();
        return;
    }
    AnswerProposedDrop(*event);
    const QPoint position = event->position().toPoint();
    const QRect area = viewport()->rect();
    if (hasAutoScroll() && (position.y() - area.top() < autoScrollMargin() ||
                            area.bottom() - position.y() < autoScrollMargin())) {
        startAutoScroll();
    }
}

void ImageTableView::dragLeaveEvent(QDragLeaveEvent* event) {
    EndDrag();
    event->accept();
}

void ImageTableView::dropEvent(QDropEvent* event) {
    // The drop is judged once more where it lands; only then is it taken.
    AnswerProposedDrop(*event);
    if (event->isAccepted()) {
        const auto [row, operation] = ProposedDropAt(event->position().toPoint());
        const TableDragInfo info{event->mimeData(), event->source()};
        if (!dropDelegate_->tableViewAcceptDrop(*this, info, row, operation)) {
            event->ignore();
        }
    }
    EndDrag();
}

void ImageTableView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!dropIndicatorRow_) {
        return;
    }
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = palette().color(QPalette::Highlight);
    const int y = DropLineY(*dropIndicatorRow_);
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
        Q_EMIT selectionDidChange();
    }
}

bool ImageTableView::CarriesRegisteredType(const QMimeData* data) const {
    if (data == nullptr || dropDelegate_ == nullptr) {
        return false;
    }
    return std::any_of(draggedTypes_.begin(), draggedTypes_.end(),
                       [data](const QString& type) { return data->hasFormat(type); });
}

void ImageTableView::AnswerProposedDrop(QDropEvent& event) {
    if (!CarriesRegisteredType(event.mimeData())) {
        SetDropIndicatorRow(std::nullopt);
        event.ignore();
        return;
    }
    const auto [row, operation] = ProposedDropAt(event.position().toPoint());
    const TableDragInfo info{event.mimeData(), event.source()};
    const bool taken = dropDelegate_->tableViewValidateDrop(*this, info, row, operation) ==
                       TableDragOperation::Move;
    const Qt::DropAction action =
        taken ? ActionForTakingFiles(event.possibleActions()) : Qt::IgnoreAction;
    if (action == Qt::IgnoreAction) {
        SetDropIndicatorRow(std::nullopt);
        event.setDropAction(Qt::IgnoreAction);
        event.ignore();
        return;
    }
    SetDropIndicatorRow(operation == TableDropOperation::Above ? std::optional<int>(row)
                                                               : std::nullopt);
    event.setDropAction(action);
    event.accept();
}

void ImageTableView::SetDropIndicatorRow(std::optional<int> row) {
    if (dropIndicatorRow_ != row) {
        dropIndicatorRow_ = row;
        viewport()->update();
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

void ImageTableView::EndDrag() {
    SetDropIndicatorRow(std::nullopt);
    stopAutoScroll();
    setState(QAbstractItemView::NoState);
}

}  // namespace vellumo
