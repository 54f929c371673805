#pragma once

// "Pad to ratio": the crop placed whole on the smallest canvas of a W:H
// ratio instead of being cut to it, the rest filled with a colour (typed as
// a name or #rrggbb, or chosen in a colour dialog), the picture's edge
// pixels repeated, a blurred copy of it, or transparency. Read into and
// written from CropSettings::pad; any change by the person emits changed().

#include <QWidget>

#include "batch/CropSettings.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace vellumo {

class PadRuleBox : public QWidget {
    Q_OBJECT

  public:
    explicit PadRuleBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  Q_SIGNALS:
    void changed();

  private:
    // The ratio and fill take part while padding is on, the colour while
    // the fill is a colour; the button shows the colour.
    void SettleFields();
    void OnChooseColour();
    RgbColour Colour() const;

    QCheckBox* on_;
    QLineEdit* ratioWidth_;
    QLineEdit* ratioHeight_;
    QComboBox* background_;
    QLineEdit* colour_;
    QPushButton* chooseColour_;
    // The colour last written or chosen, kept while the field holds no
    // colour (being typed).
    RgbColour lastColour_;
};

}  // namespace vellumo
