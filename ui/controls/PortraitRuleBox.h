#pragma once

// The head-and-shoulders rule under the auto-crop's placements: on, the
// auto-crop is a portrait of the largest face, the face's height and the
// eyes' line given as percents of the output's height (1 to 99). Read into
// and written from CropSettings::portraitOfFace; any change by the person
// emits changed().

#include <QWidget>

#include "batch/CropSettings.h"

class QCheckBox;
class QLineEdit;

namespace vellumo {

class PortraitRuleBox : public QWidget {
    Q_OBJECT

  public:
    explicit PortraitRuleBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  Q_SIGNALS:
    void changed();

  private:
    // The shares take part only while the rule is on.
    void SettleFields();

    QCheckBox* on_;
    QLineEdit* faceHeight_;
    QLineEdit* eyeLine_;
};

}  // namespace vellumo
