#include "ui/controls/QualitySlider.h"

#include <cmath>

namespace vellumo {

namespace {

int ToSteps(double value) {
    return static_cast<int>(std::lround(value * QualitySlider::kStepsPerUnit));
}

}  // namespace

QualitySlider::QualitySlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, 100 * kStepsPerUnit);
    setSingleStep(kStepsPerUnit);
    setPageStep(10 * kStepsPerUnit);
    connect(this, &QSlider::valueChanged, this, [this](int steps) {
        Q_EMIT doubleValueChanged(static_cast<double>(steps) / kStepsPerUnit);
    });
    // Every user action (a key, a click on the groove, a drag, the wheel) is
    // announced before the slider takes the position it leads to. Only an
    // action that will change the value is remembered, so that the mark is
    // always used up by that change.
    connect(this, &QAbstractSlider::actionTriggered, this,
            [this] { userAction_ = sliderPosition() != value(); });
}

void QualitySlider::sliderChange(SliderChange change) {
    QSlider::sliderChange(change);
    if (change == SliderValueChange && userAction_) {
        userAction_ = false;
        Q_EMIT doubleValueMoved(doubleValue());
    }
}

double QualitySlider::doubleValue() const {
    return static_cast<double>(value()) / kStepsPerUnit;
}

void QualitySlider::setDoubleValue(double value) {
    setValue(ToSteps(value));
}

double QualitySlider::doubleMinimum() const {
    return static_cast<double>(minimum()) / kStepsPerUnit;
}

double QualitySlider::doubleMaximum() const {
    return static_cast<double>(maximum()) / kStepsPerUnit;
}

void QualitySlider::setDoubleMinimum(double minimum) {
    setMinimum(ToSteps(minimum));
}

void QualitySlider::setDoubleMaximum(double maximum) {
    setMaximum(ToSteps(maximum));
}

}  // namespace vellumo
