#pragma once

#include <QImage>

#include "imaging/Geometry.h"

namespace vellumo {

// What the image list shows of one file before it is selected: small
// pictures of it, upright, and what its file holds in full.
struct Thumbnail {
    // At most kThumbnailSide pixels on its longer side (never enlarged).
    QImage picture;
    // The picture scaled once, away from the GUI thread, to the size a
    // contact sheet cell and a list row draw it at, so painting only copies.
    QImage cellPicture;
    QImage rowIcon;
    // The file's full pixel size, upright (after its EXIF orientation).
    Size fullSize;
    int pages = 1;
    // The small picture a camera stored in the file, shown until the file's
    // own thumbnail is made.
    bool standIn = false;
};

// The freedesktop "large" thumbnail size, which file managers share.
inline constexpr int kThumbnailSide = 256;

// The memory a thumbnail's pixels take.
inline qsizetype ThumbnailBytes(const Thumbnail& thumbnail) {
    return thumbnail.picture.sizeInBytes() + thumbnail.cellPicture.sizeInBytes() +
           thumbnail.rowIcon.sizeInBytes();
}

}  // namespace vellumo
