#pragma once

#include <functional>

namespace vellumo {

class MainWindow;
class ViewController;

// Called once the window is shown, before the event loop runs.
using LaunchHook = std::function<void(MainWindow& window, ViewController& controller)>;

// How a start of the application goes beyond the window itself.
struct Launch {
    // Called once the application exists, before the window is made; false
    // ends the process at once with status 0 (the start's work was handed
    // to a window already open).
    std::function<bool()> starting;
    LaunchHook launched;
};

// Runs Vellumo: creates the application, its delegate, the main window from
// its interface description with its controller, shows the window (with the
// size, position and splitter of the last run) and runs the event loop until
// the application terminates (Quit, or closing the window). Then it keeps
// the window's state and ends the process at once with status 0: a crop job
// still running on a worker thread is neither waited for nor cancelled, it
// ends with the process. Never returns.
[[noreturn]] void ApplicationMain(int argc, char** argv, const Launch& launch);
[[noreturn]] void ApplicationMain(int argc, char** argv, const LaunchHook& launched = {});

}  // namespace vellumo
