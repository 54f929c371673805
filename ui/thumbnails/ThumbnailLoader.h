#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <deque>
#include <memory>

#include "batch/PreviewDecoder.h"
#include "ui/thumbnails/ThumbnailCache.h"
#include "ui/thumbnails/ThumbnailMaker.h"

namespace vellumo {

// Makes the image list's thumbnails away from the GUI thread and keeps them
// in a cache bounded in bytes. Views paint only from the cache and say which
// thumbnails they miss, most wanted (the visible cells) first; each such
// wish replaces the last, so cells that have scrolled away are not made.
// At most kThreads are made at once, on a pool of their own; each result
// comes back to the GUI thread as a queued call, and one asked for before
// Forget is dropped. Everything but the making runs on the GUI thread.
class ThumbnailLoader : public QObject {
    Q_OBJECT

  public:
    static constexpr int kThreads = 2;

    explicit ThumbnailLoader(std::shared_ptr<PreviewDecoder> decoder,
                             qsizetype cacheBytes = ThumbnailCache::kDefaultCapacityBytes,
                             QObject* parent = nullptr);
    ~ThumbnailLoader() override;

    // The boxes the cell pictures and icons fit; cached thumbnails made for
    // other boxes are made again.
    void SetBoxes(ThumbnailBoxes boxes);
    ThumbnailBoxes boxes() const { return boxes_; }

    // The cached thumbnail of `path`; null when it is not (yet) made.
    const Thumbnail* Find(const QString& path) { return cache_.Find(path); }
    // True when `path` could not be made into a thumbnail.
    bool HasFailed(const QString& path) const { return failed_.contains(path); }

    // The thumbnails to make next, most wanted first, in place of those
    // asked for before and not yet begun. Paths cached, failed or under way
    // are left out.
    void Want(const QStringList& paths);
    // Drops every thumbnail and wish; results still under way are dropped
    // when they arrive.
    void Forget();

    // Nothing waiting and nothing under way.
    bool isIdle() const { return queue_.empty() && running_ == 0; }
    const ThumbnailCache& cache() const { return cache_; }

    // What came back, for tests and measurements.
    struct Deliveries {
        quint64 made = 0;              // decoded (and kept in the shared folder)
        quint64 fromSharedFolder = 0;  // read from the shared folder
        quint64 failed = 0;
        quint64 dropped = 0;   // arrived after Forget or SetBoxes
        quint64 standIns = 0;  // embedded thumbnails shown until the file's own came
    };
    const Deliveries& deliveries() const { return deliveries_; }

  Q_SIGNALS:
    // The thumbnail of `path` is now in the cache (or has failed); a stand-in
    // (Thumbnail::standIn) is followed by the file's own.
    void thumbnailChanged(const QString& path);

  private:
    void StartWhilePossible();
    void Deliver(quint64 generation, const QString& path, const MadeThumbnail& made);
    void DeliverStandIn(quint64 generation, const QString& path, const Thumbnail& standIn);

    std::shared_ptr<PreviewDecoder> decoder_;
    ThumbnailCache cache_;
    ThumbnailBoxes boxes_;
    QSet<QString> failed_;
    std::deque<QString> queue_;
    QSet<QString> underWay_;
    // Tasks given to the pool and not yet back, of any generation.
    int running_ = 0;
    // Tells results asked for before the last Forget from later ones.
    quint64 generation_ = 0;
    Deliveries deliveries_;
    // Last, so that it goes first: its tasks end before the rest goes.
    QThreadPool pool_;
};

}  // namespace vellumo
