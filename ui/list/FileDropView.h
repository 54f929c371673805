#pragma once

// Dropping files into the image list, shared by its two views (the table and
// the contact sheet). A drag of a registered kind is followed when it could
// be taken in some gap; each position is judged by the drop delegate, an
// accepted gap shows the view's drop line, the view scrolls near its edges,
// and the drop is carried out by the delegate where it lands.

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStringList>
#include <algorithm>
#include <optional>
#include <utility>

namespace vellumo {

class ImageTableView;

// Where a drop would go: onto a row, or into the gap above a row (the row
// equal to the number of rows is the gap below the last one), as Qt's item
// views name the places of their drop indicator.
enum class DropPosition { OnItem, AboveItem };

// What the list knows of a drag.
struct DragInfo {
    const QMimeData* mimeData = nullptr;
    // The widget of this program the drag started from; null for drags from
    // other programs.
    const QObject* source = nullptr;
};

// Decides about drops onto the image list and carries them out. Both views
// name the table, whose rows they show.
class ListDropHandler {
  public:
    // Whether the drag's data could be dropped there (its files listed).
    virtual bool canDropMimeData(ImageTableView& table, const DragInfo& info, int proposedRow,
                                 DropPosition position) = 0;
    virtual bool dropMimeData(ImageTableView& table, const DragInfo& info, int row,
                              DropPosition position) = 0;

  protected:
    ~ListDropHandler() = default;
};

// Accepting a drag of files into the list means only noting their paths.
// Answering "move" would tell the file manager it may delete its originals
// after the drop, so the list answers with a copy (or a link) instead.
inline Qt::DropAction ActionForTakingFiles(Qt::DropActions possible) {
    if (possible & Qt::CopyAction) {
        return Qt::CopyAction;
    }
    if (possible & Qt::LinkAction) {
        return Qt::LinkAction;
    }
    return Qt::IgnoreAction;
}

// A view of the image list that takes dropped files. `View` is the Qt view
// it extends; the view says where a position's drop goes (ProposedDrop),
// which table the delegate is told of (DropTable), and paints the line at
// DropIndicatorRow.
template <class View>
class FileDropView : public View {
  public:
    using View::View;

    // Drags carrying data of these MIME types are considered; others are not.
    void AcceptDraggedTypes(const QStringList& mimeTypes) {
        draggedTypes_ = mimeTypes;
        // Drops arrive at the viewport; the view itself stays out of it, or a
        // drag the viewport refused would be offered to the view a second
        // time.
        this->setAcceptDrops(false);
        this->viewport()->setAcceptDrops(!mimeTypes.isEmpty());
    }
    void SetDropHandler(ListDropHandler* delegate) { dropHandler_ = delegate; }

    // The gap where the drop line is shown, if one is.
    std::optional<int> DropIndicatorRow() const { return dropIndicatorRow_; }

  protected:
    // The drop a pointer at `position` (viewport coordinates) proposes.
    virtual std::pair<int, DropPosition> ProposedDrop(const QPoint& position) const = 0;
    // The table the delegate is told of; null while there is none.
    virtual ImageTableView* DropTable() = 0;

    void dragEnterEvent(QDragEnterEvent* event) override {
        if (!CarriesRegisteredType(event->mimeData())) {
            event->ignore();
            return;
        }
        // Only a widget that takes the enter is told of the moves that
        // follow. The view follows every drag it could take in some gap, so a
        // pointer that enters over the middle of a row can still move on
        // between rows; each position is then judged as the pointer moves.
        const DragInfo info{event->mimeData(), event->source()};
        const int gapAfterLastRow = this->model() != nullptr ? this->model()->rowCount() : 0;
        const bool takenInSomeGap =
            dropHandler_->canDropMimeData(*DropTable(), info, gapAfterLastRow,
                                          DropPosition::AboveItem) &&
            ActionForTakingFiles(event->possibleActions()) != Qt::IgnoreAction;
        if (!takenInSomeGap) {
            event->ignore();
            return;
        }
        this->setState(View::DraggingState);
        AnswerProposedDrop(*event);
        event->accept();
    }

    void dragMoveEvent(QDragMoveEvent* event) override {
        if (!CarriesRegisteredType(event->mimeData())) {
            event->ignore();
            return;
        }
        AnswerProposedDrop(*event);
        const QPoint position = event->position().toPoint();
        const QRect area = this->viewport()->rect();
        if (this->hasAutoScroll() && (position.y() - area.top() < this->autoScrollMargin() ||
                                      area.bottom() - position.y() < this->autoScrollMargin())) {
            this->startAutoScroll();
        }
    }

    void dragLeaveEvent(QDragLeaveEvent* event) override {
        EndDrag();
        event->accept();
    }

    void dropEvent(QDropEvent* event) override {
        // The drop is judged once more where it lands; only then is it taken.
        AnswerProposedDrop(*event);
        if (event->isAccepted()) {
            const auto [row, operation] = ProposedDrop(event->position().toPoint());
            const DragInfo info{event->mimeData(), event->source()};
            if (!dropHandler_->dropMimeData(*DropTable(), info, row, operation)) {
                event->ignore();
            }
        }
        EndDrag();
    }

  private:
    bool CarriesRegisteredType(const QMimeData* data) {
        if (data == nullptr || dropHandler_ == nullptr || DropTable() == nullptr) {
            return false;
        }
        return std::any_of(draggedTypes_.begin(), draggedTypes_.end(),
                           [data](const QString& type) { return data->hasFormat(type); });
    }

    // Asks the delegate about the drop at the event's position, shows or
    // hides the drop line and answers the event.
    void AnswerProposedDrop(QDropEvent& event) {
        if (!CarriesRegisteredType(event.mimeData())) {
            SetDropIndicatorRow(std::nullopt);
            event.ignore();
            return;
        }
        const auto [row, operation] = ProposedDrop(event.position().toPoint());
        const DragInfo info{event.mimeData(), event.source()};
        const bool taken = dropHandler_->canDropMimeData(*DropTable(), info, row, operation);
        const Qt::DropAction action =
            taken ? ActionForTakingFiles(event.possibleActions()) : Qt::IgnoreAction;
        if (action == Qt::IgnoreAction) {
            SetDropIndicatorRow(std::nullopt);
            event.setDropAction(Qt::IgnoreAction);
            event.ignore();
            return;
        }
        SetDropIndicatorRow(operation == DropPosition::AboveItem ? std::optional<int>(row)
                                                                 : std::nullopt);
        event.setDropAction(action);
        event.accept();
    }

    void SetDropIndicatorRow(std::optional<int> row) {
        if (dropIndicatorRow_ != row) {
            dropIndicatorRow_ = row;
            this->viewport()->update();
        }
    }

    void EndDrag() {
        SetDropIndicatorRow(std::nullopt);
        this->stopAutoScroll();
        this->setState(View::NoState);
    }

    QStringList draggedTypes_;
    ListDropHandler* dropHandler_ = nullptr;
    std::optional<int> dropIndicatorRow_;
};

}  // namespace vellumo
