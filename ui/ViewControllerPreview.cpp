// The preview of the selected image with its crop marked, and the four
// dimension labels.
//
// Selecting a row decodes a picture of the file no larger than the preview
// can show (a worker thread's job: a large file takes a while), together with
// the file's full pixel size. The current image is an image of that full
// size, so the labels and the crop rule speak of the whole file; the crop
// rectangle is scaled onto the small picture only for drawing. Each
// selection and each refresh is numbered, and a result that arrives after a
// newer one was asked for is dropped.

#include <QFile>
#include <QLabel>
#include <algorithm>

#include "batch/CropRectangle.h"
#include "batch/LosslessCrop.h"
#include "batch/OutputPlan.h"
#include "ui/ViewController.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/list/ImageList.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/DimensionText.h"
#include "ui/preview/PreviewPicture.h"
#include "ui/preview/PreviewPrefetch.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

// Bounds of the decoded picture's longer side: legible while the window is
// still being laid out, and not wasteful on a very large screen.
constexpr int kSmallestPictureSide = 256;
constexpr int kLargestPictureSide = 4096;

}  // namespace

void ViewController::ShowSelectedImage() {
    const int row = ui_->tableViewImage->SelectedRow();
    if (row < 0 || row >= imageList_->count()) {
        ClearImageListSelection();
        return;
    }
    const quint64 selection = ++selectionCount_;
    const QString path = imageList_->pathAt(row);
    const int side = std::clamp(ui_->imageViewCropPreview->LongestPictureSide(),
                                kSmallestPictureSide, kLargestPictureSide);
    // Pictures of earlier selections not yet begun are not needed any more.
    previewWork_.clear();
    const bool placement = UsesPlacementPicture(CropSettingsFromControls());
    // A picture made ahead (or recently) is shown at once.
    if (!placement) {
        if (const std::optional<PreviewPrefetch::Picture> kept = prefetch_->Find(path, side)) {
            ui_->imageViewCropPreview->SetBusy(false);
            ShowDecodedPreview(selection, path, kept->result, std::nullopt, kept->plain);
            PrefetchAround(path, side);
            return;
        }
    }
    ui_->imageViewCropPreview->SetBusy(true);
    previewWork_.start([this, decoder = previewDecoder_, selection, path, side, placement] {
        const std::string file = QFile::encodeName(path).toStdString();
        PreviewResult result = decoder->Decode(file, side);
        std::optional<Image> placementPicture;
        const QImage plain = result ? PictureAsQImage(result->picture) : QImage();
        if (result && placement) {
            if (const PreviewResult reduced = decoder->Decode(file, kPlacementPictureSide)) {
                placementPicture = reduced->picture;
            }
        }
        QMetaObject::invokeMethod(
            this,
            [this, selection, path, side, result = std::move(result),
             placementPicture = std::move(placementPicture), plain] {
                prefetch_->Keep(path, side, {result, plain});
                ShowDecodedPreview(selection, path, result, placementPicture, plain);
                if (selection == selectionCount_) {
                    PrefetchAround(path, side);
                }
            },
            Qt::QueuedConnection);
    });
}

void ViewController::PrefetchAround(const QString& path, int side) {
    const qsizetype row = imageList_->paths().indexOf(path);
    if (row < 0) {
        return;
    }
    // The next and the previous two, nearest first.
    QStringList around;
    for (const qsizetype step : {1, -1, 2, -2}) {
        if (row + step >= 0 && row + step < imageList_->count()) {
            around << imageList_->pathAt(static_cast<int>(row + step));
        }
    }
    prefetch_->Prefetch(around, side, prefetchDecoder_);
}

void ViewController::ShowDecodedPreview(quint64 selection, const QString& path,
                                        const PreviewResult& result,
                                        const std::optional<Image>& placementPicture,
                                        const QImage& plainPicture) {
    ++previewDeliveries_.decodes;
    if (selection != selectionCount_) {
        return;
    }
    ui_->imageViewCropPreview->SetBusy(false);
    if (!result) {
        // The program goes on; the row tells why there is nothing to see.
        imageList_->MarkUnreadable(path, QString::fromStdString(result.reason()));
        ClearImageListSelection();
        return;
    }
    imageList_->ClearUnreadable(path);
    currentPath_ = path;
    currentImage_ = Image::OfSize(result->fullSize.width, result->fullSize.height);
    ui_->imageViewCropPreview->SetPlainPicture(plainPicture);
    previewPicture_ = result->picture;
    placementPicture_ = placementPicture;
    currentPages_ = result->pages;
    currentJpegGrid_ = result->jpegGrid;
    UpdateCropPreview();
}

