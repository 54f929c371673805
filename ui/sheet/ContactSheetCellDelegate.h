#pragma once

#include <QStyledItemDelegate>
#include <functional>
#include <optional>

#include "ui/sheet/CellCrop.h"

namespace vellumo {

class ThumbnailLoader;

// Draws one cell of the contact sheet: the thumbnail with what the crop
// leaves out veiled and the crop outlined, a mark when the crop was adjusted
// by hand, and the file name and output size under it. Cells draw only what
// the thumbnail cache holds; until it has the file, a placeholder with the
// row's icon.
class ContactSheetCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    // The picture's box and the cell around it, in logical pixels.
    static constexpr int kPictureSide = 160;
    static constexpr int kCellWidth = kPictureSide + 28;
    static constexpr int kCellPadding = 6;

    explicit ContactSheetCellDelegate(QObject* parent = nullptr);

    void SetThumbnailLoader(ThumbnailLoader* loader) { loader_ = loader; }
    // Where cells learn their crops (the view keeps them between paints).
    void SetCrops(std::function<std::optional<CellCrop>(const QString&, Size)> crops) {
        crops_ = std::move(crops);
    }

    // The cell's size, from the font's line height.
    static QSize CellSize(const QFontMetrics& metrics);
    // Where the picture box lies in a cell of `cell`.
    static QRect PictureBox(const QRect& cell);
    // Where a picture of `pictureSize` (device pixels) at `devicePixelRatio`
    // is drawn inside `box`: centred, as large as it was made.
    static QRectF PictureRect(const QRect& box, QSize pictureSize, qreal devicePixelRatio);
    // The part of `picture` (where a whole image of `fullSize` is drawn)
    // that `cut` keeps; `cut` has its origin at the image's lower-left corner.
    static QRectF CutOnPicture(const QRectF& picture, Size fullSize, Rect cut);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    ThumbnailLoader* loader_ = nullptr;
    std::function<std::optional<CellCrop>(const QString&, Size)> crops_;
};

}  // namespace vellumo
