#pragma once

#include <QTableView>

#include "ui/list/FileDropView.h"

namespace vellumo {

class ImageListModel;

// The image list's table. Rows are selected as in any list (a click, Ctrl
// and Shift with a click, Ctrl+A). It takes drops of the registered kinds,
// asks its drop delegate about each position, shows a line between rows where
// an accepted drop would go, tells of selection changes made by the user or
// the program (not of those a reload or an insertion makes) and of the Delete
// key.
class ImageTableView : public FileDropView<QTableView> {
    Q_OBJECT

  public:
    explicit ImageTableView(QWidget* parent = nullptr);

    void SetImageListModel(ImageListModel* model);

    // Reads all rows again, keeping the selected row numbers that still exist.
    void RefreshRows();
    // Shows one new row at `row`; selected rows after it move down with it.
    void InsertRow(int row);

    // The selected row, the most recently selected where several are; -1 when
    // none is.
    int SelectedRow() const;
    // Every selected row, in ascending order.
    QList<int> SelectedRows() const;

    // The drop a pointer at `position` (viewport coordinates) proposes:
    // the middle half of a row is onto it, the top and bottom quarters are the
    // gaps above and below it, and anywhere below the rows is the gap after
    // the last row.
    std::pair<int, DropPosition> ProposedDropAt(
        const QPoint& position) const;

  Q_SIGNALS:
    void selectedRowsChanged();
    // Delete (or Backspace) was pressed in the table.
    void deletePressed();

  protected:
    std::pair<int, DropPosition> ProposedDrop(
        const QPoint& position) const override {
        return ProposedDropAt(position);
    }
    ImageTableView* DropTable() override { return this; }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    int DropLineY(int row) const;

    ImageListModel* imageListModel_ = nullptr;
    bool selectionNoticesPaused_ = false;
};

}  // namespace vellumo
