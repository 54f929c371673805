// The window's three interface states: start values, locked while a crop
// job runs, and idle again afterwards.

#include <QAction>
#include <QProgressBar>
#include <QTabWidget>

#include "ui/ProgressFraction.h"
#include "ui/ViewController.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui_MainWindow.h"

namespace vellumo {

void ViewController::ResetInterface() {
    imageList_->Clear();
    cropAdjustments_->ReplaceAll({});
    ui_->tabView->setCurrentIndex(0);
    settings_->Reset();
    SetProgressFraction(*ui_->progressIndicator, 0.0);
    ClearImageListSelection();
    EmptyPreview();
}

void ViewController::DisableInterface() {
    // The job reads the list and the settings while it runs, so nothing that
    // changes them may be used meanwhile. The table, the tabs, the preview,
    // the labels, the progress bar and the menu stay as they are.
    settings_->Lock();
    // A plan opened would replace the list; the rectangle on the preview is
    // shown, not adjusted (the job has its own copy of the adjustments).
    ui_->actionOpenCropPlan->setEnabled(false);
    ui_->imageViewCropPreview->SetFrameAdjustable(false);
}

void ViewController::EnableInterface() {
    settings_->Unlock();
    ui_->actionOpenCropPlan->setEnabled(true);
    ui_->imageViewCropPreview->SetFrameAdjustable(true);
}

}  // namespace vellumo
