#include "ui/preview/CropAdjustmentStore.h"

#include <QAction>
#include <QFile>
#include <QUndoCommand>

namespace vellumo {

void CropAdjustmentStore::ConnectUndoActions(QAction& undo, QAction& redo) {
    connect(&undo, &QAction::triggered, &undo_, &QUndoStack::undo);
    connect(&redo, &QAction::triggered, &undo_, &QUndoStack::redo);
    undo.setEnabled(undo_.canUndo());
    redo.setEnabled(undo_.canRedo());
    connect(&undo_, &QUndoStack::canUndoChanged, &undo, &QAction::setEnabled);
    connect(&undo_, &QUndoStack::canRedoChanged, &redo, &QAction::setEnabled);
    connect(&undo_, &QUndoStack::undoTextChanged, &undo, [&undo](const QString& step) {
        undo.setText(step.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(step));
    });
    connect(&undo_, &QUndoStack::redoTextChanged, &redo, [&redo](const QString& step) {
        redo.setText(step.isEmpty() ? tr("&Redo") : tr("&Redo %1").arg(step));
    });
}

using Changes = QHash<QString, std::optional<Rect>>;

// One step of the history: the rectangles of some images before and after
// (none: the image follows the rule).
class SetRectsCommand : public QUndoCommand {
  public:
    // Key presses on one image share this id, and merge.
    static constexpr int kKeyNudgeId = 1;

    SetRectsCommand(CropAdjustmentStore& store, const QString& name, Changes before, Changes after,
                    bool byKeys)
        : QUndoCommand(name),
          store_(store),
          before_(std::move(before)),
          after_(std::move(after)),
          byKeys_(byKeys) {}

    void redo() override { store_.Apply(after_); }
    void undo() override { store_.Apply(before_); }
    int id() const override { return byKeys_ ? kKeyNudgeId : -1; }
    bool mergeWith(const QUndoCommand* other) override {
        const auto* next = static_cast<const SetRectsCommand*>(other);
        if (next->after_.keys() != after_.keys()) {
            return false;
        }
        after_ = next->after_;
        return true;
    }

  private:
    CropAdjustmentStore& store_;
    Changes before_;
    Changes after_;
    bool byKeys_;
};

CropAdjustmentStore::CropAdjustmentStore(QObject* parent) : QObject(parent) {}

std::optional<Rect> CropAdjustmentStore::Adjustment(const QString& path) const {
    const auto found = rects_.constFind(path);
    if (found == rects_.constEnd()) {
        return std::nullopt;
    }
    return *found;
}

bool CropAdjustmentStore::AnyAdjusted(const QStringList& paths) const {
    for (const QString& path : paths) {
        if (rects_.contains(path)) {
            return true;
        }
    }
    return false;
}

CropAdjustments CropAdjustmentStore::ForJob(const QStringList& paths) const {
    CropAdjustments adjustments;
    for (const QString& path : paths) {
        if (const auto found = rects_.constFind(path); found != rects_.constEnd()) {
            adjustments[QFile::encodeName(path).toStdString()] = *found;
        }
    }
    return adjustments;
}

void CropAdjustmentStore::Adjust(const QString& path, const Rect& rect, bool byKeys) {
    if (Adjustment(path) == rect) {
        return;
    }
    undo_.push(new SetRectsCommand(*this, tr("Adjust Crop"), {{path, Adjustment(path)}},
                                   {{path, rect}}, byKeys));
}

void CropAdjustmentStore::Reset(const QStringList& paths, const QString& stepName) {
    Changes before;
    Changes after;
    for (const QString& path : paths) {
        if (const auto found = rects_.constFind(path); found != rects_.constEnd()) {
            before.insert(path, *found);
            after.insert(path, std::nullopt);
        }
    }
    if (!after.isEmpty()) {
        undo_.push(new SetRectsCommand(*this, stepName, before, after, false));
    }
}

void CropAdjustmentStore::ReplaceAll(const Rects& rects) {
    QStringList changed = rects_.keys();
    changed += rects.keys();
    rects_ = rects;
    undo_.clear();
    Q_EMIT adjustmentsChanged(changed);
}

void CropAdjustmentStore::Forget(const QStringList& paths) {
    QStringList changed;
    for (const QString& path : paths) {
        if (rects_.remove(path) > 0) {
            changed.push_back(path);
        }
    }
    if (!changed.isEmpty()) {
        Q_EMIT adjustmentsChanged(changed);
    }
}

void CropAdjustmentStore::Apply(const Changes& rects) {
    for (auto it = rects.constBegin(); it != rects.constEnd(); ++it) {
        if (it.value()) {
            rects_.insert(it.key(), *it.value());
        } else {
            rects_.remove(it.key());
        }
    }
    Q_EMIT adjustmentsChanged(rects.keys());
}

}  // namespace vellumo
