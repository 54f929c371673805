#pragma once

// What `vellumo FILE… FOLDER…` asks for: the images to list, in the order
// given (a folder stands for its images, sorted by name), and the paths that
// gave none, to be named in one warning once the window shows.

#include <QString>
#include <QStringList>

namespace vellumo {

struct LaunchRequest {
    QStringList images;        // in the order given
    QStringList folders;       // the folders given that held images
    QStringList missing;       // paths that do not exist
    QStringList emptyFolders;  // folders without an image
};

// The paths of the command line `arguments` (the program's name first).
// Prints the help or the version and exits for --help and --version, as
// command-line programs do; `recursive` is set by --recursive.
QStringList ParseLaunchArguments(const QStringList& arguments, bool& recursive);

// The images `paths` stand for. A file is listed as it is, whatever it holds
// (one the list cannot read gets its warning mark when shown); a folder
// gives the files in it with an accepted extension, sorted by name as a
// person reads them (p2 before p10), and those of its subfolders too when
// `recursive`. Relative paths are taken from the current folder.
LaunchRequest ExpandLaunchPaths(const QStringList& paths, bool recursive);

// The warning naming every path that gave no image, or empty when none.
QString LaunchWarningText(const LaunchRequest& request);

}  // namespace vellumo
