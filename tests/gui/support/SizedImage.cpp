// Kept apart from the window tests: it reaches the pixel library's headers.

#include "tests/gui/support/SizedImage.h"

#include "tests/support/TestImages.h"

namespace vellumo::test {

Image SizedImage(double width, double height) {
    return MakeSizedImage(width, height);
}

}  // namespace vellumo::test
