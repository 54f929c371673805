#pragma once

// The thumbnail folder that file managers and image viewers share (the
// freedesktop.org thumbnail convention): one PNG per file in
// $XDG_CACHE_HOME/thumbnails/large (~/.cache/thumbnails/large by default),
// named by the MD5 of the file's URI, at most 256 pixels on its longer side,
// with the file's URI and modification time in its text chunks. A thumbnail
// is only good while both still match. Everything here may run on any thread
// and touches no shared state.

#include <QByteArray>
#include <QImage>
#include <QString>
#include <optional>

#include "imaging/Geometry.h"

namespace vellumo {

// The "file:///..." URI of an absolute path, escaped as GLib escapes it (so
// the names agree with those other programs write).
QByteArray ThumbnailUri(const QString& path);

// The folder of large thumbnails, from $XDG_CACHE_HOME when it is an
// absolute path, else ~/.cache.
QString SharedThumbnailFolder();

// Where the thumbnail of `path` is kept: <folder>/<md5 of its URI>.png.
QString SharedThumbnailPath(const QString& path);

struct SharedThumbnail {
    QImage picture;
    Size fullSize;  // upright
    int pages = 1;
};

// The kept thumbnail of `path` when there is one for this URI and this
// modification time (seconds since the epoch) that also tells the file's
// full size; nothing otherwise.
std::optional<SharedThumbnail> ReadSharedThumbnail(const QString& path, qint64 mtimeSeconds);

// Keeps `thumbnail` for `path` as modified at `mtimeSeconds`. The PNG is
// written to a temporary file in the same folder (mode 0600) and renamed
// over the old one, so readers never see a part of it; missing folders are
// made with mode 0700. False when it could not be written.
bool WriteSharedThumbnail(const QString& path, qint64 mtimeSeconds,
                          const SharedThumbnail& thumbnail);

}  // namespace vellumo
