#pragma once

#include <QSlider>

namespace vellumo {

// A slider whose value is a floating-point number (to 1/100), because the
// quality shown beside it depends on the fraction: 1.01 shows "1" and 2.99
// shows "2". Internally the integer slider counts hundredths; the keys step
// it by one whole unit and the page keys by ten.
class QualitySlider : public QSlider {
    Q_OBJECT
    Q_PROPERTY(double doubleValue READ doubleValue WRITE setDoubleValue)
    Q_PROPERTY(double doubleMinimum READ doubleMinimum WRITE setDoubleMinimum)
    Q_PROPERTY(double doubleMaximum READ doubleMaximum WRITE setDoubleMaximum)

  public:
    static constexpr int kStepsPerUnit = 100;

    explicit QualitySlider(QWidget* parent = nullptr);

    double doubleValue() const;
    void setDoubleValue(double value);

    double doubleMinimum() const;
    double doubleMaximum() const;
    void setDoubleMinimum(double minimum);
    void setDoubleMaximum(double maximum);

  Q_SIGNALS:
    // Emitted whenever the value changes, by the user or by the program.
    void doubleValueChanged(double value);
    // The slider's action: emitted when the user changes the value (mouse,
    // keyboard or wheel), never when the program sets it.
    void doubleValueMoved(double value);

  protected:
    void sliderChange(SliderChange change) override;

  private:
    // Set between a user's action and the change of value it brings.
    bool userAction_ = false;
};

}  // namespace vellumo
