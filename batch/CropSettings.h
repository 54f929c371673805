#pragma once

// Everything a crop job reads from the window, as one plain value. The
// window fills it on the GUI thread when a job starts (and the command line
// from its options); the job reads only this snapshot, never a control.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "imaging/ByteLimit.h"
#include "imaging/CropPlacement.h"
#include "imaging/FacePlacement.h"
#include "imaging/Formats.h"
#include "imaging/OutputResize.h"
#include "imaging/Padding.h"
#include "imaging/Trim.h"

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

// The aspect ratio the auto-crop is asked for: one of the listed ratios, in
// the order the window's box and the command line list them, or Custom, whose
// sides the settings hold (CropSettings::customRatio).
// The sides of a custom ratio lie within these bounds: a profile with others
// is refused, and so is a command line.
inline constexpr double kSmallestRatioSide = 1e-6;
inline constexpr double kLargestRatioSide = 1e6;

enum class RatioChoice {
    Ratio1x1,
    Ratio4x3,
    Ratio3x2,
    Ratio16x9,
    Ratio5x4,
    Ratio7x5,
    Ratio2x1,
    Ratio1_91x1,
    Ratio21x9,
    Custom,
};

// The listed ratios, in the order of RatioChoice. The first four keep the
// exact arithmetic of AutoCropRectangle (imaging/ImageTools.h) when each
// image's orientation is matched; the others, and every ratio used as
// given, take the largest rectangle of the ratio. After the list comes
// "Custom…".
struct AutoCropRatio {
    RatioChoice choice;
    std::string_view title;
    AspectRatio ratio;
};
inline constexpr std::array<AutoCropRatio, 9> kAutoCropRatios = {{
    {RatioChoice::Ratio1x1, "1:1", {1, 1}},
    {RatioChoice::Ratio4x3, "4:3", {4, 3}},
    {RatioChoice::Ratio3x2, "3:2", {3, 2}},
    {RatioChoice::Ratio16x9, "16:9", {16, 9}},
    {RatioChoice::Ratio5x4, "5:4", {5, 4}},
    {RatioChoice::Ratio7x5, "7:5", {7, 5}},
    {RatioChoice::Ratio2x1, "2:1", {2, 1}},
    {RatioChoice::Ratio1_91x1, "1.91:1", {1.91, 1}},
    {RatioChoice::Ratio21x9, "21:9", {21, 9}},
}};
inline constexpr std::string_view kCustomRatioTitle = "Custom…";

// The listed entry of `choice`; nothing for Custom.
constexpr const AutoCropRatio* ListedRatio(RatioChoice choice) {
    for (const AutoCropRatio& entry : kAutoCropRatios) {
        if (entry.choice == choice) {
            return &entry;
        }
    }
    return nullptr;
}

// The listed ratio titled `title` exactly ("16:9"); nothing for any other text.
std::optional<RatioChoice> ListedRatioTitled(std::string_view title);

// The four ratios 1:1, 4:3, 3:2 and 16:9, whose rectangles keep their own
// arithmetic (ClassicRatio in imaging/ImageTools.h) when orientation is matched.
std::optional<ClassicRatio> ClassicRatioOf(RatioChoice choice);

// The choice at `position` of the list the window's box shows (the listed
// ratios, then "Custom…"), and back; nothing for a position outside it.
std::optional<RatioChoice> RatioChoiceAtPosition(long position);
long PositionOfRatioChoice(RatioChoice choice);

inline constexpr std::string_view kDefaultNameTemplate = "[FileName]_cropped ([FileIndex])";

struct CropSettings {
    CropMode mode = CropMode::Pixels;
    RatioChoice autoCropRatio = RatioChoice::Ratio1x1;
    AspectRatio customRatio{4, 5};
    // Turn the ratio so that its longer side follows each image's longer
    // side; off, every image gets the ratio as given.
    bool matchOrientation = true;
    CropAnchor anchor = CropAnchor::Centre;  // where the auto-crop rectangle sits
    // With the auto-crop: a head-and-shoulders portrait of the largest face,
    // of the ratio as chosen (never turned), instead of the largest rectangle.
    std::optional<HeadAndShoulders> portraitOfFace;

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

    // Uniform borders cut away first (the whole image, or the auto-crop
    // within what is left); then the cut padded to a ratio instead of cut
    // to it. The anchor places the picture on the padded canvas.
    TrimRule trim;
    PadRule pad;

    OutputFormat outputFormat = OutputFormat::Jpg;
    float quality = 80.0f;  // the slider, 0 to 100
    // JPEG sources written as JPEG are cropped without re-encoding, on their
    // block grid (batch/LosslessCrop.h); the quality is not used for them.
    bool losslessJpeg = false;
    // The largest file each output may be (0: any size): the quality is the
    // highest up to `quality` that fits, and with `scaleDown` the picture is
    // also made smaller until it does (imaging/SizeFitting.h).
    ByteLimit byteLimit;
    std::string nameTemplate{kDefaultNameTemplate};
    std::string outputFolder;
    bool keepMetadata = false;  // EXIF information and creation date
    // Each crop goes into the output folder's subfolder that matches the
    // folder its source sits in below the folder it was found through
    // (InputFolders.h), made as needed; all in the output folder otherwise.
    bool keepStructure = false;
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
