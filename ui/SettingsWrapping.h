#pragma once

// The settings tabs' rows that would make a narrow tab scroll sideways wrap
// instead: at the window's smallest size, in a longer language, a row's
// second half goes under its first, so every tab fits its width.

namespace Ui {
class MainWindow;
}

namespace vellumo {

// The Crop tab's auto-crop row (the ratio list goes under the choice's
// text) and its custom rectangle (the percents go under the pixels).
void WrapCropTabRows(Ui::MainWindow& ui);

}  // namespace vellumo
