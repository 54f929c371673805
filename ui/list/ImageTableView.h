#pragma once

#include <QTableView>

#include "ui/list/FileDropView.h"

namespace vellumo {

class ImageList;

// The image list's table. Rows are selected as in any list (a click, Ctrl
// and Shift with a click, Ctrl+A). It takes drops of the kinds its model
// takes, asks the model about each position, shows a line between rows where
// an accepted drop would go, tells of selection changes made by the user or
// the program (not of those the list's own changes make: rows inserted or
// removed, or the list replaced, after which the selected row numbers that
// still exist stay selected) and of the Delete key.
class ImageTableView : public FileDropView<QTableView> {
    Q_OBJECT

  public:
    explicit ImageTableView(QWidget* parent = nullptr);

    // Shows `list`, and takes the drops it takes.
    void SetImageList(ImageList* list);

    // The selected row, the most recently selected where several are; -1 when
    // none is.
    int SelectedRow() const;
    // Every selected row, in ascending order.
    QList<int> SelectedRows() const;

    // The drop a pointer at `position` (viewport coordinates) proposes:
    // the middle half of a row is onto it, the top and bottom quarters are the
    // gaps above and below it, and anywhere below the rows is the gap after
    // the last row.
    std::pair<int, DropPosition> ProposedDropAt(const QPoint& position) const;

  Q_SIGNALS:
    void selectedRowsChanged();
    // Delete (or Backspace) was pressed in the table.
    void deletePressed();

  protected:
    std::pair<int, DropPosition> ProposedDrop(const QPoint& position) const override {
        return ProposedDropAt(position);
    }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    int DropLineY(int row) const;
    // The list is about to change, or has changed, by itself.
    void PauseSelectionNotices();
    void ResumeSelectionNotices();

    bool selectionNoticesPaused_ = false;
    // The rows selected when the list was about to be replaced.
    QList<int> rowsSelectedBeforeReset_;
};

}  // namespace vellumo
