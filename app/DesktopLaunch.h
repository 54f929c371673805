#pragma once

// The desktop program's start: `vellumo [--recursive] [FILE|FOLDER…]`. The
// paths go to a Vellumo window already open when there is one (and this
// start ends); otherwise this window lists them, names in one warning what
// gave no image, and takes the paths of later starts.

#include "app/ApplicationMain.h"

namespace vellumo {

// Reads the command line now (answering --help and --version at once).
Launch DesktopLaunch(int argc, char** argv);

}  // namespace vellumo
