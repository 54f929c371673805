#pragma once

// Profiles: every setting a person sets in the window, saved as a small,
// human-readable JSON file (".vellumo") and loaded back, by the window and
// by the command line alike. A profile never holds the image list, nor the
// choice to replace the originals. Profiles written before "cropMode"
// existed name the window's four crop radio buttons instead
// ("autoCrop", "customCrop", "customCropPixels", "customCropPercents");
// they are read as the window would read those buttons.
//
//   {
//     "version": 2,
//     "cropMode": "pixels",            (auto, pixels, percents or none)
//     "autoCropRatio": "1:1",          (a title of the list, or "custom")
//     "customRatio": {"width": 4, "height": 5},
//     "matchOrientation": true,
//     "anchor": "centre",              (kCropAnchorNames)
//     "portraitOfFace": null,          (or {"faceHeight": 45, "eyeLine": 40})
//     "resize": {"mode": "none", "width": 0, "height": 0, "enlarge": false},
//     "pixels": {"x": 0, "y": 0, "width": 0, "height": 0},
//     "percents": {"x": 20, "y": 20, "width": 60, "height": 60},
//     "format": "JPG", "quality": 80, "losslessJpeg": false,
//     "nameTemplate": "[FileName]_cropped ([FileIndex])",
//     "outputFolder": "", "keepMetadata": false,
//     "trim": {"on": false, "tolerance": 0, "margin": 0},
//     "pad": {"on": false, "ratio": {"width": 1, "height": 1},
//             "background": "#ffffff"}  (a colour, edge, blur or transparent)
//   }
//
// Version 1 files (without the crop rules from "customRatio" to "resize")
// still load: those settings take their defaults, which crop as version 1
// did.

#include <string>

#include "batch/CropSettings.h"
#include "imaging/LoadResult.h"
#include "imaging/SaveResult.h"

namespace vellumo {

inline constexpr int kProfileVersion = 2;
inline constexpr const char* kProfileExtension = ".vellumo";
// The fields of the pixel and percent rectangles lie within plus or minus
// this: any finite request is meaningful (a width of 150 %), this bound
// only keeps nonsense out. Profiles and the command line refuse others.
inline constexpr double kLargestRectangleField = 1e9;

// The profile's text for `settings`.
std::string ProfileText(const CropSettings& settings);

// The settings a profile's text gives, starting from `current`: keys that are
// missing keep the current value, unknown keys are ignored. All or nothing:
// text that is not JSON, another version, a value of the wrong type or out of
// range gives a failure naming the problem and no settings at all.
Loaded<CropSettings> SettingsFromProfileText(const std::string& text, const CropSettings& current);

// Writes the profile to `path` atomically.
SaveResult WriteProfile(const std::string& path, const CropSettings& settings);

// Reads the profile at `path` (see SettingsFromProfileText); a file that
// cannot be read is a failure with the reason.
Loaded<CropSettings> ReadProfile(const std::string& path, const CropSettings& current);

}  // namespace vellumo
