#pragma once

#include <QStringList>

namespace vellumo {

// The auto-crop aspect ratios as the pop-up list shows them; the index is
// the auto-crop ratios (kAutoCropRatios, then "Custom…").
QStringList AutoCropFormatTitles();  // "1:1", "4:3", "3:2", "16:9"

// The output formats as the pop-up list shows them; the index is the output
// format (kOutputFormats), the lower-cased title the output file's
// extension.
QStringList OutputFormatTitles();  // "JPG" ... "BMP"

}  // namespace vellumo
