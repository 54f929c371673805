#pragma once

// The line under the name field that shows what the name template makes of
// one listed image: "Becomes: beach_1600x900 (3).jpg". Its values come from
// the path, the list and what the window already knows of the image (the
// output's size once its preview is read); the window never reads a file's
// metadata itself (that is parsed in the worker), so [Date] and [Camera],
// and the size before the preview is read, are shown as the tokens they are.
// The name the job writes may still get a number when it clashes with
// another image's.

#include <QString>
#include <optional>

#include "batch/CropSettings.h"
#include "imaging/Geometry.h"

namespace vellumo {

struct NameExample {
    QString path;    // the image; empty: none is listed
    long index = 0;  // its place in the list, from 0
    // The size its crop is written at, when known.
    std::optional<Size> outputSize;
};

// The output's file name (no folder) for `example` under `settings`: the
// template's problem instead when it cannot be read; the image's own name
// when the originals are replaced; empty without an image.
QString OutputFileNameText(const CropSettings& settings, const NameExample& example);

// The line as the label shows it: "Becomes: …", the problem, or empty.
QString OutputNameLine(const CropSettings& settings, const NameExample& example);

}  // namespace vellumo
