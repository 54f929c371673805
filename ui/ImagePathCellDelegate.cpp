#include "ui/ImagePathCellDelegate.h"

namespace vellumo {

namespace {

constexpr int kIconSize = 20;
constexpr int kRowPadding = 8;

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

void ImagePathCellDelegate::initStyleOption(QStyleOptionViewItem* option,
                                            const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->textElideMode = Qt::ElideMiddle;
    option->decorationSize = QSize(kIconSize, kIconSize);
}

}  // namespace vellumo
