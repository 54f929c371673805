#pragma once

#include <QHash>
#include <QListView>
#include <optional>

#include "ui/list/ImageTableView.h"
#include "ui/sheet/CellCrop.h"

namespace vellumo {

class ContactSheetCellDelegate;
class ThumbnailLoader;

// The image list as a contact sheet: a grid of cells, one per row of the
// image table it is paired with, over the table's own model and selection
// model, so both views show the same rows in the same order with the same
// selection. Files dropped between cells are inserted there by the model, as
// if dropped on the table at that row. While
// painting, it asks the thumbnail loader for the thumbnails its visible
// cells miss (then those of the next screen).
class ContactSheetView : public FileDropView<QListView> {
    Q_OBJECT

  public:
    explicit ContactSheetView(QWidget* parent = nullptr);

    // Shows the rows, and shares the selection, of `table` (which has its
    // model). Drops are judged and carried out by that model.
    void PairWith(ImageTableView& table);
    void SetThumbnailLoader(ThumbnailLoader* loader);
    ThumbnailLoader* thumbnailLoader() const { return loader_; }
    void SetCellCropProvider(CellCropProvider provider);

    // The rows whose cells show now, first to last.
    QList<int> VisibleRows() const;
    // Where the picture of `row`'s cell is drawn (viewport coordinates);
    // empty while it has no thumbnail.
    QRect PictureRectOfRow(int row);
    // The gap a drop at `position` (viewport coordinates) goes to: before the
    // cell under it (its left half) or after it (its right half); after the
    // last row anywhere else.
    int ProposedDropRow(const QPoint& position) const;

  public Q_SLOTS:
    // Works out every cell's crop afresh and repaints: the settings changed.
    void RefreshCells();

  Q_SIGNALS:
    // Delete (or Backspace) was pressed in the sheet.
    void deletePressed();

  protected:
    // Files always go between cells.
    std::pair<int, DropPosition> ProposedDrop(const QPoint& position) const override {
        return {ProposedDropRow(position), DropPosition::AboveItem};
    }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // Asks for the thumbnails of the visible cells, then of the next screen.
    void WantVisibleThumbnails();
    std::optional<CellCrop> CropFor(const QString& path, Size fullSize);
    // Cells as wide as the columns that fit, so the rows fill the width.
    void UpdateGrid();

    ContactSheetCellDelegate* cellDelegate_;
    ThumbnailLoader* loader_ = nullptr;
    CellCropProvider cropProvider_;
    // The crops of the files painted since the settings last changed.
    QHash<QString, std::optional<CellCrop>> crops_;
};

}  // namespace vellumo
