#pragma once

// What the output names of a batch need read from the images themselves:
// the output's size ([Width], [Height], [Ratio]) and the photo's facts
// ([Date], [Camera]). The names are settled before anything is written (the
// clash rule and the overwrite questions see them), so these are read first,
// each image as a dry run of the processor: with the worker process, its
// header and metadata are parsed inside the sandbox, as its pixels are.

#include <optional>
#include <string>
#include <vector>

#include "batch/CropAdjustments.h"
#include "batch/CropSettings.h"
#include "batch/ImageProcessor.h"
#include "batch/NameTemplate.h"
#include "imaging/Geometry.h"
#include "imaging/PhotoFacts.h"

namespace vellumo {

// True when the settings' name template needs the images read (and can be
// read at all); the originals replaced need no names.
bool NamesNeedImages(const CropSettings& settings);

// One entry per listed image, in list order, read one after another; empty
// when NamesNeedImages is false. An image that cannot be read has no facts
// (its tokens are left empty, with a warning; its crop then fails on its
// own).
std::vector<ImageNameFacts> GatherNameFacts(const CropSettings& settings,
                                            const std::vector<std::string>& listImagePaths,
                                            ImageProcessor& processor,
                                            const CropAdjustments* adjustments);

}  // namespace vellumo
