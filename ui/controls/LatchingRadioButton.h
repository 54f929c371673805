#pragma once

#include <QRadioButton>

namespace vellumo {

// A radio button that a click turns on and never off, and that does not turn
// its siblings off by itself. The window's radios come in pairs whose other
// half the controller switches off, and the program may put both of a pair
// off (the "no mode" states), which exclusive Qt radios cannot show.
class LatchingRadioButton : public QRadioButton {
    Q_OBJECT

  public:
    explicit LatchingRadioButton(QWidget* parent = nullptr);
    explicit LatchingRadioButton(const QString& text, QWidget* parent = nullptr);

  protected:
    void nextCheckState() override;
};

}  // namespace vellumo
