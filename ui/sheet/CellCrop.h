#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "imaging/Geometry.h"

namespace vellumo {

// The crop a contact sheet cell shows for one file: the rectangle cut, in
// the full image's pixels (origin at the lower-left corner, y up), the size
// written, and whether the crop was adjusted by hand for this image.
struct CellCrop {
    Rect cut;
    Size outputSize;
    bool adjusted = false;
};

// The crop for the file at `path` whose full, upright pixel size is
// `fullSize`; nothing when it has none to show.
using CellCropProvider = std::function<std::optional<CellCrop>(const QString& path, Size fullSize)>;

}  // namespace vellumo
