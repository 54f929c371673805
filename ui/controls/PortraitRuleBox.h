#pragma once

// The head-and-shoulders rule under the auto-crop's placements: on, the
// auto-crop is a portrait of the largest face, the face's height and the
// eyes' line given as percents of the output's height (1 to 99). Read into
// and written from CropSettings::portraitOfFace.

#include "batch/CropSettings.h"
#include "ui/controls/SwitchedFields.h"

namespace vellumo {

class PortraitRuleBox : public SwitchedFields {
    Q_OBJECT

  public:
    explicit PortraitRuleBox(QWidget* parent = nullptr);

    void Read(CropSettings& settings) const;
    void Write(const CropSettings& settings);

  private:
    QLineEdit* faceHeight_;
    QLineEdit* eyeLine_;
};

}  // namespace vellumo
