#pragma once

// Pictures of the rows around the selected one, decoded ahead in the
// background, and recent pictures kept, so that moving through the list
// with the arrow keys shows each photo at once. Bounded in bytes; a file
// changed on disk since its picture was made is decoded again. Prefetching
// runs on a thread of its own at the lowest priority, so it never delays
// the picture of the row just selected.

#include <QDateTime>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <list>
#include <memory>
#include <optional>

#include "batch/PreviewDecoder.h"

namespace vellumo {

class PreviewPrefetch : public QObject {
    Q_OBJECT

  public:
    static constexpr qsizetype kByteBound = qsizetype{64} * 1024 * 1024;

    struct Picture {
        PreviewResult result;
        QImage plain;  // the picture ready to draw
    };

    explicit PreviewPrefetch(QObject* parent = nullptr);
    ~PreviewPrefetch() override;

    // The kept picture of `path` made for pictures of `side` pixels, if any.
    std::optional<Picture> Find(const QString& path, int side);
    // Keeps a picture decoded elsewhere (the selected row's).
    void Keep(const QString& path, int side, const Picture& picture);
    // Decodes these files ahead, in this order, skipping kept ones; what was
    // asked before and has not begun is dropped.
    void Prefetch(const QStringList& paths, int side,
                  const std::shared_ptr<PreviewDecoder>& decoder);
    // Forgets every kept picture (the list was emptied, say).
    void Clear();

    qsizetype bytes() const { return bytes_; }

  Q_SIGNALS:
    // A prefetched picture was kept.
    void kept(const QString& path);

  private:
    struct Entry {
        QString path;
        int side = 0;
        QDateTime modified;
        Picture picture;
        qsizetype bytes = 0;
    };
    using Entries = std::list<Entry>;

    Entries::iterator Lookup(const QString& path, int side);
    void Insert(const QString& path, int side, const QDateTime& modified, const Picture& picture);

    Entries entries_;  // most recently used first
    qsizetype bytes_ = 0;
    quint64 generation_ = 0;  // counts the times everything was forgotten
    QThreadPool work_;
};

}  // namespace vellumo
