#pragma once

// Everything a crop job reads from the window, as one plain value. The
// window fills it on the GUI thread when a job starts (and the command line
// from its options); the job reads only this snapshot, never a control.

#include <array>
#include <string>
#include <string_view>

#include "imaging/CropPlacement.h"
#include "imaging/OutputResize.h"

namespace vellumo {

// How the crop rectangle is found.
enum class CropMode {
    Auto,      // the largest centred rectangle of the chosen ratio
    Pixels,    // the rectangle typed in pixels
    Percents,  // the rectangle typed in percents of each image
    None,      // no rectangle: every image is written whole
};

// The mode the window's two pairs of radio buttons give: auto-crop or
// custom rectangle first, then pixels or percents. Either pair may have
// neither button on, and then there is no mode.
constexpr CropMode CropModeOfRadios(bool autoCrop, bool customCrop, bool pixels, bool percents) {
    if (autoCrop) {
        return CropMode::Auto;
    }
    if (!customCrop) {
        return CropMode::None;
    }
    if (pixels) {
        return CropMode::Pixels;
    }
    return percents ? CropMode::Percents : CropMode::None;
}

// The auto-crop ratios, by index (the AutoCropFormat). The first four keep
// the exact arithmetic of ImageTools::CalculateAutoCropRectangleWithImage
// when each image's orientation is matched; the others, and every ratio
// used as given, take the largest rectangle of the ratio. After the list
// comes "Custom…", whose sides the settings hold.
struct AutoCropRatio {
    std::string_view title;
    AspectRatio ratio;
};
inline constexpr std::array<AutoCropRatio, 9> kAutoCropRatios = {{
    {"1:1", {1, 1}},
    {"4:3", {4, 3}},
    {"3:2", {3, 2}},
    {"16:9", {16, 9}},
    {"5:4", {5, 4}},
    {"7:5", {7, 5}},
    {"2:1", {2, 1}},
    {"1.91:1", {1.91, 1}},
    {"21:9", {21, 9}},
}};
inline constexpr long kClassicRatioCount = 4;  // the four with their own arithmetic
inline constexpr long kCustomRatioIndex = static_cast<long>(kAutoCropRatios.size());
inline constexpr std::string_view kCustomRatioTitle = "Custom…";

inline constexpr std::string_view kDefaultNameTemplate = "[FileName]_cropped ([FileIndex])";

struct CropSettings {
    CropMode mode = CropMode::Pixels;
    long autoCropFormat = 0;  // index into kAutoCropRatios, or kCustomRatioIndex
    AspectRatio customRatio{4, 5};
    // Turn the ratio so that its longer side follows each image's longer
    // side; off, every image gets the ratio as given.
    bool matchOrientation = true;
    CropAnchor anchor = CropAnchor::Centre;  // where the auto-crop rectangle sits

    // The fields, read as single-precision numbers; y from the bottom.
    float pixelsOriginX = 0.0f;
    float pixelsOriginY = 0.0f;
    float pixelsWidth = 0.0f;
    float pixelsHeight = 0.0f;
    float percentsOriginX = 20.0f;
    float percentsOriginY = 20.0f;
    float percentsWidth = 60.0f;
    float percentsHeight = 60.0f;

    ResizeRule resize;  // the size the crop is written at

    long outputFormat = 0;  // index into kOutputFormats (imaging/Formats.h)
    float quality = 80.0f;  // the slider, 0 to 100
    // JPEG sources written as JPEG are cropped without re-encoding, on their
    // block grid (batch/LosslessCrop.h); the quality is not used for them.
    bool losslessJpeg = false;
    std::string nameTemplate{kDefaultNameTemplate};
    std::string outputFolder;
    bool keepMetadata = false;  // EXIF information and creation date
    // Each image's crop replaces its own file, in its own format; the name
    // template, the folder and the format are not used. Never saved in a
    // profile: it is chosen anew, and confirmed, for every job.
    bool replaceOriginals = false;
};

// The ratio the auto-crop takes for these settings before any turning:
// the chosen entry, the custom sides, or, when the output is resized to
// exactly W x H, W:H.
AspectRatio ChosenAutoCropRatio(const CropSettings& settings);

}  // namespace vellumo
