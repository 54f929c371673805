#pragma once

// The window's rectangles adjusted by hand, one per image path, and their
// history: every adjustment and reset is a step of an undo stack, so Edit →
// Undo and Redo give back exact rectangles. A plan opened replaces them all
// and starts a new history.

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QUndoStack>

class QAction;
#include <optional>

#include "batch/CropAdjustments.h"
#include "imaging/Geometry.h"

namespace vellumo {

class CropAdjustmentStore : public QObject {
    Q_OBJECT

  public:
    using Rects = QHash<QString, Rect>;

    explicit CropAdjustmentStore(QObject* parent = nullptr);

    std::optional<Rect> Adjustment(const QString& path) const;
    bool IsAdjusted(const QString& path) const { return rects_.contains(path); }
    // Whether any of `paths` is adjusted.
    bool AnyAdjusted(const QStringList& paths) const;
    const Rects& rects() const { return rects_; }

    // The adjustments of the listed images, as the job reads them (paths in
    // the file system's encoding).
    CropAdjustments ForJob(const QStringList& paths) const;

    // Undoable steps. Consecutive key presses on one image merge into one
    // step, so one Undo takes back a whole run of arrow presses.
    void Adjust(const QString& path, const Rect& rect, bool byKeys);
    // The images among `paths` that are adjusted return to the rule; nothing
    // happens (and no step is made) when none is.
    void Reset(const QStringList& paths, const QString& stepName);

    // Replaces every adjustment (a plan opened, the list emptied); the
    // history starts anew and counts as saved.
    void ReplaceAll(const Rects& rects);
    // Forgets the adjustments of images that left the list.
    void Forget(const QStringList& paths);

    QUndoStack& undoStack() { return undo_; }
    // Edit → Undo and Redo: they undo and redo the history's steps, are
    // enabled while there is one, and name it ("Undo Move Crop").
    void ConnectUndoActions(QAction& undo, QAction& redo);
    // Adjustments exist that were made (or reset) since the last save.
    bool HasUnsavedAdjustments() const { return !undo_.isClean() && !rects_.isEmpty(); }
    void MarkSaved() { undo_.setClean(); }

  Q_SIGNALS:
    // The adjustments of these paths changed.
    void adjustmentsChanged(const QStringList& paths);

  private:
    friend class SetRectsCommand;
    void Apply(const QHash<QString, std::optional<Rect>>& rects);

    Rects rects_;
    QUndoStack undo_;
};

}  // namespace vellumo
