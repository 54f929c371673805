#pragma once

// The window as the window benchmarks use it: Qt's offscreen platform, the
// main window loaded as the application loads it at the size it has on a
// 1280 x 800 screen, and a watch on the GUI thread.

#include <QApplication>
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

// Runs the event loop until `done` holds or `limitMs` have passed; whether
// it holds. The loop sleeps between events: a loop that polls keeps one core
// busy, and on two cores that halves what the idle-priority thumbnail and
// preview workers get. A 10 ms timer wakes it for conditions that no event
// announces (files appearing on disk).
template <typename Condition>
bool WaitUntil(Condition done, int limitMs = 120000) {
    QElapsedTimer waited;
    waited.start();
    QTimer wake;
    wake.start(10);
    while (!done()) {
        if (waited.elapsed() > limitMs) {
            return false;
        }
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

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
