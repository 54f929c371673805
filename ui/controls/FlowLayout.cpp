#include "ui/controls/FlowLayout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace vellumo {

FlowLayout::~FlowLayout() {
    while (QLayoutItem* item = takeAt(0)) {
        delete item;
    }
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.append(item);
}

int FlowLayout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return items_.value(index);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (index < 0 || index >= items_.size()) {
        return nullptr;
    }
    return items_.takeAt(index);
}

Qt::Orientations FlowLayout::expandingDirections() const {
    return {};
}

bool FlowLayout::hasHeightForWidth() const {
    return true;
}

int FlowLayout::heightForWidth(int width) const {
    return Arrange(QRect(0, 0, width, 0), false);
}

void FlowLayout::setWrapIndent(int indent) {
    wrapIndent_ = indent;
    invalidate();
}

void FlowLayout::setRowSpacing(int spacing) {
    rowSpacing_ = spacing;
    invalidate();
}

// The widest item (with the indent, unless it comes first) decides how
// narrow the rows can get; one row is the height asked for, more rows come
// from heightForWidth.
QSize FlowLayout::minimumSize() const {
    QSize size(0, 0);
    bool first = true;
    for (const QLayoutItem* item : items_) {
        if (!item->isEmpty()) {
            const QSize least = item->minimumSize().expandedTo(item->sizeHint());
            size = size.expandedTo(least + QSize(first ? 0 : wrapIndent_, 0));
            first = false;
        }
    }
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

// All the items on one row. (From an empty size: a default QSize is -1
// wide, which made the hint a pixel short of the row, so that at the width
// hinted the last item wrapped.)
QSize FlowLayout::sizeHint() const {
    QSize size(0, 0);
    for (const QLayoutItem* item : items_) {
        if (!item->isEmpty()) {
            const QSize hint = item->sizeHint();
            size.setWidth(size.width() + (size.width() > 0 ? HorizontalGap() : 0) + hint.width());
            size.setHeight(std::max(size.height(), hint.height()));
        }
    }
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

int FlowLayout::Arrange(const QRect& rect, bool place) const {
    const QRect area = rect.marginsRemoved(contentsMargins());
    int x = area.x();
    int y = area.y();
    int rowHeight = 0;
    bool rowEmpty = true;
    for (QLayoutItem* item : items_) {
        if (item->isEmpty()) {
            continue;
        }
        const QSize hint = item->sizeHint();
        // A new row when this item would cross the right edge, unless it
        // is the first of its row (then it takes the row alone).
        if (!rowEmpty && x + hint.width() > area.right() + 1) {
            x = area.x() + wrapIndent_;
            y += rowHeight + VerticalGap();
            rowHeight = 0;
        }
        rowEmpty = false;
        if (place) {
            item->setGeometry(QRect(QPoint(x, y), hint));
        }
        x += hint.width() + HorizontalGap();
        rowHeight = std::max(rowHeight, hint.height());
    }
    const QMargins margins = contentsMargins();
    return y + rowHeight - rect.y() + margins.bottom();
}

// The spacing set on the layout, else the style's between two widgets.
int FlowLayout::HorizontalGap() const {
    if (spacing() >= 0) {
        return spacing();
    }
    const QWidget* widget = parentWidget();
    return widget == nullptr
               ? 0
               : widget->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, widget);
}

int FlowLayout::VerticalGap() const {
    if (rowSpacing_ >= 0) {
        return rowSpacing_;
    }
    if (spacing() >= 0) {
        return spacing();
    }
    const QWidget* widget = parentWidget();
    return widget == nullptr
               ? 0
               : widget->style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, widget);
}

}  // namespace vellumo
