#include "ui/controls/SettingsBinding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>

#include "ui/controls/AutoCropRuleBox.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/PadRuleBox.h"
#include "ui/controls/PortraitRuleBox.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/QualityText.h"
#include "ui/controls/ResizeRuleBox.h"
#include "ui/controls/SizeLimitBox.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/TextFieldNumber.h"
#include "ui/controls/TrimRuleBox.h"

namespace vellumo {

namespace {

QString Text(const std::string& bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

std::string Bytes(const QString& text) {
    return QFile::encodeName(text).toStdString();
}

}  // namespace

CropSettings SettingsBinding::Read() const {
    CropSettings s;
    s.mode = CropModeOfRadios(c_.radioAutoCrop.isChecked(), c_.radioCustomCrop.isChecked(),
                              c_.radioCustomCropPixels.isChecked(),
                              c_.radioCustomCropPercents.isChecked());
    s.autoCropRatio =
        RatioChoiceAtPosition(c_.comboAutoCropFormat.currentIndex()).value_or(s.autoCropRatio);
    c_.autoCropRule.Read(s);
    c_.resizeRule.Read(s);
    s.pixelsOriginX = TextFieldFloatValue(c_.pixelsOriginX);
    s.pixelsOriginY = TextFieldFloatValue(c_.pixelsOriginY);
    s.pixelsWidth = TextFieldFloatValue(c_.pixelsWidth);
    s.pixelsHeight = TextFieldFloatValue(c_.pixelsHeight);
    s.percentsOriginX = TextFieldFloatValue(c_.percentsOriginX);
    s.percentsOriginY = TextFieldFloatValue(c_.percentsOriginY);
    s.percentsWidth = TextFieldFloatValue(c_.percentsWidth);
    s.percentsHeight = TextFieldFloatValue(c_.percentsHeight);
    s.outputFormat = OutputFormatAtPosition(c_.comboFormat.currentIndex()).value_or(s.outputFormat);
    s.quality = static_cast<float>(c_.sliderQuality.doubleValue());
    s.nameTemplate = Bytes(c_.textFieldName.text());
    s.outputFolder = Bytes(c_.textFieldOutputFolder.text());
    s.keepMetadata = c_.checkKeepMetadata.isChecked();
    s.replaceOriginals = c_.checkReplaceOriginals.isChecked();
    s.losslessJpeg = c_.checkLosslessJpeg.isChecked();
    s.keepStructure = c_.checkKeepStructure.isChecked();
    c_.sizeLimit.Read(s);
    c_.portraitRule.Read(s);
    c_.trimRule.Read(s);
    c_.padRule.Read(s);
    return s;
}

void SettingsBinding::Write(const CropSettings& s) const {
    c_.radioAutoCrop.setChecked(s.mode == CropMode::Auto);
    c_.radioCustomCrop.setChecked(s.mode != CropMode::Auto);
    if (s.mode != CropMode::Auto) {
        c_.radioCustomCropPixels.setChecked(s.mode == CropMode::Pixels);
        c_.radioCustomCropPercents.setChecked(s.mode == CropMode::Percents);
    }
    c_.comboAutoCropFormat.setCurrentIndex(
        static_cast<int>(PositionOfRatioChoice(s.autoCropRatio)));
    c_.autoCropRule.Write(s);
    c_.autoCropRule.SetCustomRatioChosen(s.autoCropRatio == RatioChoice::Custom);
    c_.resizeRule.Write(s);

    SetTextFieldFloat(c_.pixelsOriginX, s.pixelsOriginX);
    SetTextFieldFloat(c_.pixelsOriginY, s.pixelsOriginY);
    SetTextFieldFloat(c_.pixelsWidth, s.pixelsWidth);
    SetTextFieldFloat(c_.pixelsHeight, s.pixelsHeight);
    SetTextFieldFloat(c_.percentsOriginX, s.percentsOriginX);
    SetTextFieldFloat(c_.percentsOriginY, s.percentsOriginY);
    SetTextFieldFloat(c_.percentsWidth, s.percentsWidth);
    SetTextFieldFloat(c_.percentsHeight, s.percentsHeight);
    // The steppers go on from the fields' values (kept within their range).
    c_.stepperPercentsOriginX.setValue(s.percentsOriginX);
    c_.stepperPercentsOriginY.setValue(s.percentsOriginY);
    c_.stepperPercentsWidth.setValue(s.percentsWidth);
    c_.stepperPercentsHeight.setValue(s.percentsHeight);

    c_.comboFormat.setCurrentIndex(static_cast<int>(PositionOfOutputFormat(s.outputFormat)));
    c_.sliderQuality.setDoubleValue(s.quality);
    c_.labelQuality.setText(QualityText(s.quality));
    c_.textFieldName.setText(Text(s.nameTemplate));
    c_.textFieldOutputFolder.setText(Text(s.outputFolder));
    c_.checkKeepMetadata.setChecked(s.keepMetadata);
    c_.checkReplaceOriginals.setChecked(s.replaceOriginals);
    c_.checkLosslessJpeg.setChecked(s.losslessJpeg);
    c_.checkKeepStructure.setChecked(s.keepStructure);
    c_.sizeLimit.Write(s);
    c_.portraitRule.Write(s);
    c_.trimRule.Write(s);
    c_.padRule.Write(s);
}

}  // namespace vellumo
