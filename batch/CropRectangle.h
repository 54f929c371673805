#pragma once

#include "batch/CropSettings.h"
#include "imaging/Geometry.h"
#include "imaging/Image.h"

namespace vellumo {

// The one rule by which the crop settings and an image become a crop
// rectangle, used alike by the preview, the dimension labels and the job.
// The first match wins:
//   1. auto-crop on: the auto-crop rectangle of the chosen ratio;
//   2. custom crop off: (0, 0, 0, 0);
//   3. pixels on: the four pixel fields, widened to double;
//   4. percents on: each percent times the image's side, divided by 100, in
//      single precision (the side narrowed first), then widened;
//   5. otherwise: (0, 0, 0, 0).
// Nothing is rounded, checked or clamped here.
Rect ResolveCropRectangle(const CropSettings& settings, const Image& image);

}  // namespace vellumo
