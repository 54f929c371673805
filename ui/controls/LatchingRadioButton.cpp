#include "ui/controls/LatchingRadioButton.h"

namespace vellumo {

LatchingRadioButton::LatchingRadioButton(QWidget* parent) : QRadioButton(parent) {
    setAutoExclusive(false);
}

LatchingRadioButton::LatchingRadioButton(const QString& text, QWidget* parent)
    : QRadioButton(text, parent) {
    setAutoExclusive(false);
}

void LatchingRadioButton::nextCheckState() {
    setChecked(true);
}

}  // namespace vellumo
