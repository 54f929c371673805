#pragma once

#include <QHash>
#include <QString>
#include <list>

#include "ui/thumbnails/Thumbnail.h"

namespace vellumo {

// The thumbnails made so far, by file path, bounded by the bytes their
// pixels take rather than by their number: the longest list stays within the
// bound, and the entries used least recently leave first. GUI thread only.
class ThumbnailCache {
  public:
    // 160 MB: some 400 thumbnails with their cell pictures, several screens
    // of a contact sheet, well under 200 MB however long the list.
    static constexpr qsizetype kDefaultCapacityBytes = qsizetype{160} * 1024 * 1024;

    explicit ThumbnailCache(qsizetype capacityBytes = kDefaultCapacityBytes);

    // The thumbnail of `path`, now the most recently used; null when none.
    const Thumbnail* Find(const QString& path);
    // The same without counting as a use.
    bool Contains(const QString& path) const { return index_.contains(path); }
    // Keeps `thumbnail` for `path` (replacing any), then lets the least
    // recently used go until the bound holds again. A thumbnail larger than
    // the whole bound is not kept.
    void Insert(const QString& path, Thumbnail thumbnail);
    void Remove(const QString& path);
    void Clear();

    qsizetype bytes() const { return bytes_; }
    qsizetype capacityBytes() const { return capacityBytes_; }
    qsizetype count() const { return index_.size(); }

  private:
    struct Entry {
        QString path;
        Thumbnail thumbnail;
        qsizetype bytes = 0;
    };
    using Entries = std::list<Entry>;  // most recently used first

    void Erase(Entries::iterator entry);

    qsizetype capacityBytes_;
    qsizetype bytes_ = 0;
    Entries entries_;
    QHash<QString, Entries::iterator> index_;
};

}  // namespace vellumo
