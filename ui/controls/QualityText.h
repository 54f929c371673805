#pragma once

#include <QString>

namespace vellumo {

// The quality label's text for the slider's value read in single precision:
// the value rounded down to a whole number, "1" for any value up to 1 (so
// the label never shows 0, although the slider can reach it). A value that
// is not finite, or whose floor is beyond the 64-bit signed range, stops the
// program.
QString QualityText(float value);

}  // namespace vellumo
