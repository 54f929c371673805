#include "batch/LosslessCrop.h"

#include <cmath>

#include "imaging/Formats.h"
#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

std::string Count(int n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

// The whole pixels the job's crop takes for `cut` on the upright image.
Rect WholePixelCut(const Rect& cut, const JpegGrid& grid) {
    const bool swap = grid.orientation >= 5;
    const Size upright{static_cast<double>(swap ? grid.storedHeight : grid.storedWidth),
                       static_cast<double>(swap ? grid.storedWidth : grid.storedHeight)};
    return ImageTools::CropPixelArea(upright,
                                     {cut.x, cut.y, std::trunc(cut.width), std::trunc(cut.height)});
}

std::string SnapNote(const Rect& chosen, const LosslessCut& cut, const JpegGrid& grid) {
    std::string note;
    if (cut.upright != chosen) {
        note = "Lossless: widened to the file's " + std::to_string(grid.blockWidth) + " \u00d7 " +
               std::to_string(grid.blockHeight) + " blocks";
    }
    if (cut.trimmedColumns > 0) {
        note = JoinNotes(note, Count(cut.trimmedColumns, "column", "columns") +
                                   " at the left edge left out (a partial block)");
    }
    if (cut.trimmedRows > 0) {
        note = JoinNotes(note, Count(cut.trimmedRows, "row", "rows") +
                                   " at the top edge left out (a partial block)");
    }
    return note;
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
        decision.note = "Re-encoded: this JPEG cannot be cropped without re-encoding";
    } else if (crop.outputSize != crop.cutSize) {
        decision.note = "Re-encoded: a resized crop cannot be lossless";
    } else if (crop.pad) {
        decision.note = "Re-encoded: a padded picture cannot be lossless";
    } else {
        const Rect chosen = WholePixelCut(crop.cut, *grid);
        decision.cut = SnapToJpegGrid(chosen, *grid);
        if (!decision.cut) {
            decision.note = "Re-encoded: the rectangle holds no whole block of the file";
        } else {
            decision.note = SnapNote(chosen, *decision.cut, *grid);
            crop.cut = decision.cut->upright;
            crop.cutSize = {crop.cut.width, crop.cut.height};
            crop.outputSize = crop.cutSize;
        }
    }
    crop.losslessNote = decision.note;
    return decision;
}

}  // namespace vellumo
