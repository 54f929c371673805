#pragma once

// The controls under the auto-crop ratio: the sides of a custom ratio, the
// orientation rule and where the rectangle sits (a 3 x 3 anchor picker and
// the smart placements: attention, entropy and faces). They read into and
// write from CropSettings; any change by the person emits changed().

#include <QWidget>
#include <array>

#include "batch/CropSettings.h"

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QLineEdit;

namespace vellumo {

class AutoCropRuleBox : public QWidget {
    Q_OBJECT

  public:
    explicit AutoCropRuleBox(QWidget* parent = nullptr);

    // The custom ratio's fields take part only when "Custom…" is chosen.
    void SetCustomRatioChosen(bool chosen);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  Q_SIGNALS:
    void changed();

  private:
    // The nine buttons that place the rectangle, in a widget of their own.
    QWidget* AnchorGrid();

    QLineEdit* ratioWidth_;
    QLineEdit* ratioHeight_;
    QCheckBox* matchOrientation_;
    QButtonGroup* anchors_;
};

}  // namespace vellumo
