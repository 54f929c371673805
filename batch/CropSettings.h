#pragma once

// Everything a crop job reads from the window, as one plain value. The
// window fills it on the GUI thread when a job starts (and the command line
// from its options); the job reads only this snapshot, never a control.

#include <array>
#include <string>
#include <string_view>

namespace vellumo {

// The auto-crop ratios, by index (the AutoCropFormat).
inline constexpr std::array<std::string_view, 4> kAutoCropFormatTitles = {"1:1", "4:3", "3:2",
                                                                          "16:9"};

// The output formats, by index (the OutputFormat). The lower-cased title is
// the output file's extension; indices 0 to 4 take a quality.
inline constexpr std::array<std::string_view, 10> kOutputFormatTitles = {
    "JPG", "JPEG", "JPE", "JP2", "JPX", "PNG", "TIFF", "TIF", "GIF", "BMP"};

// True for the output formats that take a quality (JPEG and JPEG 2000).
constexpr bool OutputFormatTakesQuality(long format) {
    return format >= 0 && format <= 4;
}

// True for the output formats that can carry EXIF, IPTC and XMP (all but GIF
// and BMP).
constexpr bool OutputFormatCarriesMetadata(long format) {
    return format >= 0 && format <= 7;
}

inline constexpr std::string_view kDefaultNameTemplate = "[FileName]_cropped ([FileIndex])";

struct CropSettings {
    // The crop mode: two independent pairs of radio buttons, so states with
    // no mode at all exist. First level: auto-crop or custom rectangle.
    bool autoCrop = false;
    bool customCrop = true;
    // Second level, for the custom rectangle: pixels or percents.
    bool customCropPixels = true;
    bool customCropPercents = false;

    long autoCropFormat = 0;  // index into kAutoCropFormatTitles

    // The fields, read as single-precision numbers; y from the bottom.
    float pixelsOriginX = 0.0f;
    float pixelsOriginY = 0.0f;
    float pixelsWidth = 0.0f;
    float pixelsHeight = 0.0f;
    float percentsOriginX = 20.0f;
    float percentsOriginY = 20.0f;
    float percentsWidth = 60.0f;
    float percentsHeight = 60.0f;

    long outputFormat = 0;  // index into kOutputFormatTitles
    float quality = 80.0f;  // the slider, 0 to 100
    std::string nameTemplate{kDefaultNameTemplate};
    std::string outputFolder;
    bool keepMetadata = false;  // EXIF information and creation date
    // Each image's crop replaces its own file, in its own format; the name
    // template, the folder and the format are not used. Never saved in a
    // profile: it is chosen anew, and confirmed, for every job.
    bool replaceOriginals = false;
};

}  // namespace vellumo
