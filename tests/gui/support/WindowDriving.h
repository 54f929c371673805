#pragma once

// Driving the loaded window as a person would: clicking rows, radios and
// buttons, typing into fields, stepping steppers, and waiting for what the
// window does away from the GUI thread.

#include <QImage>
#include <QString>

#include "tests/gui/support/LoadedWindow.h"

class QAbstractButton;
class QComboBox;
class QLineEdit;

namespace vellumo::test {

// Clicks the row in the image table, then waits until its preview is shown.
void ClickRow(LoadedWindow& loaded, int row);
// Ctrl-clicks the selected row, which leaves no row selected.
void DeselectRow(LoadedWindow& loaded, int row);

// Waits (up to `timeoutMs`) until the preview shows what was asked for last;
// false when it did not come. The bound is generous: nothing is timed here,
// and a decode can take 20 s when other builds and tests share the cores.
bool WaitForPreview(LoadedWindow& loaded, int timeoutMs = 60000);

// The picture the preview shows now (at its decoded size, before the view
// scales it to the screen).
QImage PreviewPicture(LoadedWindow& loaded);

// Clicks a button (a radio on its round mark, a push button in its middle).
void Click(QAbstractButton& button);
// Chooses an entry of a pop-up list with the keyboard, as a person would.
void Choose(QComboBox& combo, const QString& title);
// Replaces a field's text by typing.
void Type(QLineEdit& field, const QString& text);

// The text of a label of the window.
QString LabelText(LoadedWindow& loaded, const char* name);

// Presses "Crop Images" and waits until the job has ended and its report is
// shown (or a notice refused the job); false on time-out.
bool CropAndWait(LoadedWindow& loaded, int timeoutMs = 60000);

}  // namespace vellumo::test
