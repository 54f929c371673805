#include "ui/thumbnails/ThumbnailLoader.h"

#include <QThread>

#include "imaging/Fatal.h"

namespace vellumo {

ThumbnailLoader::ThumbnailLoader(std::shared_ptr<PreviewDecoder> decoder, qsizetype cacheBytes,
                                 QObject* parent)
    : QObject(parent), decoder_(std::move(decoder)), cache_(cacheBytes) {
    if (!decoder_) {
        Fatal("thumbnails need a decoder");
    }
    pool_.setMaxThreadCount(kThreads);
    // Below everything else (SCHED_IDLE on Linux): the scaling and PNG
    // writing done on these threads must not take turns from the GUI
    // thread on a machine of few cores (the bench measured frames of up to
    // 60 ms on two cores at normal priority, 15-18 ms at idle priority).
    pool_.setThreadPriority(QThread::IdlePriority);
}

ThumbnailLoader::~ThumbnailLoader() {
    pool_.clear();
    pool_.waitForDone();
}

void ThumbnailLoader::SetBoxes(ThumbnailBoxes boxes) {
    if (boxes.cellSide == boxes_.cellSide && boxes.iconSide == boxes_.iconSide &&
        boxes.devicePixelRatio == boxes_.devicePixelRatio) {
        return;
    }
    boxes_ = boxes;
    Forget();
}

void ThumbnailLoader::Want(const QStringList& paths) {
    queue_.clear();
    QSet<QString> queued;
    for (const QString& path : paths) {
        if (cache_.Contains(path) || failed_.contains(path) || underWay_.contains(path) ||
            queued.contains(path)) {
            continue;
        }
        queued.insert(path);
        queue_.push_back(path);
    }
    StartWhilePossible();
}

void ThumbnailLoader::Forget() {
    ++generation_;
    queue_.clear();
    underWay_.clear();
    failed_.clear();
    cache_.Clear();
}

void ThumbnailLoader::StartWhilePossible() {
    // The pool is never given more than it runs at once, so that what it
    // starts next is always the newest wish.
    while (!queue_.empty() && running_ < kThreads) {
        const QString path = queue_.front();
        queue_.pop_front();
        underWay_.insert(path);
        ++running_;
        pool_.start([this, decoder = decoder_, path, boxes = boxes_, generation = generation_] {
            const auto standIn = [this, generation, path](const Thumbnail& thumbnail) {
                QMetaObject::invokeMethod(
                    this,
                    [this, generation, path, thumbnail] {
                        DeliverStandIn(generation, path, thumbnail);
                    },
                    Qt::QueuedConnection);
            };
            const MadeThumbnail made = MakeThumbnail(*decoder, path, boxes, standIn);
            QMetaObject::invokeMethod(
                this, [this, generation, path, made] { Deliver(generation, path, made); },
                Qt::QueuedConnection);
        });
    }
}

void ThumbnailLoader::DeliverStandIn(quint64 generation, const QString& path,
                                     const Thumbnail& standIn) {
    if (generation != generation_ || !underWay_.contains(path)) {
        return;
    }
    ++deliveries_.standIns;
    cache_.Insert(path, standIn);
    Q_EMIT thumbnailChanged(path);
}

void ThumbnailLoader::Deliver(quint64 generation, const QString& path, const MadeThumbnail& made) {
    --running_;
    if (generation != generation_) {
        ++deliveries_.dropped;
        StartWhilePossible();
        return;
    }
    underWay_.remove(path);
    if (made.thumbnail) {
        ++(made.fromSharedFolder ? deliveries_.fromSharedFolder : deliveries_.made);
        cache_.Insert(path, *made.thumbnail);
    } else {
        ++deliveries_.failed;
        failed_.insert(path);
        // A file that cannot be decoded shows no picture, whatever its
        // camera stored.
        cache_.Remove(path);
    }
    StartWhilePossible();
    Q_EMIT thumbnailChanged(path);
}

}  // namespace vellumo
