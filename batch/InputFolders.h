#pragma once

// Folders given as inputs, walked into the image files below them, and the
// folder each image sits in below the folder it was found through (for
// outputs that keep the tree). Only names are read here, never a file's
// content: the engine decides by extension, the worker decodes.

#include <string>
#include <vector>

namespace vellumo {

// A folder that could not be listed, and why.
struct UnreadFolder {
    std::string folder;
    std::string reason;
};

struct WalkedInputs {
    // Files given, in their order, then each folder's images in reading
    // order (files before the subfolders, numbers by their value).
    std::vector<std::string> images;
    // The folders given, as given: what the kept tree is measured from.
    std::vector<std::string> roots;
    long hiddenSkipped = 0;     // files and folders whose names begin with "."
    long nonImagesSkipped = 0;  // files inside folders of no image extension
    long loopsSkipped = 0;      // linked folders leading back to one above
    std::vector<UnreadFolder> unread;
};

// `paths` with each folder replaced by its images; with `recursive`, those
// of its subfolders too (symbolic links followed, loops left out). Paths
// that are no folder are kept as given, whatever they are.
WalkedInputs WalkInputs(const std::vector<std::string>& paths, bool recursive);

// The folder `image` sits in below the deepest of `roots` holding it
// ("shoes/red"), "" when it lies directly in one or below none.
std::string FolderBelowRoots(const std::string& image, const std::vector<std::string>& roots);

// The deepest folder holding every one of `images` (absolute).
std::string SharedFolder(const std::vector<std::string>& images);

// True when a and b sort in reading order: numbers by their value ("2"
// before "10"), otherwise byte by byte.
bool ReadingOrderLess(const std::string& a, const std::string& b);

}  // namespace vellumo
