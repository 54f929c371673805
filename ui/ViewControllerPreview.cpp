// The preview of the selected image with its crop marked, and the four
// dimension labels. The image itself, its decoding and the drawing of its
// crop are the PreviewSession's; here the selection opens it and its
// results reach the view, the list and the labels.

#include <QFile>
#include <QLabel>

#include "batch/CropRectangle.h"
#include "batch/LosslessCrop.h"
#include "batch/OutputPlan.h"
#include "ui/ViewController.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/list/ImageList.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/DimensionText.h"
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
    connect(preview_, &PreviewSession::loadingStarted, &view, [&view] { view.SetBusy(true); });
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

// A smart anchor judges a reduced picture of the file, which the selection
// decodes only while one is chosen: choosing one decodes it now.
void ViewController::OnCropRuleChanged() {
    if (UsesPlacementPicture(settings_->Read()) && !preview_->placementPicture() &&
        !preview_->image().IsEmpty()) {
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
    preview_->Open(imageList_->pathAt(row), side, UsesPlacementPicture(settings_->Read()));
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
    const Image& image = preview_->image();
    const double width = image.Width();
    const double height = image.Height();
    if (!(width > 0.0) || !(height > 0.0)) {
        ui_->labelOriginalDimensionsWidth->setText(DimensionText(kWidthCaption, 0));
        ui_->labelOriginalDimensionsHeight->setText(DimensionText(kHeightCaption, 0));
        ui_->labelOutputDimensionsWidth->setText(DimensionText(kWidthCaption, 0));
        ui_->labelOutputDimensionsHeight->setText(DimensionText(kHeightCaption, 0));
        ui_->labelPreviewNote->clear();
        return;
    }
    ui_->labelOriginalDimensionsWidth->setText(DimensionText(kWidthCaption, width));
    ui_->labelOriginalDimensionsHeight->setText(DimensionText(kHeightCaption, height));

    // The output labels are the size the job writes for this image, in every
    // mode; the note says when that is the whole image or a clipped part.
    const CropSettings settings = settings_->Read();
    // A smart anchor's picture is judged off this thread, and only where the
    // rectangle sits depends on it: the sizes and notes here are the same
    // (the note of a failed placement aside, which the picture's absence
    // would give wrongly).
    CropSettings sized = settings;
    if (UsesPlacementPicture(settings) && preview_->placementPicture()) {
        sized.anchor = CropAnchor::Centre;
    }
    const QString& path = preview_->path();
    ResolvedCrop crop = ResolveCrop(sized, image, nullptr, cropAdjustments_->Adjustment(path));
    // A JPEG cropped without re-encoding holds the rectangle on its block
    // grid, and the labels say what the file will hold. Replaced originals
    // are written in their own format.
    const long format = settings.replaceOriginals
                            ? OutputFormatOfPath(QFile::encodeName(path).toStdString())
                            : settings.outputFormat;
    const std::optional<JpegGrid>& grid = preview_->jpegGrid();
    DecideLosslessCrop(settings, format, grid.has_value(), grid, crop);
    ui_->labelOutputDimensionsWidth->setText(DimensionText(kWidthCaption, crop.outputSize.width));
    ui_->labelOutputDimensionsHeight->setText(
        DimensionText(kHeightCaption, crop.outputSize.height));
    const std::string note = JoinNotes(CropExtentNote(crop), FirstPageNote(preview_->pages()));
    ui_->labelPreviewNote->setText(QString::fromStdString(note));
}

}  // namespace vellumo
