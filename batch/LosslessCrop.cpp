#include "batch/LosslessCrop.h"

#include <cmath>

#include "imaging/Formats.h"
#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

Sentence Plain(const char* pattern) {
    return {pattern, {}};
}

// The whole pixels the job's crop takes for `cut` on the upright image.
Rect WholePixelCut(const Rect& cut, const JpegGrid& grid) {
    const bool swap = grid.orientation >= 5;
    const Size upright{static_cast<double>(swap ? grid.storedHeight : grid.storedWidth),
                       static_cast<double>(swap ? grid.storedWidth : grid.storedHeight)};
    return ImageTools::CropPixelArea(upright,
                                     {cut.x, cut.y, std::trunc(cut.width), std::trunc(cut.height)});
}

Sentences SnapNotes(const Rect& chosen, const LosslessCut& cut, const JpegGrid& grid) {
    Sentences notes;
    if (cut.upright != chosen) {
        notes.push_back({VELLUMO_TEXT("Engine", "Lossless: widened to the file's %1 × %2 blocks"),
                         {std::to_string(grid.blockWidth), std::to_string(grid.blockHeight)}});
    }
    if (cut.trimmedColumns > 0) {
        notes.push_back(
            {cut.trimmedColumns == 1
                 ? VELLUMO_TEXT("Engine", "%1 column at the left edge left out (a partial block)")
                 : VELLUMO_TEXT("Engine", "%1 columns at the left edge left out (a partial block)"),
             {std::to_string(cut.trimmedColumns)}});
    }
    if (cut.trimmedRows > 0) {
        notes.push_back(
            {cut.trimmedRows == 1
                 ? VELLUMO_TEXT("Engine", "%1 row at the top edge left out (a partial block)")
                 : VELLUMO_TEXT("Engine", "%1 rows at the top edge left out (a partial block)"),
             {std::to_string(cut.trimmedRows)}});
    }
    return notes;
}

}  // namespace

LosslessDecision DecideLosslessCrop(const CropSettings& settings,
                                    std::optional<OutputFormat> outputFormat, bool sourceIsJpeg,
                                    const std::optional<JpegGrid>& grid, ResolvedCrop& crop) {
    if (!settings.losslessJpeg || !sourceIsJpeg || !outputFormat ||
        InfoOf(*outputFormat).codec != OutputCodec::Jpeg) {
        return {};
    }
    LosslessDecision decision;
    if (!grid || grid->blockWidth <= 0 || grid->blockHeight <= 0) {
        decision.notes = {Plain(
            VELLUMO_TEXT("Engine", "Re-encoded: this JPEG cannot be cropped without re-encoding"))};
    } else if (crop.outputSize != crop.cutSize) {
        decision.notes = {
            Plain(VELLUMO_TEXT("Engine", "Re-encoded: a resized crop cannot be lossless"))};
    } else if (crop.pad) {
        decision.notes = {
            Plain(VELLUMO_TEXT("Engine", "Re-encoded: a padded picture cannot be lossless"))};
    } else {
        const Rect chosen = WholePixelCut(crop.cut, *grid);
        decision.cut = SnapToJpegGrid(chosen, *grid);
        if (!decision.cut) {
            decision.notes = {Plain(VELLUMO_TEXT(
                "Engine", "Re-encoded: the rectangle holds no whole block of the file"))};
        } else {
            decision.notes = SnapNotes(chosen, *decision.cut, *grid);
            crop.cut = decision.cut->upright;
            crop.cutSize = {crop.cut.width, crop.cut.height};
            crop.outputSize = crop.cutSize;
        }
    }
    crop.losslessNotes = decision.notes;
    return decision;
}

}  // namespace vellumo
