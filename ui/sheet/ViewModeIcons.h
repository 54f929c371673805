#pragma once

// The small pictures on the buttons that show the image list as a list or
// as a contact sheet, drawn in the palette's text colour.

#include <QIcon>
#include <QPalette>

namespace vellumo {

QIcon ListModeIcon(const QPalette& palette);
QIcon ContactSheetModeIcon(const QPalette& palette);

}  // namespace vellumo
