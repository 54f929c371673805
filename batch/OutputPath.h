#pragma once

#include <string>
#include <vector>

#include "batch/CropSettings.h"

namespace vellumo {

// The full path of the file the job writes for entry `index` of the list:
// output folder + "/" + name + "." + extension, concatenated as they are
// (a folder ending in "/" gives a doubled separator; an empty folder gives a
// path at the root). The name is the template with "[FileName]" replaced by
// the entry's file name without its last extension, then "[FileIndex]" by
// index + 1. An empty template means "[FileName]"; a template with neither
// token gets " ([FileIndex])" appended. The extension is the lower-cased
// output format title. Creates and touches nothing. An index outside the
// list or an unknown output format stops the program.
std::string GenerateOutputPathWithImageIndex(const CropSettings& settings,
                                             const std::vector<std::string>& listImagePaths,
                                             long index);

}  // namespace vellumo
