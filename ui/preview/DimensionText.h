#pragma once

#include <QCoreApplication>
#include <QString>

namespace vellumo {

inline constexpr char kWidthCaption[] = QT_TRANSLATE_NOOP("DimensionText", "Width: ");
inline constexpr char kHeightCaption[] = QT_TRANSLATE_NOOP("DimensionText", "Height: ");

// A dimension label's text: the caption and the value made whole by
// truncation toward zero ("Width: " and 2.9 give "Width: 2"), both in the
// window's language and its numbers (WindowLocale). A value that is
// not a finite number within the 64-bit signed range stops the program.
QString DimensionText(const char* caption, double value);

}  // namespace vellumo
