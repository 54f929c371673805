// Rectangles adjusted by hand on the preview, their history (Edit → Undo,
// Redo, Reset Crop, Reset All Crops), and the crop plan commands.

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QUndoStack>

#include "ui/ViewController.h"
#include "ui/files/PlanFiles.h"
#include "ui/list/ImageList.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

QString MenuText(const char* verb, const QString& step) {
    const QString text = QString::fromLatin1(verb);
    return step.isEmpty() ? text : text + QLatin1Char(' ') + step;
}

}  // namespace

void ViewController::ConnectAdjustments() {
    connect(ui_->imageViewCropPreview, &CropPreviewView::cropAdjusted, this,
            &ViewController::OnCropAdjusted);
    connect(cropAdjustments_, &CropAdjustmentStore::adjustmentsChanged, this,
            &ViewController::OnAdjustmentsChanged);

    QUndoStack& history = cropAdjustments_->undoStack();
    connect(ui_->actionUndo, &QAction::triggered, &history, &QUndoStack::undo);
    connect(ui_->actionRedo, &QAction::triggered, &history, &QUndoStack::redo);
    ui_->actionUndo->setEnabled(history.canUndo());
    ui_->actionRedo->setEnabled(history.canRedo());
    connect(&history, &QUndoStack::canUndoChanged, ui_->actionUndo, &QAction::setEnabled);
    connect(&history, &QUndoStack::canRedoChanged, ui_->actionRedo, &QAction::setEnabled);
    connect(&history, &QUndoStack::undoTextChanged, ui_->actionUndo,
            [this](const QString& step) { ui_->actionUndo->setText(MenuText("&Undo", step)); });
    connect(&history, &QUndoStack::redoTextChanged, ui_->actionRedo,
            [this](const QString& step) { ui_->actionRedo->setText(MenuText("&Redo", step)); });

    connect(ui_->actionResetCrop, &QAction::triggered, this, &ViewController::OnResetCrop);
    connect(ui_->actionResetAllCrops, &QAction::triggered, this, &ViewController::OnResetAllCrops);
    connect(ui_->actionOpenCropPlan, &QAction::triggered, this, [this] {
        if (!cropping_) {
            plans_->Open();
        }
    });
    connect(ui_->actionSaveCropPlan, &QAction::triggered, plans_, &PlanFiles::Save);
    connect(plans_, &PlanFiles::opened, this, &ViewController::ClearImageListSelection);
}

ResolvedCrop ViewController::CropOfImage(const CropSettings& settings, const QString& path,
                                         Size fullSize) const {
    return ResolveCrop(settings, Image::OfSize(fullSize.width, fullSize.height), nullptr,
                       cropAdjustments_->Adjustment(path));
}

void ViewController::OnCropAdjusted(const Rect& rect, bool byKeys) {
    if (preview_->path().isEmpty() || cropping_) {
        return;
    }
    cropAdjustments_->Adjust(preview_->path(), rect, byKeys);
}

void ViewController::OnAdjustmentsChanged(const QStringList& paths) {
    for (const QString& path : paths) {
        imageList_->SetAdjusted(path, cropAdjustments_->IsAdjusted(path));
    }
    // The preview's refresh redraws the contact sheet too.
    if (!preview_->path().isEmpty() && paths.contains(preview_->path())) {
        UpdateCropPreview();
    } else {
        RefreshContactSheet();
    }
}

void ViewController::OnResetCrop() {
    QStringList selected;
    for (const int row : ui_->tableViewImage->SelectedRows()) {
        if (row >= 0 && row < imageList_->count()) {
            selected.push_back(imageList_->pathAt(row));
        }
    }
    cropAdjustments_->Reset(selected, QStringLiteral("Reset Crop"));
}

void ViewController::OnResetAllCrops() {
    cropAdjustments_->Reset(imageList_->paths(), QStringLiteral("Reset All Crops"));
}

}  // namespace vellumo
