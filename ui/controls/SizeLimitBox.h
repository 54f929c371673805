#pragma once

// The output's size limit: "at most" a number of bytes, kilobytes or
// megabytes (an empty field: any size), and "Scale down to fit", for when
// even the lowest quality is too large. Read into and written from
// CropSettings::byteLimit; any change by the person emits changed().
// Only some encoders can be fitted to a limit (ByteLimitFits).

#include <QWidget>

#include "batch/CropSettings.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace vellumo {

// True for the formats whose quality can be lowered until a file fits:
// JPEG, WebP, AVIF, HEIC and JPEG XL.
bool ByteLimitFits(OutputFormat format);

class SizeLimitBox : public QWidget {
    Q_OBJECT

  public:
    explicit SizeLimitBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  Q_SIGNALS:
    void changed();

  private:
    // "Scale down to fit" means something only with a limit.
    void SettleScaleDown();

    QLineEdit* amount_;
    QComboBox* unit_;
    QCheckBox* scaleDown_;
};

}  // namespace vellumo