void ViewController::UpdateCropPreview() {
    // The sheet shows every image's crop, the selected one or none.
    RefreshContactSheet();
    if (!(currentImage_.Width() > 0.0) || !(currentImage_.Height() > 0.0)) {
        return;
    }
    // What is drawn is what the job cuts: nothing veiled when the image is
    // written whole, the part on the image when the rectangle is clipped. A
    // smart anchor looks at pixels, so the rule runs with the picture off
    // this thread; the labels do not depend on where the rectangle sits.
    const CropSettings settings = CropSettingsFromControls();
    const quint64 refresh = ++refreshCount_;
    const Image image = currentImage_;
    const Size fullSize{currentImage_.Width(), currentImage_.Height()};
    const std::optional<Rect> adjusted = cropAdjustments_->Adjustment(currentPath_);
    previewWork_.start([this, picture = previewPicture_, placement = placementPicture_, settings,
                        image, fullSize, refresh, adjusted] {
        const Image* judged = placement ? &*placement : nullptr;
        const ResolvedCrop rule = ResolveCrop(settings, image, judged);
        const Rect rect = adjusted ? ResolveCrop(settings, image, judged, adjusted).cut : rule.cut;
        // A ratio rule keeps its ratio while the rectangle is resized by
        // hand; pixels and percents are free.
        const bool locked =
            settings.mode == CropMode::Auto && !IsWhole(rule.extent) && rule.cut.height > 0.0;
        const CropFrame frame{rect, fullSize, locked ? rule.cut.width / rule.cut.height : 0.0,
                              adjusted.has_value()};
        const QImage veiled = VeiledPreviewPicture(picture, fullSize, rect);
        QMetaObject::invokeMethod(
            this, [this, refresh, veiled, frame] { ShowCropPreview(refresh, veiled, frame); },
            Qt::QueuedConnection);
    });
    UpdateImageSize();
}

void ViewController::ShowCropPreview(quint64 refresh, const QImage& picture,
                                     const CropFrame& frame) {
    ++previewDeliveries_.pictures;
    if (refresh != refreshCount_) {
        return;
    }
    shownRefresh_ = refresh;
    ui_->imageViewCropPreview->SetCropFrame(frame);
    ui_->imageViewCropPreview->SetImage(picture);
}

bool ViewController::isPreviewPending() const {
    return ui_->imageViewCropPreview->isBusy() || shownRefresh_ != refreshCount_;
}

void ViewController::DecodeAgainIfPictureTooSmall() {
    ++previewDeliveries_.sizeChecks;
    if (currentImage_.IsEmpty() || ui_->imageViewCropPreview->isBusy()) {
        return;
    }
    const int wanted = std::clamp(ui_->imageViewCropPreview->LongestPictureSide(),
                                  kSmallestPictureSide, kLargestPictureSide);
    const double have = std::max(previewPicture_.Width(), previewPicture_.Height());
    const double full = std::max(currentImage_.Width(), currentImage_.Height());
    // A picture as large as the file itself cannot get any sharper.
    if (have >= wanted || have >= full) {
        return;
    }
    ShowSelectedImage();
}

void ViewController::UpdateImageSize() {
    const double width = currentImage_.Width();
    const double height = currentImage_.Height();
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
    const CropSettings settings = CropSettingsFromControls();
    // A smart anchor's picture is judged off this thread, and only where the
    // rectangle sits depends on it: the sizes and notes here are the same
    // (the note of a failed placement aside, which the picture's absence
    // would give wrongly).
    CropSettings sized = settings;
    if (UsesPlacementPicture(settings) && placementPicture_) {
        sized.anchor = CropAnchor::Centre;
    }
    ResolvedCrop crop =
        ResolveCrop(sized, currentImage_, nullptr, cropAdjustments_->Adjustment(currentPath_));
    // A JPEG cropped without re-encoding holds the rectangle on its block
    // grid, and the labels say what the file will hold. Replaced originals
    // are written in their own format.
    const long format = settings.replaceOriginals
                            ? OutputFormatOfPath(QFile::encodeName(currentPath_).toStdString())
                            : settings.outputFormat;
    DecideLosslessCrop(settings, format, currentJpegGrid_.has_value(), currentJpegGrid_, crop);
    ui_->labelOutputDimensionsWidth->setText(DimensionText(kWidthCaption, crop.outputSize.width));
    ui_->labelOutputDimensionsHeight->setText(
        DimensionText(kHeightCaption, crop.outputSize.height));
    const std::string note = JoinNotes(CropExtentNote(crop), FirstPageNote(currentPages_));
    ui_->labelPreviewNote->setText(QString::fromStdString(note));
}

}  // namespace vellumo
