#pragma once

// When a crop is made without re-encoding, and what it writes then. The
// window's labels, the dry run and the job all ask this one place, so that
// each shows the rectangle the file will hold.

#include <optional>
#include <string>

#include "batch/CropRectangle.h"
#include "batch/CropSettings.h"
#include "imaging/LosslessJpeg.h"

namespace vellumo {

// A JPEG source cropped to JPEG with the lossless setting on: its crop moved
// to the file's block grid, or why it is re-encoded after all.
struct LosslessDecision {
    std::optional<LosslessCut> cut;  // none: encoded as usual
    Sentences notes;                 // for the person; none for a plain crop
};

// Decides for one image written in `outputFormat` (its own format when the
// originals are replaced; nothing when its extension names none) whose file has `grid` (none: not a
// JPEG libjpeg can transform). Images that are not JPEG to JPEG, or with the setting off, get
// neither a cut nor a note. With a cut, `crop` is changed to what the file will hold (its cut and
// both sizes) and the note is added to its notes.
LosslessDecision DecideLosslessCrop(const CropSettings& settings,
                                    std::optional<OutputFormat> outputFormat, bool sourceIsJpeg,
                                    const std::optional<JpegGrid>& grid, ResolvedCrop& crop);

}  // namespace vellumo
