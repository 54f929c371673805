#pragma once

// The folder a watch is given, and with --recursive every folder below it
// (those made later too), watched through FolderWatch; its image files,
// found by a look or told of by the kernel, go into ArrivingFiles. Files
// and folders whose names begin with a dot and files of no image extension
// are left out, as the walk of a folder given to the batch leaves them out;
// so is the output folder when it lies inside, so that the watch never
// takes its own crops for images.

#include <optional>
#include <string>

#include "cli/ArrivingFiles.h"
#include "cli/FolderWatch.h"

namespace vellumo::cli {

class WatchedTree {
  public:
    // `root` and `excluded` absolute and normal; `excluded` may be empty.
    WatchedTree(FolderWatch watch, std::string root, std::string excluded, bool recursive);

    // Watches the folder given (and below) and finds the files already
    // there. False, with `reason` set, when the folder given cannot be
    // watched; a subfolder that cannot is named on standard error.
    bool Start(ArrivingFiles& files, std::string& reason);

    // Takes the events waiting into `files`. False when the folder given
    // went away (deleted, or moved elsewhere).
    bool Follow(ArrivingFiles& files);

    int Descriptor() const { return watch_.Descriptor(); }

  private:
    // Watches `folder` and lists it.
    bool Look(const std::string& folder, ArrivingFiles& files, std::string& reason);
    // Finds its image files, and with --recursive looks into its subfolders.
    bool List(const std::string& folder, ArrivingFiles& files, std::string& reason);
    bool Wanted(const std::string& path) const;

    FolderWatch watch_;
    std::string root_;
    std::string excluded_;
    bool recursive_;
};

}  // namespace vellumo::cli
