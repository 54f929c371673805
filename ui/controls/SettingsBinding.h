#pragma once

// The one place where the window's setting controls and CropSettings meet:
// read for a job's snapshot, the preview and a profile to save; written for
// the start values and a loaded profile. The two pairs of crop radio buttons
// become a CropMode and back.

#include "batch/CropSettings.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace vellumo {

class AutoCropRuleBox;
class LatchingRadioButton;
class PadRuleBox;
class PortraitRuleBox;
class TrimRuleBox;
class ResizeRuleBox;
class QualitySlider;
class SizeLimitBox;
class Stepper;

class SettingsBinding {
  public:
    struct Controls {
        LatchingRadioButton& radioAutoCrop;
        QComboBox& comboAutoCropFormat;
        AutoCropRuleBox& autoCropRule;
        LatchingRadioButton& radioCustomCrop;
        LatchingRadioButton& radioCustomCropPixels;
        LatchingRadioButton& radioCustomCropPercents;
        QLineEdit& pixelsOriginX;
        QLineEdit& pixelsOriginY;
        QLineEdit& pixelsWidth;
        QLineEdit& pixelsHeight;
        QLineEdit& percentsOriginX;
        QLineEdit& percentsOriginY;
        QLineEdit& percentsWidth;
        QLineEdit& percentsHeight;
        Stepper& stepperPercentsOriginX;
        Stepper& stepperPercentsOriginY;
        Stepper& stepperPercentsWidth;
        Stepper& stepperPercentsHeight;
        ResizeRuleBox& resizeRule;
        QComboBox& comboFormat;
        QualitySlider& sliderQuality;
        QLabel& labelQuality;
        QLineEdit& textFieldName;
        QLineEdit& textFieldOutputFolder;
        QCheckBox& checkKeepMetadata;
        QCheckBox& checkReplaceOriginals;
        QCheckBox& checkLosslessJpeg;
        QCheckBox& checkKeepStructure;
        SizeLimitBox& sizeLimit;
        PortraitRuleBox& portraitRule;
        TrimRuleBox& trimRule;
        PadRuleBox& padRule;
    };

    explicit SettingsBinding(const Controls& controls) : c_(controls) {}

    // Every setting as the controls show it now (numbers as the fields
    // begin, in single precision; the folder and template as the file
    // system spells them).
    CropSettings Read() const;

    // Every setting into its control; the steppers follow their fields. The
    // radio buttons of a mode: Auto turns auto-crop on and custom off,
    // leaving pixels and percents as they were; Pixels and Percents turn
    // custom and their own button on and the others off; None turns custom on
    // and the other three off. Sends no user action.
    void Write(const CropSettings& settings) const;

  private:
    Controls c_;
};

}  // namespace vellumo
