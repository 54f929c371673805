#pragma once

#include <QString>

namespace vellumo {

inline constexpr char kWidthCaption[] = "Width: ";
inline constexpr char kHeightCaption[] = "Height: ";

// A dimension label's text: the caption and the value made whole by
// truncation toward zero ("Width: " and 2.9 give "Width: 2"). A value that is
// not a finite number within the 64-bit signed range stops the program.
QString DimensionText(const char* caption, double value);

}  // namespace vellumo
