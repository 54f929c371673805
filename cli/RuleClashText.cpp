#include "cli/RuleClashText.h"

namespace vellumo::cli {

namespace {

std::string NoTransparencyText(OutputFormat format) {
    std::string text = "--background transparent: ";
    text += InfoOf(format).title;
    text += " has no transparency (use PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF or BMP)";
    return text;
}

}  // namespace

std::string RuleClashText(RuleClash clash, const CropSettings& settings) {
    switch (clash) {
        case RuleClash::TrimOfRectangle:
            return "--trim: trims the whole image or the --auto crop, not a rectangle of --pixels "
                   "or --percents";
        case RuleClash::PadAfterCut:
            return "--pad: places the whole image (or what --trim leaves) on a canvas of the "
                   "ratio; it cannot follow --auto, --pixels or --percents, which cut it";
        case RuleClash::TransparentWithoutAlpha:
            return NoTransparencyText(settings.outputFormat);
    }
    return {};
}

}  // namespace vellumo::cli
