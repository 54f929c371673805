#pragma once

// "Pad to ratio": the crop placed whole on the smallest canvas of a W:H
// ratio instead of being cut to it, the rest filled with a colour (typed as
// a name or #rrggbb, or chosen in a colour dialog), the picture's edge
// pixels repeated, a blurred copy of it, or transparency. Read into and
// written from CropSettings::pad.

#include "batch/CropSettings.h"
#include "ui/controls/SwitchedFields.h"

class QComboBox;
class QPushButton;

namespace vellumo {

class PadRuleBox : public SwitchedFields {
    Q_OBJECT

  public:
    explicit PadRuleBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

    // Whether the output keeps a transparent fill: while it does not, the
    // Transparent fill cannot be chosen and `why` says so, on the fill and,
    // while it is still the chosen one (loaded, or chosen before the
    // format), on the box.
    void SetTransparencyKept(bool kept, const QString& why);

  protected:
    // The colour takes part while the fill is a colour; the button shows
    // the colour.
    void SettleFields() override;

  private:
    QLayout* FillLine();
    void OnChooseColour();
    RgbColour Colour() const;

    QLineEdit* ratioWidth_;
    QLineEdit* ratioHeight_;
    QComboBox* background_;
    QLineEdit* colour_;
    QPushButton* chooseColour_;
    // The colour last written or chosen, kept while the field holds no
    // colour (being typed).
    RgbColour lastColour_;
    // Why a transparent fill would not be kept; empty while it would.
    QString noTransparency_;
};

}  // namespace vellumo
