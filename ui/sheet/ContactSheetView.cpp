#include "ui/sheet/ContactSheetView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "ui/sheet/ContactSheetCellDelegate.h"
#include "ui/thumbnails/ThumbnailLoader.h"

namespace vellumo {

ContactSheetView::ContactSheetView(QWidget* parent)
    : FileDropView<QListView>(parent), cellDelegate_(new ContactSheetCellDelegate(this)) {
    // A grid laid out row by row as a wrapping list: with cells of one size
    // the list finds the cells of any scroll position at once, however long
    // the list is.
    setViewMode(QListView::ListMode);
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setMovement(QListView::Static);
    setUniformItemSizes(true);
    setSpacing(0);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionRectVisible(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragDropMode(QAbstractItemView::NoDragDrop);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(cellDelegate_);
    cellDelegate_->SetCrops(
        [this](const QString& path, Size fullSize) { return CropFor(path, fullSize); });
    UpdateGrid();
}

void ContactSheetView::PairWith(ImageTableView& table) {
    setModel(table.model());
    setSelectionModel(table.selectionModel());
    AcceptModelDrops();
}

void ContactSheetView::SetThumbnailLoader(ThumbnailLoader* loader) {
    loader_ = loader;
    cellDelegate_->SetThumbnailLoader(loader);
    viewport()->update();
}

void ContactSheetView::SetCellCropProvider(CellCropProvider provider) {
    cropProvider_ = std::move(provider);
    RefreshCells();
}

void ContactSheetView::RefreshCells() {
    crops_.clear();
    viewport()->update();
}

std::optional<CellCrop> ContactSheetView::CropFor(const QString& path, Size fullSize) {
    const auto found = crops_.constFind(path);
    if (found != crops_.constEnd()) {
        return *found;
    }
    std::optional<CellCrop> crop = cropProvider_ ? cropProvider_(path, fullSize) : std::nullopt;
    crops_.insert(path, crop);
    return crop;
}

void ContactSheetView::UpdateGrid() {
    QSize cell = ContactSheetCellDelegate::CellSize(fontMetrics());
    const int width = viewport()->width();
    const int columns = std::max(1, width / cell.width());
    cell.setWidth(std::max(cell.width(), width / columns));
    if (cell != gridSize()) {
        setGridSize(cell);
    }
}

void ContactSheetView::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    UpdateGrid();
}

void ContactSheetView::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        UpdateGrid();
    }
}

QList<int> ContactSheetView::VisibleRows() const {
    QList<int> visible;
    const QAbstractItemModel* rows = model();
    const int count = rows != nullptr ? rows->rowCount() : 0;
    const QSize grid = gridSize();
    if (count == 0 || grid.isEmpty()) {
        return visible;
    }
    const QRect area = viewport()->rect();
    const int columns = std::max(1, area.width() / grid.width());
    // A guess from the grid, then corrected by where the cells really are.
    int row = std::clamp(verticalOffset() / grid.height() * columns, 0, count - 1);
    while (row > 0 && visualRect(rows->index(row - 1, 0)).bottom() >= area.top()) {
        --row;
    }
    for (; row < count; ++row) {
        const QRect cell = visualRect(rows->index(row, 0));
        if (cell.top() > area.bottom()) {
            break;
        }
        if (cell.intersects(area)) {
            visible << row;
        }
    }
    return visible;
}

void ContactSheetView::WantVisibleThumbnails() {
    if (loader_ == nullptr || model() == nullptr) {
        return;
    }
    const QList<int> visible = VisibleRows();
    if (visible.isEmpty()) {
        loader_->Want({});
        return;
    }
    const QAbstractItemModel& rows = *model();
    QStringList paths;
    for (const int row : visible) {
        paths << rows.index(row, 0).data().toString();
    }
    // Then the next screen down, which scrolling usually shows next, and the
    // one above.
    const int screen = static_cast<int>(visible.size());
    const int count = rows.rowCount();
    for (int row = visible.back() + 1; row < std::min(count, visible.back() + 1 + screen); ++row) {
        paths << rows.index(row, 0).data().toString();
    }
    for (int row = visible.front() - 1; row >= std::max(0, visible.front() - screen); --row) {
        paths << rows.index(row, 0).data().toString();
    }
    loader_->Want(paths);
}

QRect ContactSheetView::PictureRectOfRow(int row) {
    if (model() == nullptr || loader_ == nullptr || row < 0 || row >= model()->rowCount()) {
        return {};
    }
    const QModelIndex index = model()->index(row, 0);
    const Thumbnail* thumbnail = loader_->Find(index.data().toString());
    if (thumbnail == nullptr) {
        return {};
    }
    const QRect cell = visualRect(index).adjusted(3, 3, -3, -3);
    return ContactSheetCellDelegate::PictureRect(ContactSheetCellDelegate::PictureBox(cell),
                                                 thumbnail->cellPicture.size(),
                                                 thumbnail->cellPicture.devicePixelRatio())
        .toRect();
}

int ContactSheetView::ProposedDropRow(const QPoint& position) const {
    const int count = model() != nullptr ? model()->rowCount() : 0;
    const QModelIndex index = indexAt(position);
    if (!index.isValid()) {
        return count;
    }
    const QRect cell = visualRect(index);
    return position.x() < cell.center().x() ? index.row() : index.row() + 1;
}

void ContactSheetView::paintEvent(QPaintEvent* event) {
    WantVisibleThumbnails();
    QListView::paintEvent(event);
    const std::optional<int> dropRow = DropIndicatorRow();
    if (!dropRow || model() == nullptr) {
        return;
    }
    const int count = model()->rowCount();
    int x = 2;
    QRect cell;
    if (count > 0 && *dropRow < count) {
        cell = visualRect(model()->index(*dropRow, 0));
        x = cell.left() + 1;
    } else if (count > 0) {
        cell = visualRect(model()->index(count - 1, 0));
        x = cell.right();
    }
    if (cell.isEmpty()) {
        cell = QRect(0, 0, 1, gridSize().height());
    }
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = palette().color(QPalette::Highlight);
    constexpr int kRadius = 3;
    painter.setPen(QPen(color, 2));
    painter.drawLine(QPoint(x, cell.top() + 4 + 2 * kRadius), QPoint(x, cell.bottom() - 4));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawEllipse(QPoint(x, cell.top() + 4 + kRadius), kRadius, kRadius);
}

void ContactSheetView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Delete) || event->key() == Qt::Key_Backspace) {
        Q_EMIT deletePressed();
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}

}  // namespace vellumo
