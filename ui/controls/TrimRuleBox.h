#pragma once

// "Trim uniform borders": the borders of the corners' colour cut away first,
// colours within the tolerance (0 to 100 % of the range) counted as the
// border's, a margin of pixels kept around what is left. Read into and
// written from CropSettings::trim.

#include "batch/CropSettings.h"
#include "ui/controls/SwitchedFields.h"

namespace vellumo {

class TrimRuleBox : public SwitchedFields {
    Q_OBJECT

  public:
    explicit TrimRuleBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  private:
    QLineEdit* tolerance_;
    QSpinBox* margin_;
};

}  // namespace vellumo
