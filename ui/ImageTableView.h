#pragma once

#include <QStringList>
#include <QTableView>
#include <optional>

class QDropEvent;
class QMimeData;

namespace vellumo {

class ImageListModel;
class ImageTableView;

// Where a drop would go: onto a row, or into the gap above a row (the row
// equal to the number of rows is the gap below the last one).
enum class TableDropOperation { On, Above };

// The answer to a proposed drop.
enum class TableDragOperation { None, Move };

// What the table knows of a drag.
struct TableDragInfo {
    const QMimeData* mimeData = nullptr;
    // The widget of this program the drag started from; null for drags from
    // other programs.
    const QObject* source = nullptr;
};

// Decides about drops onto the table and carries them out.
class TableDropDelegate {
  public:
    virtual TableDragOperation tableViewValidateDrop(ImageTableView& table,
                                                     const TableDragInfo& info, int proposedRow,
                                                     TableDropOperation operation) = 0;
    virtual bool tableViewAcceptDrop(ImageTableView& table, const TableDragInfo& info, int row,
                                     TableDropOperation operation) = 0;

  protected:
    ~TableDropDelegate() = default;
};

// The image list's table. Rows are selected as in any list (a click, Ctrl
// and Shift with a click, Ctrl+A). It takes drops of the registered kinds,
// asks its drop delegate about each position, shows a line between rows where
// an accepted drop would go, tells of selection changes made by the user or
// the program (not of those a reload or an insertion makes) and of the Delete
// key.
class ImageTableView : public QTableView {
    Q_OBJECT

  public:
    explicit ImageTableView(QWidget* parent = nullptr);

    // Drags carrying data of these MIME types are considered; others are not.
    void RegisterForDraggedTypes(const QStringList& mimeTypes);
    void SetDropDelegate(TableDropDelegate* delegate);
    void SetImageListModel(ImageListModel* model);

    // Reads all rows again, keeping the selected row numbers that still exist.
    void ReloadData();
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
    std::pair<int, TableDropOperation> ProposedDropAt(const QPoint& position) const;

    // The gap where the drop line is shown, if one is.
    std::optional<int> DropIndicatorRow() const { return dropIndicatorRow_; }

  Q_SIGNALS:
    void selectionDidChange();
    // Delete (or Backspace) was pressed in the table.
    void deletePressed();

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    bool CarriesRegisteredType(const QMimeData* data) const;
    // Asks the delegate about the drop at the event's position, shows or
    // hides the drop line and answers the event.
    void AnswerProposedDrop(QDropEvent& event);
    void SetDropIndicatorRow(std::optional<int> row);
    int DropLineY(int row) const;
    void EndDrag();

    QStringList draggedTypes_;
    TableDropDelegate* dropDelegate_ = nullptr;
    ImageListModel* imageListModel_ = nullptr;
    std::optional<int> dropIndicatorRow_;
    bool selectionNoticesPaused_ = false;
};

}  // namespace vellumo
