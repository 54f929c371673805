#pragma once

// Dropping files into the image list, shared by its two views (the table and
// the contact sheet). A drag of a type the model takes (its mimeTypes) is
// followed when it could be taken in some gap; each position is judged by
// the model's canDropMimeData, an accepted gap shows the view's drop line,
// the view scrolls near its edges, and the drop is carried out by the
// model's dropMimeData where it lands.

#include <QAbstractItemView>
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

// Where a drop would go: onto a row, or into the gap above a row (the row
// equal to the number of rows is the gap below the last one), as Qt's item
// views name the places of their drop indicator.
enum class DropPosition { OnItem, AboveItem };

// Rows are not dragged within or between item views, ours included: a drag
// whose source is an item view of this program (or the viewport of one) is
// refused.
inline bool StartedInAnItemView(const QObject* source) {
    if (source == nullptr) {
        return false;
    }
    if (qobject_cast<const QAbstractItemView*>(source) != nullptr) {
        return true;
    }
    const auto* view = qobject_cast<const QAbstractItemView*>(source->parent());
    return view != nullptr && view->viewport() == source;
}

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
// it extends; the view says where a position's drop goes (ProposedDrop) and
// paints the line at DropIndicatorRow.
template <class View>
class FileDropView : public View {
  public:
    using View::View;

    // Takes drags of the types the view's model takes (its mimeTypes).
    void AcceptModelDrops() {
        const QStringList mimeTypes =
            this->model() != nullptr ? this->model()->mimeTypes() : QStringList();
        // Drops arrive at the viewport; the view itself stays out of it, or a
        // drag the viewport refused would be offered to the view a second
        // time.
        this->setAcceptDrops(false);
        this->viewport()->setAcceptDrops(!mimeTypes.isEmpty());
    }
    // The gap where the drop line is shown, if one is.
    std::optional<int> DropIndicatorRow() const { return dropIndicatorRow_; }

  protected:
    // The drop a pointer at `position` (viewport coordinates) proposes.
    virtual std::pair<int, DropPosition> ProposedDrop(const QPoint& position) const = 0;
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (!CarriesRegisteredType(event->mimeData())) {
            event->ignore();
            return;
        }
        // Only a widget that takes the enter is told of the moves that
        // follow. The view follows every drag it could take in some gap, so a
        // pointer that enters over the middle of a row can still move on
        // between rows; each position is then judged as the pointer moves.
        const int gapAfterLastRow = this->model()->rowCount();
        const bool takenInSomeGap =
            ModelTakes(*event, gapAfterLastRow, DropPosition::AboveItem) != Qt::IgnoreAction;
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
            if (!this->model()->dropMimeData(event->mimeData(), event->dropAction(),
                                             ModelRow(row, operation), 0,
                                             ModelParent(row, operation))) {
                event->ignore();
            }
        }
        EndDrag();
    }

  private:
    bool CarriesRegisteredType(const QMimeData* data) {
        if (data == nullptr || this->model() == nullptr) {
            return false;
        }
        const QStringList types = this->model()->mimeTypes();
        return std::any_of(types.begin(), types.end(),
                           [data](const QString& type) { return data->hasFormat(type); });
    }

    // In Qt's terms, a drop into the gap above `row` is at that row with no
    // parent; a drop onto `row` is at no row, with that row as its parent.
    static int ModelRow(int row, DropPosition position) {
        return position == DropPosition::AboveItem ? row : -1;
    }
    QModelIndex ModelParent(int row, DropPosition position) const {
        return position == DropPosition::OnItem ? this->model()->index(row, 0) : QModelIndex();
    }

    // The action with which the model would take the drag at `row`
    // (IgnoreAction when it would not).
    Qt::DropAction ModelTakes(const QDropEvent& event, int row, DropPosition position) const {
        if (StartedInAnItemView(event.source())) {
            return Qt::IgnoreAction;
        }
        const Qt::DropAction action = ActionForTakingFiles(event.possibleActions());
        if (action == Qt::IgnoreAction ||
            !this->model()->canDropMimeData(event.mimeData(), action, ModelRow(row, position), 0,
                                            ModelParent(row, position))) {
            return Qt::IgnoreAction;
        }
        return action;
    }

    // Asks the model about the drop at the event's position, shows or
    // hides the drop line and answers the event.
    void AnswerProposedDrop(QDropEvent& event) {
        if (!CarriesRegisteredType(event.mimeData())) {
            SetDropIndicatorRow(std::nullopt);
            event.ignore();
            return;
        }
        const auto [row, operation] = ProposedDrop(event.position().toPoint());
        const Qt::DropAction action = ModelTakes(event, row, operation);
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

    std::optional<int> dropIndicatorRow_;
};

}  // namespace vellumo
