#include "ui/dialogs/RuleClashNotice.h"

namespace vellumo {

QString RuleClashNotice::Of(RuleClash clash, const CropSettings& settings) {
    switch (clash) {
        case RuleClash::TrimOfRectangle:
            return tr(
                "Trimming finds the uniform borders of the whole image, and the auto-crop then "
                "works within what is left; a custom rectangle already says what is cut. Turn "
                "“Trim uniform borders” off, or choose the auto-crop.");
        case RuleClash::PadAfterCut:
            return tr(
                "Padding places the whole image, or what the trim leaves, on a canvas of its "
                "ratio, so it cannot follow the auto-crop or a custom rectangle, which cut "
                "the image. Turn “Pad to ratio” off, or tick it again to pad instead of "
                "cutting.");
        case RuleClash::TransparentWithoutAlpha:
            return NoTransparency(settings.outputFormat);
    }
    return {};
}

QString RuleClashNotice::NoTransparency(OutputFormat format) {
    const std::string_view title = InfoOf(format).title;
    return tr("%1 files have no transparency: choose another background, or a format that keeps "
              "it (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF or BMP).")
        .arg(QString::fromLatin1(title.data(), static_cast<qsizetype>(title.size())));
}

}  // namespace vellumo
