// Starts Vellumo as the program does, with a background job that never ends
// standing in for a crop job, then ends it the way the argument says:
//
//   vellumo_gui_lifecycle_probe quit          the Quit command
//   vellumo_gui_lifecycle_probe close         closing the window
//   vellumo_gui_lifecycle_probe close-idle    closing the window, no job running
//
// The process must end at once, with status 0, asking nothing.

#include <QTimer>
#include <QtConcurrent/QtConcurrentRun>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

#include "app/ApplicationMain.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"

namespace {

std::atomic<bool> jobRunning{false};

void EndlessJob() {
    jobRunning = true;
    for (;;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const char* mode = argc > 1 ? argv[1] : "";
    const bool withJob = std::strcmp(mode, "close-idle") != 0;
    vellumo::ApplicationMain(
        argc, argv,
        [mode, withJob](vellumo::MainWindow& window, vellumo::ViewController& controller) {
            std::printf("window %s\n", window.isVisible() ? "shown" : "hidden");
            if (withJob) {
                controller.DisableInterface();
                (void)QtConcurrent::run(EndlessJob);
                while (!jobRunning) {
                    std::this_thread::sleep_for(std::chrono::milliseconds(5));
                }
                std::printf("job running\n");
            }
            std::fflush(stdout);
            QTimer::singleShot(200, &window, [mode, &window, &controller] {
                if (std::strcmp(mode, "quit") == 0) {
                    controller.OnAppQuit();
                } else {
                    window.close();
                }
            });
        });
}
