#pragma once

// Making one file's thumbnail, on a worker thread: from the shared thumbnail
// folder when it holds a good one, else decoded and then kept there for the
// next time (and for other programs).

#include <QSize>
#include <QString>
#include <functional>
#include <optional>

#include "batch/PreviewDecoder.h"
#include "ui/thumbnails/Thumbnail.h"

namespace vellumo {

// The boxes, in device pixels, that a thumbnail's cell picture and row icon
// are scaled to fit.
struct ThumbnailBoxes {
    int cellSide = 160;
    int iconSide = 40;
    // The screen's, given to the cell picture so that it is drawn at the
    // box's logical size.
    qreal devicePixelRatio = 1.0;
};

struct MadeThumbnail {
    std::optional<Thumbnail> thumbnail;
    bool fromSharedFolder = false;
    QString failure;  // why there is none
};

// Given the file's embedded thumbnail (Thumbnail::standIn), when it has one
// that fills a cell, before the file is decoded.
using StandInSink = std::function<void(const Thumbnail&)>;

// Never throws; safe on any thread while `decoder` is.
MadeThumbnail MakeThumbnail(PreviewDecoder& decoder, const QString& path, ThumbnailBoxes boxes,
                            const StandInSink& standIn = {});

}  // namespace vellumo
