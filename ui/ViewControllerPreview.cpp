// The selection's way to the preview and the labels, and the rectangles
// adjusted by hand on the preview (Edit → Undo, Redo, Reset Crop, Reset All
// Crops; crop plans keep them). The image itself, its decoding and the
// drawing of its crop are the PreviewSession's; here the selection opens it
// and its results reach the view, the list and the labels.

#include <QAction>
#include <QLabel>
#include <algorithm>

#include "batch/CropRectangle.h"
#include "ui/ViewController.h"
#include "ui/controls/OutputNameText.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/files/PlanFiles.h"
#include "ui/list/ImageList.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/DimensionLabels.h"
#include "ui/preview/PreviewPicture.h"
#include "ui/sheet/ContactSheetController.h"
#include "ui_MainWindow.h"

namespace vellumo {

void ViewController::ConnectPreview() {
    CropPreviewView& view = *ui_->imageViewCropPreview;
    preview_->SetNeighbours([this](const QString& path) {
        // The next and the previous two, nearest first.
        QStringList around;
        const qsizetype row = imageList_->paths().indexOf(path);
        for (const qsizetype step : {1, -1, 2, -2}) {
            if (row >= 0 && row + step >= 0 && row + step < imageList_->count()) {
                around << imageList_->pathAt(static_cast<int>(row + step));
            }
        }
        return around;
    });
    // The file's thumbnail, when the list or the sheet made it, stands in at
    // once for the picture being decoded.
    preview_->SetKeptPictures([this](const QString& path) -> std::optional<KeptPicture> {
        const Thumbnail* thumbnail = contactSheet_->thumbnails().Find(path);
        if (thumbnail == nullptr) {
            return std::nullopt;
        }
        return KeptPicture{thumbnail->picture, thumbnail->fullSize};
    });
    connect(preview_, &PreviewSession::loadingStarted, &view, [&view] { view.SetBusy(true); });
    connect(preview_, &PreviewSession::provisionalPicture, &view, [&view](const KeptPicture& kept) {
        const int side = PreviewSession::PictureSideFor(view.LongestPictureSide());
        view.SetCropFrame(std::nullopt);
        view.SetImage(StandInPicture(kept.picture, kept.fullSize, side));
    });
    connect(preview_, &PreviewSession::loaded, this,
            [this, &view](const QString& path, const QImage& plain) {
                view.SetBusy(false);
                imageList_->ClearUnreadable(path);
                view.SetPlainPicture(plain);
                UpdateCropPreview();
            });
    connect(preview_, &PreviewSession::loadingFailed, this,
            [this, &view](const QString& path, const QString& reason) {
                // The program goes on; the row tells why there is nothing to
                // see.
                view.SetBusy(false);
                imageList_->MarkUnreadable(path, reason);
                ClearImageListSelection();
            });
    connect(preview_, &PreviewSession::pictureReady, &view,
            [&view](const QImage& picture, const CropFrame& frame) {
                view.SetCropFrame(frame);
                view.SetImage(picture);
            });
    connect(&view, &CropPreviewView::resized, &previewResizeSettle_, qOverload<>(&QTimer::start));
}

// A smart anchor judges a reduced picture of the file, the faces are found
// in it and a trim measures the file's pixels: the selection's worker does
// each only while the rule needs it, so a rule that needs more decodes the
// file again now.
void ViewController::OnCropRuleChanged() {
    if (!preview_->Has(PreviewNeeds::Of(settings_->Read())) && !preview_->image().IsEmpty()) {
        ShowSelectedImage();
        return;
    }
    UpdateCropPreview();
}

void ViewController::ShowSelectedImage() {
    const int row = ui_->tableViewImage->SelectedRow();
    if (row < 0 || row >= imageList_->count()) {
        ClearImageListSelection();
        return;
    }
    const int side =
        PreviewSession::PictureSideFor(ui_->imageViewCropPreview->LongestPictureSide());
    preview_->Open(imageList_->pathAt(row), side, PreviewNeeds::Of(settings_->Read()));
}

void ViewController::ClearImageListSelection() {
    // A preview still being decoded belongs to a selection that is over.
    preview_->Close();
    ui_->imageViewCropPreview->SetBusy(false);
    EmptyPreview();
    UpdateImageSize();
}

void ViewController::EmptyPreview() {
    preview_->Empty();
    ui_->imageViewCropPreview->SetImage(QImage());
}

void ViewController::UpdateCropPreview() {
    // The sheet shows every image's crop, the selected one or none.
    RefreshContactSheet();
    const Image& image = preview_->image();
    if (!(image.Width() > 0.0) || !(image.Height() > 0.0)) {
        return;
    }
    preview_->Redraw(settings_->Read(), cropAdjustments_->Adjustment(preview_->path()));
    UpdateImageSize();
}

void ViewController::DecodeAgainIfPictureTooSmall() {
    if (preview_->PictureTooSmallFor(ui_->imageViewCropPreview->LongestPictureSide())) {
        ShowSelectedImage();
    }
}

void ViewController::UpdateImageSize() {
    ShowDimensions(*ui_, *preview_, settings_->Read(),
                   cropAdjustments_->Adjustment(preview_->path()));
    ShowOutputName();
}

// The image the preview shows, else the list's first; its size only once
// the preview holds it. Nothing is read from the file here.
void ViewController::ShowOutputName() {
    const CropSettings settings = settings_->Read();
    NameExample example;
    const bool shown = !preview_->path().isEmpty() && preview_->image().Width() > 0.0 &&
                       preview_->image().Height() > 0.0;
    example.path = shown ? preview_->path() : imageList_->pathAt(0);
    example.index = std::max<long>(0, imageList_->paths().indexOf(example.path));
    if (shown) {
        example.outputSize =
            CropAsWritten(*preview_, settings, cropAdjustments_->Adjustment(example.path))
                .outputSize;
    }
    ui_->labelOutputName->setText(OutputNameLine(settings, example));
}

void ViewController::ConnectAdjustments() {
    connect(ui_->imageViewCropPreview, &CropPreviewView::cropAdjusted, this,
            &ViewController::OnCropAdjusted);
    connect(cropAdjustments_, &CropAdjustmentStore::adjustmentsChanged, this,
            &ViewController::OnAdjustmentsChanged);

    cropAdjustments_->ConnectUndoActions(*ui_->actionUndo, *ui_->actionRedo);
    connect(ui_->actionResetCrop, &QAction::triggered, this, &ViewController::OnResetCrop);
    connect(ui_->actionResetAllCrops, &QAction::triggered, this, &ViewController::OnResetAllCrops);
    connect(ui_->actionOpenCropPlan, &QAction::triggered, this, [this] {
        if (!isCropping()) {
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
    if (preview_->path().isEmpty() || isCropping()) {
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
    cropAdjustments_->Reset(selected, tr("Reset Crop"));
}

void ViewController::OnResetAllCrops() {
    cropAdjustments_->Reset(imageList_->paths(), tr("Reset All Crops"));
}

}  // namespace vellumo
