#include "ui/preview/DimensionLabels.h"

#include <QFile>
#include <QLabel>

#include "batch/CropRectangle.h"
#include "batch/LosslessCrop.h"
#include "batch/OutputPlan.h"
#include "ui/EngineText.h"
#include "ui/preview/DimensionText.h"
#include "ui/preview/PreviewSession.h"
#include "ui_MainWindow.h"

namespace vellumo {

ResolvedCrop CropAsWritten(const PreviewSession& preview, const CropSettings& settings,
                           const std::optional<Rect>& adjusted) {
    const Image& image = preview.image();
    // The size the job writes for this image, in every mode. A smart anchor's picture is judged off
    // this thread, and only where the rectangle sits depends on it: the sizes and notes here are
    // the same (the note of a failed placement aside, which the picture's absence would give
    // wrongly).
    CropSettings sized = settings;
    if (UsesPlacementPicture(settings) && preview.placementPicture()) {
        sized.anchor = CropAnchor::Centre;
    }
    const QString& path = preview.path();
    // A trim's content and the faces (a portrait's size follows the face)
    // are what the worker found with the picture.
    const std::optional<TrimFinding> trimmed = preview.TrimFindingFor(settings);
    const std::optional<FaceSearch>& faces = preview.faces();
    ResolvedCrop crop = ResolveCrop(sized, image, nullptr, adjusted, trimmed ? &*trimmed : nullptr,
                                    faces ? &*faces : nullptr);
    // A JPEG cropped without re-encoding holds the rectangle on its block
    // grid, and the labels say what the file will hold. Replaced originals
    // are written in their own format.
    const std::optional<OutputFormat> format =
        settings.replaceOriginals ? OutputFormatOfPath(QFile::encodeName(path).toStdString())
                                  : settings.outputFormat;
    const std::optional<JpegGrid>& grid = preview.jpegGrid();
    DecideLosslessCrop(settings, format, grid.has_value(), grid, crop);
    return crop;
}

void ShowDimensions(Ui::MainWindow& ui, const PreviewSession& preview, const CropSettings& settings,
                    const std::optional<Rect>& adjusted) {
    const Image& image = preview.image();
    const double width = image.Width();
    const double height = image.Height();
    if (!(width > 0.0) || !(height > 0.0)) {
        ui.labelOriginalDimensionsWidth->setText(DimensionText(kWidthCaption, 0));
        ui.labelOriginalDimensionsHeight->setText(DimensionText(kHeightCaption, 0));
        ui.labelOutputDimensionsWidth->setText(DimensionText(kWidthCaption, 0));
        ui.labelOutputDimensionsHeight->setText(DimensionText(kHeightCaption, 0));
        ui.labelPreviewNote->clear();
        return;
    }
    ui.labelOriginalDimensionsWidth->setText(DimensionText(kWidthCaption, width));
    ui.labelOriginalDimensionsHeight->setText(DimensionText(kHeightCaption, height));

    const ResolvedCrop crop = CropAsWritten(preview, settings, adjusted);
    ui.labelOutputDimensionsWidth->setText(DimensionText(kWidthCaption, crop.outputSize.width));
    ui.labelOutputDimensionsHeight->setText(DimensionText(kHeightCaption, crop.outputSize.height));
    Sentences notes = CropExtentNotes(crop);
    Append(notes, FirstPageNote(preview.pages()));
    ui.labelPreviewNote->setText(EngineText(notes));
}

}  // namespace vellumo
