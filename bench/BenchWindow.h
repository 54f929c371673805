#pragma once

// The window as the window benchmarks use it: Qt's offscreen platform, the
// main window loaded as the application loads it at the size it has on a
// 1280 x 800 screen, and a watch on the GUI thread.

#include <QElapsedTimer>
#include <QTimer>

#include "ui/MainWindow.h"
#include "ui/ViewController.h"

namespace vellumo::bench {

// Runs on Qt's offscreen platform unless QT_QPA_PLATFORM says otherwise;
// call before the application is made.
void UseOffscreenUnlessSet();

// The main window with its controller, 1280 x 800, shown and laid out.
struct ShownWindow {
    ShownWindow();

    MainWindow window;
    ViewController controller;
};

// Watches the GUI thread: the longest gap between ticks of a 1 ms timer,
// from Start() on.
class StallWatch {
  public:
    StallWatch();
    void Start();
    // Stops watching; the longest gap in milliseconds.
    double Stop();

  private:
    QTimer timer_;
    QElapsedTimer sinceTick_;
    double longest_ = 0;
};

}  // namespace vellumo::bench
