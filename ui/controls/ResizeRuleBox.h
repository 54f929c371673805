#pragma once

// The output size controls: "Resize after cropping" (none, to a width, to a
// height, to fit within, to exactly), the two sides (1 to 65535; nothing
// else can be entered) and "Allow enlarging". Read into and written from
// CropSettings; any change by the person emits changed().

#include <QWidget>

#include "batch/CropSettings.h"

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace vellumo {

class ResizeRuleBox : public QWidget {
    Q_OBJECT

  public:
    explicit ResizeRuleBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  Q_SIGNALS:
    void changed();

  private:
    // The sides the chosen mode uses are enabled, the others not.
    void SettleSides();

    QComboBox* mode_;
    QSpinBox* width_;
    QSpinBox* height_;
    QCheckBox* enlarge_;
};

}  // namespace vellumo
