// The crop modes and their fields, and the settings the crop rule reads.

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>

#include "batch/CropRectangle.h"
#include "ui/ViewController.h"
#include "ui/controls/AutoCropRuleBox.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/SettingsBinding.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/TextFieldNumber.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

// The stepper's value as single precision, into its field as the field
// shows numbers.
void CopyStepperIntoField(const Stepper& stepper, QLineEdit& field) {
    SetTextFieldNumber(field, static_cast<float>(stepper.value()));
}

// What is typed becomes the stepper's value, so that the next step goes on
// from it (kept within the stepper's range).
void CopyFieldIntoStepper(const QLineEdit& field, Stepper& stepper) {
    stepper.setValue(TextFieldFloatValue(field));
}

}  // namespace

CropSettings ViewController::CropSettingsFromControls() const {
    return settingsBinding_->Read();
}

// A radio turns itself on when clicked; its handler turns the other of its
// pair off. The two pairs are independent of each other.

void ViewController::OnAutoCropSelected() {
    ui_->radioCustomCrop->setChecked(false);
    UpdateCropPreview();
}

void ViewController::OnAutoCropFormatSelected() {
    ui_->autoCropRule->SetCustomRatioChosen(ui_->comboAutoCropFormat->currentIndex() ==
                                            kCustomRatioIndex);
    OnCropRuleChanged();
}

// A smart anchor judges a reduced picture of the file, which the selection
// decodes only while one is chosen: choosing one decodes it now.
void ViewController::OnCropRuleChanged() {
    if (UsesPlacementPicture(CropSettingsFromControls()) && !preview_->placementPicture() &&
        !preview_->image().IsEmpty()) {
        ShowSelectedImage();
        return;
    }
    UpdateCropPreview();
}

void ViewController::OnCustomCropSelected() {
    ui_->radioAutoCrop->setChecked(false);
    UpdateCropPreview();
}

void ViewController::OnCustomCropPixelsSelected() {
    ui_->radioCustomCropPercents->setChecked(false);
    UpdateCropPreview();
}

void ViewController::OnCustomCropPixelsOriginXChanged() {
    UpdateCropPreview();
}

void ViewController::OnCustomCropPixelsOriginYChanged() {
    UpdateCropPreview();
}

void ViewController::OnCustomCropPixelsWidthChanged() {
    UpdateCropPreview();
}

void ViewController::OnCustomCropPixelsHeightChanged() {
    UpdateCropPreview();
}

void ViewController::OnCustomCropPercentsSelected() {
    ui_->radioCustomCropPixels->setChecked(false);
    UpdateCropPreview();
}

// A step changes the field beside the stepper, and typing in the field
// moves the stepper; either way the preview and the labels follow at once.

void ViewController::OnStepperCustomCropPercentsOriginXChanged() {
    CopyStepperIntoField(*ui_->stepperCustomCropPercentsOriginX,
                         *ui_->textFieldCustomCropPercentsOriginX);
    UpdateCropPreview();
}

void ViewController::OnStepperCustomCropPercentsOriginYChanged() {
    CopyStepperIntoField(*ui_->stepperCustomCropPercentsOriginY,
                         *ui_->textFieldCustomCropPercentsOriginY);
    UpdateCropPreview();
}

void ViewController::OnStepperCustomCropPercentsWidthChanged() {
    CopyStepperIntoField(*ui_->stepperCustomCropPercentsWidth,
                         *ui_->textFieldCustomCropPercentsWidth);
    UpdateCropPreview();
}

void ViewController::OnStepperCustomCropPercentsHeightChanged() {
    CopyStepperIntoField(*ui_->stepperCustomCropPercentsHeight,
                         *ui_->textFieldCustomCropPercentsHeight);
    UpdateCropPreview();
}

void ViewController::OnCustomCropPercentsOriginXChanged() {
    CopyFieldIntoStepper(*ui_->textFieldCustomCropPercentsOriginX,
                         *ui_->stepperCustomCropPercentsOriginX);
    UpdateCropPreview();
}

void ViewController::OnCustomCropPercentsOriginYChanged() {
    CopyFieldIntoStepper(*ui_->textFieldCustomCropPercentsOriginY,
                         *ui_->stepperCustomCropPercentsOriginY);
    UpdateCropPreview();
}

void ViewController::OnCustomCropPercentsWidthChanged() {
    CopyFieldIntoStepper(*ui_->textFieldCustomCropPercentsWidth,
                         *ui_->stepperCustomCropPercentsWidth);
    UpdateCropPreview();
}

void ViewController::OnCustomCropPercentsHeightChanged() {
    CopyFieldIntoStepper(*ui_->textFieldCustomCropPercentsHeight,
                         *ui_->stepperCustomCropPercentsHeight);
    UpdateCropPreview();
}

}  // namespace vellumo
