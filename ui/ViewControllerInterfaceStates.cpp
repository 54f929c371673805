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
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

constexpr char kCroppingTitle[] = "Cropping...";
constexpr char kCropImagesTitle[] = "Crop Images";

}  // namespace

void ViewController::ResetInterface() {
    imageList_->Clear();
    cropAdjustments_->ReplaceAll({});

    ui_->tabView->setCurrentIndex(0);

    // Every setting's start value: custom crop in pixels, an empty
    // rectangle, a centred 60 % one once percents are chosen, "JPG" at
    // quality 80, the usual name template, no folder, no metadata, the
    // originals kept. The auto-crop ratio stays as it was.
    const bool wasReplacingOriginals = ui_->checkReplaceOriginals->isChecked();
    CropSettings start;
    start.autoCropFormat = ui_->comboAutoCropFormat->currentIndex();
    settingsBinding_->Write(start);

    SetProgressFraction(*ui_->progressIndicator, 0.0);

    // "JPG" takes a quality (the slider is enabled even while a job runs)
    // and carries metadata; with the originals no longer replaced, the name,
    // folder and format are used again. Other enabled states stay as they
    // are.
    ui_->sliderQuality->setEnabled(true);
    if (wasReplacingOriginals || !ui_->checkKeepEXIFInformationAndCreationDate->isEnabled()) {
        SettleOutputControls();
    }

    ClearImageListSelection();
    EmptyPreview();
}

std::vector<QWidget*> ViewController::ControlsLockedWhileCropping() const {
    return {
        ui_->buttonAddImages,
        ui_->buttonRemoveSelected,
        ui_->buttonRemoveAll,
        ui_->radioAutoCrop,
        ui_->comboAutoCropFormat,
        ui_->autoCropRule,
        ui_->resizeRule,
        ui_->radioCustomCrop,
        ui_->radioCustomCropPixels,
        ui_->textFieldCustomCropPixelsOriginX,
        ui_->textFieldCustomCropPixelsOriginY,
        ui_->textFieldCustomCropPixelsWidth,
        ui_->textFieldCustomCropPixelsHeight,
        ui_->radioCustomCropPercents,
        ui_->textFieldCustomCropPercentsOriginX,
        ui_->stepperCustomCropPercentsOriginX,
        ui_->textFieldCustomCropPercentsOriginY,
        ui_->stepperCustomCropPercentsOriginY,
        ui_->textFieldCustomCropPercentsWidth,
        ui_->stepperCustomCropPercentsWidth,
        ui_->textFieldCustomCropPercentsHeight,
        ui_->stepperCustomCropPercentsHeight,
        ui_->comboFormat,
        ui_->sliderQuality,
        ui_->textFieldName,
        ui_->textFieldOutputFolder,
        ui_->checkKeepEXIFInformationAndCreationDate,
        ui_->checkCropJPEGFilesWithoutReencoding,
        ui_->buttonBrowse,
        ui_->buttonCropImages,
        ui_->checkReplaceOriginals,
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
    ui_->actionOpenCropPlan->setEnabled(false);
    ui_->imageViewCropPreview->SetFrameAdjustable(false);
    ui_->buttonCropImages->setText(QString::fromLatin1(kCroppingTitle));
}

void ViewController::EnableInterface() {
    interfaceLocked_ = false;
    for (QWidget* control : ControlsLockedWhileCropping()) {
        control->setEnabled(true);
    }
    ui_->actionOpenCropPlan->setEnabled(true);
    ui_->imageViewCropPreview->SetFrameAdjustable(true);
    ui_->buttonCropImages->setText(QString::fromLatin1(kCropImagesTitle));
    SettleOutputControls();
}

}  // namespace vellumo
