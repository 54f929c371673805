#include "batch/RuleClash.h"

namespace vellumo {

bool KeepsPadTransparency(const CropSettings& settings) {
    return settings.replaceOriginals || InfoOf(settings.outputFormat).keepsAlpha;
}

std::optional<RuleClash> RuleClashOf(const CropSettings& settings) {
    if (settings.trim.on &&
        (settings.mode == CropMode::Pixels || settings.mode == CropMode::Percents)) {
        return RuleClash::TrimOfRectangle;
    }
    if (!settings.pad.on) {
        return std::nullopt;
    }
    if (settings.mode != CropMode::None) {
        return RuleClash::PadAfterCut;
    }
    if (settings.pad.background == PadBackground::Transparent && !KeepsPadTransparency(settings)) {
        return RuleClash::TransparentWithoutAlpha;
    }
    return std::nullopt;
}

}  // namespace vellumo
