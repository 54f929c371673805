#pragma once

#include <QAbstractSpinBox>

namespace vellumo {

// A compact up/down control with a floating-point value and no text of its
// own: it sits beside a text field and steps a number. Arrows, the keyboard
// and the wheel step it; it does not wrap.
//
// `valueStepped` is its action: emitted when the user steps it, never when
// the program sets the value.
class Stepper : public QAbstractSpinBox {
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(double increment READ increment WRITE setIncrement)

  public:
    explicit Stepper(QWidget* parent = nullptr);

    double value() const { return value_; }
    // Kept within the range.
    void setValue(double value);

    double minimum() const { return minimum_; }
    double maximum() const { return maximum_; }
    double increment() const { return increment_; }
    void setMinimum(double minimum);
    void setMaximum(double maximum);
    void setIncrement(double increment);

    void stepBy(int steps) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    void valueStepped(double value);

  protected:
    StepEnabled stepEnabled() const override;
    void paintEvent(QPaintEvent* event) override;

  private:
    double Bounded(double value) const;

    double value_ = 0.0;
    double minimum_ = 0.0;
    double maximum_ = 100.0;
    double increment_ = 1.0;
};

}  // namespace vellumo
