#pragma once

// The four dimension labels beside the preview and the note under it: the
// current image's size, the size the job writes for it under the settings
// (its adjusted rectangle, if any), and why that is the whole image or a
// clipped part, and whether only its first frame is written. Zeros and no
// note without an image.

#include <optional>

#include "batch/CropRectangle.h"
#include "batch/CropSettings.h"
#include "imaging/Geometry.h"

namespace Ui {
class MainWindow;
}

namespace vellumo {

class PreviewSession;

// The crop the job makes of the preview's image under `settings`: the
// output labels' size (a JPEG cropped without re-encoding on its block
// grid), and the output name's [Width], [Height] and [Ratio]. Only for an
// image the preview holds.
ResolvedCrop CropAsWritten(const PreviewSession& preview, const CropSettings& settings,
                           const std::optional<Rect>& adjusted);

void ShowDimensions(Ui::MainWindow& ui, const PreviewSession& preview, const CropSettings& settings,
                    const std::optional<Rect>& adjusted);

}  // namespace vellumo
