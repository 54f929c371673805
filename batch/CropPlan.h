#pragma once

// Crop plans: a whole batch as one file (".vellumoplan") — the settings, the
// images in their order and, for those adjusted by hand, their rectangles —
// so that the window can take it up again later and the command line can
// crop it headless, writing the same files.
//
//   {
//     "version": 1,
//     "settings": { …a profile, see Profile.h… },
//     "images": [
//       {"path": "/photos/a.jpg"},
//       {"path": "/photos/b.jpg",
//        "rect": {"x": 10, "y": 20, "width": 300, "height": 200}}
//     ]
//   }
//
// Rectangles are in the image's own pixels, origin at its lower-left corner.
// A relative path is read as relative to the plan's folder.

#include <optional>
#include <string>
#include <vector>

#include "batch/CropAdjustments.h"
#include "batch/CropSettings.h"
#include "imaging/Geometry.h"
#include "imaging/LoadResult.h"
#include "imaging/SaveResult.h"

namespace vellumo {

inline constexpr int kCropPlanVersion = 1;
inline constexpr const char* kCropPlanExtension = ".vellumoplan";
// No side or corner of a planned rectangle lies beyond this many pixels.
inline constexpr double kLargestPlannedPixels = 1'000'000;

struct PlannedImage {
    std::string path;
    std::optional<Rect> rect;  // adjusted by hand; none: the rule's

    friend bool operator==(const PlannedImage&, const PlannedImage&) = default;
};

struct CropPlan {
    CropSettings settings;
    std::vector<PlannedImage> images;
};

// The plan of a list: its paths in order, with the adjustments among them.
CropPlan MakeCropPlan(const CropSettings& settings, const std::vector<std::string>& paths,
                      const CropAdjustments& adjustments);
// The plan's paths in order, and its adjustments by path.
std::vector<std::string> PlannedPaths(const CropPlan& plan);
CropAdjustments PlannedAdjustments(const CropPlan& plan);

std::string CropPlanText(const CropPlan& plan);

// The plan a text gives; settings missing from it keep `current`. All or
// nothing: text that is not JSON, another version, a path that is not text,
// a rectangle with a negative size, a value that is not a finite number or
// lies beyond kLargestPlannedPixels gives a failure naming the problem.
// Relative paths are resolved against `folder` (when not empty).
Loaded<CropPlan> CropPlanFromText(const std::string& text, const CropSettings& current,
                                  const std::string& folder = {});

// Writes the plan to `path` atomically.
SaveResult WriteCropPlan(const std::string& path, const CropPlan& plan);
// Reads the plan at `path`; relative image paths are read from its folder.
Loaded<CropPlan> ReadCropPlan(const std::string& path, const CropSettings& current);

}  // namespace vellumo
