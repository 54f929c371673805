#include "ui/list/ImagePathCellDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include "ui/list/ImageList.h"
#include "ui/preview/CropFrame.h"

namespace vellumo {

namespace {

constexpr int kIconSize = 20;
constexpr int kRowPadding = 8;
constexpr int kMarkSide = 10;

}  // namespace

ImagePathCellDelegate::ImagePathCellDelegate(QObject* parent) : QStyledItemDelegate(parent) {
    setObjectName(QString::fromLatin1(kIdentifier));
}

QSize ImagePathCellDelegate::sizeHint(const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), kIconSize + kRowPadding));
    return size;
}

void ImagePathCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    if (!index.data(ImageList::kAdjustedRole).toBool()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    // The row's background spans the mark too; the path gives way to it.
    QStyleOptionViewItem full = option;
    initStyleOption(&full, index);
    const QWidget* widget = option.widget;
    QStyle* style = widget != nullptr ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &full, painter, widget);
    QStyleOptionViewItem narrowed = option;
    narrowed.rect.setRight(option.rect.right() - kMarkSide - kRowPadding);
    QStyledItemDelegate::paint(painter, narrowed, index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(QColor(0, 0, 0, 140), 1.0));
    painter->setBrush(AdjustedMarkColour());
    const QRectF mark(option.rect.right() - kMarkSide - kRowPadding / 2.0,
                      option.rect.center().y() - kMarkSide / 2.0, kMarkSide, kMarkSide);
    painter->drawRoundedRect(mark, 2, 2);
    painter->restore();
}

void ImagePathCellDelegate::initStyleOption(QStyleOptionViewItem* option,
                                            const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->textElideMode = Qt::ElideMiddle;
    option->decorationSize = QSize(kIconSize, kIconSize);
}

}  // namespace vellumo
