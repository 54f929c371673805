#include "ui/controls/Stepper.h"

#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <algorithm>

#include "ui/controls/FocusFrameStyle.h"

namespace vellumo {

Stepper::Stepper(QWidget* parent) : QAbstractSpinBox(parent) {
    // The number is shown by the text field beside the stepper.
    lineEdit()->hide();
    // Without the text field's frame only the arrow buttons are drawn.
    setFrame(false);
    setButtonSymbols(QAbstractSpinBox::UpDownArrows);
    setWrapping(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Stepper::setValue(double value) {
    value_ = Bounded(value);
    update();
}

void Stepper::setMinimum(double minimum) {
    minimum_ = minimum;
    maximum_ = std::max(maximum_, minimum_);
    setValue(value_);
}

void Stepper::setMaximum(double maximum) {
    maximum_ = maximum;
    minimum_ = std::min(minimum_, maximum_);
    setValue(value_);
}

void Stepper::setIncrement(double increment) {
    increment_ = increment;
}

void Stepper::stepBy(int steps) {
    const double stepped = Bounded(value_ + steps * increment_);
    if (stepped == value_) {
        return;
    }
    value_ = stepped;
    update();
    Q_EMIT valueStepped(value_);
}

QAbstractSpinBox::StepEnabled Stepper::stepEnabled() const {
    StepEnabled enabled = StepNone;
    if (value_ < maximum_) {
        enabled |= StepUpEnabled;
    }
    if (value_ > minimum_) {
        enabled |= StepDownEnabled;
    }
    return enabled;
}

QSize Stepper::sizeHint() const {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    option.rect = QRect(0, 0, 100, QAbstractSpinBox::sizeHint().height());
    const QRect up =
        style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
    const int frame = style()->pixelMetric(QStyle::PM_SpinBoxFrameWidth, &option, this);
    // Just the arrows and the frame around them.
    return {up.width() + 2 * frame, option.rect.height()};
}

// Without its frame the style draws no focus on it: the arrows are framed
// here while the keyboard steps them.
void Stepper::paintEvent(QPaintEvent* event) {
    QAbstractSpinBox::paintEvent(event);
    QPainter painter(this);
    PaintFocusFrame(*this, painter, rect());
}

QSize Stepper::minimumSizeHint() const {
    return sizeHint();
}

double Stepper::Bounded(double value) const {
    return std::clamp(value, minimum_, maximum_);
}

}  // namespace vellumo
