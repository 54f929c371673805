#pragma once

// Rectangles adjusted by hand: for some images of a list, a crop rectangle
// of their own in place of the rule's, in that image's own pixels with the
// origin at its lower-left corner (as every rectangle of the program).
// Images are named by their path, which is unique in a list.

#include <map>
#include <string>

#include "imaging/Geometry.h"

namespace vellumo {

using CropAdjustments = std::map<std::string, Rect>;

}  // namespace vellumo
