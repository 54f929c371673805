// Rectangles adjusted by hand on the preview, their history (Edit → Undo,
// Redo, Reset Crop, Reset All Crops), and crop plans: the list, the settings
// and the adjustments saved to one file and opened again.

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QUndoStack>

#include "batch/CropPlan.h"
#include "ui/ViewController.h"
#include "ui/list/ImageList.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

constexpr char kPlanFileType[] = "vellumoplan";
constexpr char kPlansDialog[] = "plans";
constexpr char kLeaveAdjustmentsQuestion[] = "Save the crop adjustments before closing?";
constexpr char kNoLongerExists[] = "the file no longer exists";

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
    connect(ui_->actionOpenCropPlan, &QAction::triggered, this, &ViewController::OnOpenCropPlan);
    connect(ui_->actionSaveCropPlan, &QAction::triggered, this, &ViewController::OnSaveCropPlan);
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

bool ViewController::AgreeToLeaveAdjustments() {
    if (!cropAdjustments_->HasUnsavedAdjustments()) {
        return true;
    }
    const int answer = services_.showMessageBox(
        {QString::fromLatin1(kLeaveAdjustmentsQuestion),
         MessageBoxStyle::Warning,
         {QStringLiteral("Save"), QStringLiteral("Don't Save"), QStringLiteral("Cancel")}});
    if (answer == kFirstButtonAnswer) {
        return SaveCropPlan();
    }
    return answer == kFirstButtonAnswer + 1;
}

void ViewController::OnSaveCropPlan() {
    SaveCropPlan();
}

bool ViewController::SaveCropPlan() {
    SaveFileRequest request;
    request.title = QStringLiteral("Save Crop Plan");
    request.fileType = QString::fromLatin1(kPlanFileType);
    request.suggestedName = QStringLiteral("Untitled.vellumoplan");
    request.memoryKey = QString::fromLatin1(kPlansDialog);
    const SaveFileResult chosen = services_.chooseFileToSave(request);
    if (!chosen || chosen->isEmpty()) {
        return false;
    }
    QString path = *chosen;
    if (!path.endsWith(QString::fromLatin1(kCropPlanExtension), Qt::CaseInsensitive)) {
        path += QString::fromLatin1(kCropPlanExtension);
    }
    const CropPlan plan = MakeCropPlan(settings_->Read(), NativePaths(imageList_->paths()),
                                       cropAdjustments_->ForJob(imageList_->paths()));
    const SaveResult saved = WriteCropPlan(QFile::encodeName(path).toStdString(), plan);
    if (!saved.saved) {
        services_.showMessageBox(
            NoticeRequest(QStringLiteral("The crop plan could not be saved to %1: %2.")
                              .arg(path, QString::fromStdString(saved.reason))));
        return false;
    }
    cropAdjustments_->MarkSaved();
    return true;
}

void ViewController::OnOpenCropPlan() {
    if (cropping_ || !AgreeToLeaveAdjustments()) {
        return;
    }
    OpenFilesRequest request;
    request.allowsMultipleSelection = false;
    request.canChooseFiles = true;
    request.canChooseDirectories = false;
    request.allowedFileTypes = {QString::fromLatin1(kPlanFileType)};
    request.prompt = QStringLiteral("Open Crop Plan");
    request.memoryKey = QString::fromLatin1(kPlansDialog);
    const OpenFilesResult chosen = services_.chooseFilesToOpen(request);
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    const QString file = chosen->constFirst();
    // All or nothing: a plan that cannot be read changes nothing.
    const Loaded<CropPlan> plan =
        ReadCropPlan(QFile::encodeName(file).toStdString(), settings_->Read());
    if (!plan) {
        services_.showMessageBox(
            NoticeRequest(QStringLiteral("The crop plan %1 could not be opened: %2.")
                              .arg(file, QString::fromStdString(plan.reason()))));
        return;
    }
    // The list never holds a path twice, whatever the file says.
    QStringList paths;
    CropAdjustmentStore::Rects rects;
    for (const PlannedImage& image : plan->images) {
        const QString path = QFile::decodeName(QByteArray::fromStdString(image.path));
        if (ListContainsPath(paths, path)) {
            continue;
        }
        paths.push_back(path);
        if (image.rect) {
            rects.insert(path, *image.rect);
        }
    }
    imageList_->ReplaceAll(paths);
    cropAdjustments_->ReplaceAll(rects);
    settings_->Write(plan->settings);
    ClearImageListSelection();

    // Images that have gone stay in the list, marked; the job fails them.
    QStringList missing;
    for (const QString& path : paths) {
        if (!QFileInfo::exists(path)) {
            imageList_->MarkUnreadable(path, QString::fromLatin1(kNoLongerExists));
            missing.push_back(path);
        }
    }
    if (!missing.isEmpty()) {
        MessageBoxRequest notice = NoticeRequest(
            missing.size() == 1 ? QStringLiteral("1 image of the crop plan no longer exists: %1")
                                      .arg(missing.front())
                                : QStringLiteral("%1 images of the crop plan no longer exist.")
                                      .arg(missing.size()));
        notice.informativeText =
            QStringLiteral("They stay in the list, marked, and fail when cropping.");
        notice.details = missing.join(QLatin1Char('\n'));
        services_.showMessageBox(notice);
    }
}

}  // namespace vellumo
