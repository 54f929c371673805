// The window's three interface states: start values, locked while a crop
// job runs, and idle again afterwards.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>

#include "batch/CropSettings.h"
#include "ui/ProgressFraction.h"
#include "ui/ViewController.h"
#include "ui/controls/AutoCropRuleBox.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/ResizeRuleBox.h"
#include "ui/controls/SettingsBinding.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/TextFieldNumber.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"

namespace vellumo {

namespace {

constexpr char kCroppingTitle[] = "Cropping...";
constexpr char kCropImagesTitle[] = "Crop Images";

}  // namespace

void ViewController::ResetInterface() {
    listImagePaths_.clear();
    cropAdjustments_->ReplaceAll({});

    tabView->setCurrentIndex(0);

    // Every setting's start value: custom crop in pixels, an empty
    // rectangle, a centred 60 % one once percents are chosen, "JPG" at
    // quality 80, the usual name template, no folder, no metadata, the
    // originals kept. The auto-crop ratio stays as it was.
    const bool wasReplacingOriginals = checkReplaceOriginals->isChecked();
    CropSettings start;
    start.autoCropFormat = comboAutoCropFormat->currentIndex();
    settingsBinding_->Write(start);

    SetProgressFraction(*progressIndicator, 0.0);

    // "JPG" takes a quality (the slider is enabled even while a job runs)
    // and carries metadata; with the originals no longer replaced, the name,
    // folder and format are used again. Other enabled states stay as they
    // are.
    sliderQuality->setEnabled(true);
    if (wasReplacingOriginals || !checkKeepEXIFInformationAndCreationDate->isEnabled()) {
        SettleOutputControls();
    }

    tableViewImage->ReloadData();
    ClearImageListSelection();
    EmptyPreview();
}

std::vector<QWidget*> ViewController::ControlsLockedWhileCropping() const {
    return {
        buttonAddImages.get(),
        buttonRemoveSelected.get(),
        buttonRemoveAll.get(),
        radioAutoCrop.get(),
        comboAutoCropFormat.get(),
        autoCropRule.get(),
        resizeRule.get(),
        radioCustomCrop.get(),
        radioCustomCropPixels.get(),
        textFieldCustomCropPixelsOriginX.get(),
        textFieldCustomCropPixelsOriginY.get(),
        textFieldCustomCropPixelsWidth.get(),
        textFieldCustomCropPixelsHeight.get(),
        radioCustomCropPercents.get(),
        textFieldCustomCropPercentsOriginX.get(),
        stepperCustomCropPercentsOriginX.get(),
        textFieldCustomCropPercentsOriginY.get(),
        stepperCustomCropPercentsOriginY.get(),
        textFieldCustomCropPercentsWidth.get(),
        stepperCustomCropPercentsWidth.get(),
        textFieldCustomCropPercentsHeight.get(),
        stepperCustomCropPercentsHeight.get(),
        comboFormat.get(),
        sliderQuality.get(),
        textFieldName.get(),
        textFieldOutputFolder.get(),
        checkKeepEXIFInformationAndCreationDate.get(),
        checkCropJPEGFilesWithoutReencoding.get(),
        buttonBrowse.get(),
        buttonCropImages.get(),
        checkReplaceOriginals.get(),
    };
}

void ViewController::DisableInterface() {
    // The job reads the list and the settings while it runs, so nothing that
    // changes them may be used meanwhile. The table, the tabs, the preview,
    // the labels, the progress bar and the menu stay as they are.
    interfaceLocked_ = true;
    for (QWidget* control : ControlsLockedWhileCropping()) {
        control->setEnabled(false);
    }
    // A plan opened would replace the list; the rectangle on the preview is
    // shown, not adjusted (the job has its own copy of the adjustments).
    actionOpenCropPlan->setEnabled(false);
    imageViewCropPreview->SetFrameAdjustable(false);
    buttonCropImages->setText(QString::fromLatin1(kCroppingTitle));
}

void ViewController::EnableInterface() {
    interfaceLocked_ = false;
    for (QWidget* control : ControlsLockedWhileCropping()) {
        control->setEnabled(true);
    }
    actionOpenCropPlan->setEnabled(true);
    imageViewCropPreview->SetFrameAdjustable(true);
    buttonCropImages->setText(QString::fromLatin1(kCropImagesTitle));
    SettleOutputControls();
}

}  // namespace vellumo
