#include "ui/thumbnails/ThumbnailCache.h"

namespace vellumo {

namespace {

// What an entry costs beyond its pixels: the path, the list and hash nodes,
// the image headers. Counted so that tiny pictures cannot grow the cache
// without bound either.
constexpr qsizetype kEntryOverheadBytes = 512;

}  // namespace

ThumbnailCache::ThumbnailCache(qsizetype capacityBytes) : capacityBytes_(capacityBytes) {}

const Thumbnail* ThumbnailCache::Find(const QString& path) {
    const auto found = index_.constFind(path);
    if (found == index_.constEnd()) {
        return nullptr;
    }
    entries_.splice(entries_.begin(), entries_, *found);
    return &entries_.front().thumbnail;
}

void ThumbnailCache::Insert(const QString& path, Thumbnail thumbnail) {
    Remove(path);
    const qsizetype bytes = ThumbnailBytes(thumbnail) + kEntryOverheadBytes + path.size() * 2;
    if (bytes > capacityBytes_) {
        return;
    }
    entries_.push_front(Entry{path, std::move(thumbnail), bytes});
    index_.insert(path, entries_.begin());
    bytes_ += bytes;
    while (bytes_ > capacityBytes_ && !entries_.empty()) {
        Erase(std::prev(entries_.end()));
    }
}

void ThumbnailCache::Remove(const QString& path) {
    const auto found = index_.constFind(path);
    if (found != index_.constEnd()) {
        Erase(*found);
    }
}

void ThumbnailCache::Clear() {
    entries_.clear();
    index_.clear();
    bytes_ = 0;
}

void ThumbnailCache::Erase(Entries::iterator entry) {
    bytes_ -= entry->bytes;
    index_.remove(entry->path);
    entries_.erase(entry);
}

}  // namespace vellumo
