#pragma once

// "Trim uniform borders": the borders of the corners' colour cut away first,
// colours within the tolerance (0 to 100 % of the range) counted as the
// border's, a margin of pixels kept around what is left. Read into and
// written from CropSettings::trim; any change by the person emits changed().

#include <QWidget>

#include "batch/CropSettings.h"

class QCheckBox;
class QLineEdit;
class QSpinBox;

namespace vellumo {

class TrimRuleBox : public QWidget {
    Q_OBJECT

  public:
    explicit TrimRuleBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  Q_SIGNALS:
    void changed();

  private:
    // The tolerance and margin take part only while trimming is on.
    void SettleFields();

    QCheckBox* on_;
    QLineEdit* tolerance_;
    QSpinBox* margin_;
};

}  // namespace vellumo
