#pragma once

#include <QStringList>

namespace vellumo {

// The auto-crop aspect ratios; the index is the auto-crop format.
QStringList AutoCropFormatTitles();  // "1:1", "4:3", "3:2", "16:9"

// The output formats; the index is the output format, the lower-cased title
// the output file's extension.
QStringList OutputFormatTitles();  // "JPG" ... "BMP"

// True for the formats that take a quality: indices 0 to 4, the JPEG and
// JPEG 2000 family. False for the rest and for no selection (-1).
bool OutputFormatTakesQuality(int index);

}  // namespace vellumo
