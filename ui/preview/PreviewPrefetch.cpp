#include "ui/preview/PreviewPrefetch.h"

#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QThread>

#include "ui/preview/PreviewPicture.h"

namespace vellumo {

namespace {

QDateTime ModifiedTime(const QString& path) {
    return QFileInfo(path).lastModified();
}

qsizetype BytesOf(const PreviewPrefetch::Picture& picture) {
    qsizetype bytes = picture.plain.sizeInBytes();
    if (picture.result) {
        // The decoded picture itself: 8-bit samples, up to four bands.
        bytes += static_cast<qsizetype>(picture.result->picture.Width() *
                                        picture.result->picture.Height() * 4.0);
    }
    return bytes;
}

}  // namespace

PreviewPrefetch::PreviewPrefetch(QObject* parent) : QObject(parent) {
    work_.setMaxThreadCount(1);
    work_.setThreadPriority(QThread::LowestPriority);
}

PreviewPrefetch::~PreviewPrefetch() {
    work_.clear();
    work_.waitForDone();
}

PreviewPrefetch::Entries::iterator PreviewPrefetch::Lookup(const QString& path, int side) {
    for (auto it = entries_.begin(); it != entries_.end(); ++it) {
        if (it->side == side && it->path == path) {
            return it;
        }
    }
    return entries_.end();
}

std::optional<PreviewPrefetch::Picture> PreviewPrefetch::Find(const QString& path, int side) {
    const auto found = Lookup(path, side);
    if (found == entries_.end()) {
        return std::nullopt;
    }
    if (found->modified != ModifiedTime(path)) {
        bytes_ -= found->bytes;
        entries_.erase(found);
        return std::nullopt;
    }
    entries_.splice(entries_.begin(), entries_, found);
    return entries_.front().picture;
}

void PreviewPrefetch::Keep(const QString& path, int side, const Picture& picture) {
    Insert(path, side, ModifiedTime(path), picture);
}

void PreviewPrefetch::Insert(const QString& path, int side, const QDateTime& modified,
                             const Picture& picture) {
    if (!picture.result) {
        return;  // a file that cannot be shown is decoded again, and says why
    }
    if (const auto old = Lookup(path, side); old != entries_.end()) {
        bytes_ -= old->bytes;
        entries_.erase(old);
    }
    Entry entry{path, side, modified, picture, BytesOf(picture)};
    bytes_ += entry.bytes;
    entries_.push_front(std::move(entry));
    while (bytes_ > kByteBound && entries_.size() > 1) {
        bytes_ -= entries_.back().bytes;
        entries_.pop_back();
    }
}

void PreviewPrefetch::Prefetch(const QStringList& paths, int side,
                               const std::shared_ptr<PreviewDecoder>& decoder) {
    work_.clear();
    const quint64 generation = generation_;
    for (const QString& path : paths) {
        if (Lookup(path, side) != entries_.end()) {
            continue;
        }
        work_.start([self = QPointer<PreviewPrefetch>(this), decoder, path, side, generation] {
            const QDateTime modified = ModifiedTime(path);
            Picture picture{decoder->Decode(QFile::encodeName(path).toStdString(), side), {}};
            if (picture.result) {
                picture.plain = PictureAsQImage(picture.result->picture);
            }
            QMetaObject::invokeMethod(
                self,
                [self, path, side, modified, picture = std::move(picture), generation] {
                    if (!self || generation != self->generation_) {
                        return;  // forgotten since it was asked for
                    }
                    self->Insert(path, side, modified, picture);
                    Q_EMIT self->kept(path);
                },
                Qt::QueuedConnection);
        });
    }
}

void PreviewPrefetch::Clear() {
    work_.clear();
    ++generation_;
    entries_.clear();
    bytes_ = 0;
}

}  // namespace vellumo
