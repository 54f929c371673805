#pragma once

// Crop rules that cannot be followed together. The crop command refuses
// each before anything is written; the command line names the options
// that clash, the window says it in its own words.

#include <optional>

#include "batch/CropSettings.h"

namespace vellumo {

enum class RuleClash {
    // Trimming finds the borders of the whole image, and the auto-crop then
    // works within what is left; a typed rectangle says itself what is cut.
    TrimOfRectangle,
    // Padding keeps the whole image (or what a trim leaves) and places it
    // on a canvas of its ratio; the auto-crop and the typed rectangles cut
    // away what it would keep.
    PadAfterCut,
    // A transparent fill written in a format without alpha: the canvas
    // would come out black. Replaced originals keep each one's format, so
    // they are not refused here.
    TransparentWithoutAlpha,
};

// The first clash of `settings`, in the order above; nothing when their
// rules go together.
std::optional<RuleClash> RuleClashOf(const CropSettings& settings);

// Whether `settings` write their transparent fill as transparency: a
// format with alpha, or the originals replaced.
bool KeepsPadTransparency(const CropSettings& settings);

}  // namespace vellumo
