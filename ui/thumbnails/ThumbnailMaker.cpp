#include "ui/thumbnails/ThumbnailMaker.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include "ui/preview/PreviewPicture.h"
#include "ui/thumbnails/SharedThumbnails.h"

namespace vellumo {

namespace {

QImage Fitted(const QImage& picture, int side) {
    return picture.scaled(QSize(side, side), Qt::KeepAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

Thumbnail Completed(const QImage& picture, Size fullSize, int pages, ThumbnailBoxes boxes) {
    Thumbnail thumbnail;
    thumbnail.picture = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    thumbnail.cellPicture = Fitted(thumbnail.picture, boxes.cellSide);
    thumbnail.cellPicture.setDevicePixelRatio(boxes.devicePixelRatio);
    thumbnail.rowIcon = Fitted(thumbnail.picture, boxes.iconSide);
    thumbnail.fullSize = fullSize;
    thumbnail.pages = pages;
    return thumbnail;
}

// A camera's thumbnail is read in a few milliseconds, where decoding a
// large photo takes a tenth of a second or more.
void GiveStandIn(PreviewDecoder& decoder, const std::string& file, ThumbnailBoxes boxes,
                 const StandInSink& standIn) {
    const PreviewResult embedded = decoder.DecodeEmbedded(file, boxes.cellSide);
    if (!embedded) {
        return;
    }
    const QImage picture = PictureAsQImage(embedded->picture);
    if (picture.isNull()) {
        return;
    }
    Thumbnail thumbnail = Completed(picture, embedded->fullSize, embedded->pages, boxes);
    thumbnail.standIn = true;
    standIn(thumbnail);
}

}  // namespace

MadeThumbnail MakeThumbnail(PreviewDecoder& decoder, const QString& path, ThumbnailBoxes boxes,
                            const StandInSink& standIn) {
    MadeThumbnail made;
    const QFileInfo file(path);
    if (!file.isFile()) {
        made.failure = QCoreApplication::translate("ThumbnailMaker", "the file is missing");
        return made;
    }
    const qint64 mtime = file.lastModified().toSecsSinceEpoch();
    // Thumbnails of the thumbnails themselves are not kept.
    const bool sharable = !file.absoluteFilePath().startsWith(SharedThumbnailFolder() + '/');
    if (sharable) {
        if (std::optional<SharedThumbnail> kept = ReadSharedThumbnail(path, mtime)) {
            made.thumbnail = Completed(kept->picture, kept->fullSize, kept->pages, boxes);
            made.fromSharedFolder = true;
            return made;
        }
    }
    const std::string encoded = QFile::encodeName(path).toStdString();
    if (standIn) {
        GiveStandIn(decoder, encoded, boxes, standIn);
    }
    const PreviewResult decoded = decoder.Decode(encoded, kThumbnailSide);
    if (!decoded) {
        made.failure = QString::fromStdString(decoded.reason());
        return made;
    }
    const QImage picture = PictureAsQImage(decoded->picture);
    if (picture.isNull()) {
        made.failure = QCoreApplication::translate("ThumbnailMaker", "the picture has no pixels");
        return made;
    }
    if (sharable) {
        // A thumbnail that cannot be kept is still shown.
        WriteSharedThumbnail(path, mtime,
                             SharedThumbnail{picture, decoded->fullSize, decoded->pages});
    }
    made.thumbnail = Completed(picture, decoded->fullSize, decoded->pages, boxes);
    return made;
}

}  // namespace vellumo
