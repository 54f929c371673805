#pragma once

#include "imaging/Image.h"

namespace vellumo::test {

// An image of the given size without pixels, as a loaded image would look to
// the window's geometry and labels.
Image SizedImage(double width, double height);

}  // namespace vellumo::test
