#pragma once

#include <QStyledItemDelegate>

namespace vellumo {

// Draws one row of the image table, the cell kind "ImagePathCellID": the
// file-kind icon, then the full path, shortened in the middle when the column
// is too narrow so that the file name at its end stays readable. A row whose
// crop was adjusted by hand ends in a small mark in the adjusted frame's
// colour.
class ImagePathCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    static constexpr char kIdentifier[] = "ImagePathCellID";

    explicit ImagePathCellDelegate(QObject* parent = nullptr);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace vellumo
