#pragma once

#include <functional>

namespace vellumo {

class MainWindow;
class ViewController;

// Called once the window is shown, before the event loop runs.
using LaunchHook = std::function<void(MainWindow& window, ViewController& controller)>;

// Runs Vellumo: creates the application, its delegate, the main window from
// its interface description with its controller, shows the window and runs
// the event loop until the application terminates (Quit, or closing the
// window). Then it ends the process at once with status 0: a crop job still
// running on a worker thread is neither waited for nor cancelled, it ends
// with the process. Never returns.
[[noreturn]] void ApplicationMain(int argc, char** argv, const LaunchHook& launched = {});

}  // namespace vellumo
