#include "bench/BenchWindow.h"

#include <QApplication>
#include <algorithm>

namespace vellumo::bench {

void UseOffscreenUnlessSet() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

ShownWindow::ShownWindow() {
    controller.LoadView(window);
    window.resize(1280, 800);
    window.show();
    QApplication::processEvents();
}

StallWatch::StallWatch() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
        longest_ = std::max(longest_, sinceTick_.nsecsElapsed() / 1e6);
        sinceTick_.restart();
    });
    timer_.setTimerType(Qt::PreciseTimer);
}

void StallWatch::Start() {
    longest_ = 0;
    sinceTick_.start();
    timer_.start(1);
}

double StallWatch::Stop() {
    timer_.stop();
    return longest_;
}

}  // namespace vellumo::bench
