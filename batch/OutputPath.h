#pragma once

#include <string>
#include <vector>

#include "batch/CropSettings.h"
#include "batch/NameTemplate.h"

namespace vellumo {

struct OutputName {
    std::string path;
    Sentences warnings;  // tokens that had no value (NameTemplate::Expand)
};

// The full path of the file the job writes for the image `values` describe:
// output folder + "/" + name + "." + extension, concatenated as they are
// (a folder ending in "/" gives a doubled separator; an empty folder gives a
// path at the root). The name is `name` expanded for the image
// (batch/NameTemplate.h); the extension is the lower-cased output format
// title. `subfolder` ("shoes/red", InputFolders.h) goes between the folder
// and the name when the tree is kept. Creates and touches nothing. An
// unknown output format stops the program.
OutputName GenerateOutputName(const NameTemplate& name, const CropSettings& settings,
                              const NameValues& values, const std::string& subfolder = {});

// The same for entry `index` of the list, from its path alone (tokens that
// need the image read are left empty). An index outside the list or a
// template that cannot be read stops the program.
std::string GenerateOutputPathWithImageIndex(const CropSettings& settings,
                                             const std::vector<std::string>& listImagePaths,
                                             long index);

}  // namespace vellumo
