// What a drag of the crop rectangle costs on the GUI thread: a 24-megapixel
// photo selected in the window with a 3:2 crop, then a drag of its top-left
// handle and of its inside, one mouse move per frame, each move followed by
// the view's paint (the veil, frame and handles over the cached picture).
// Every frame is timed from the move's delivery to the end of its paint.
//
//   build/bench/vellumo_bench_adjust_drag [FRAMES [WIDTHxHEIGHT]]
//
// Runs without a display on Qt's offscreen platform unless QT_QPA_PLATFORM
// says otherwise (QT_SCALE_FACTOR=2 for a high-density screen); the window
// has the size it has on a 1280 x 800 screen unless another is given. The photo is shared with
// vellumo_bench_core (build/bench-data/).

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTableView>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/BenchInputs.h"
#include "bench/BenchWindow.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/preview/CropPreviewView.h"

namespace {

void Send(QWidget& view, QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, view.mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
}

// Drags from `from` along a circle-ish path, `frames` moves; the time of
// each move with its paint, in milliseconds.
std::vector<double> Drag(vellumo::CropPreviewView& view, QPointF from, int frames) {
    std::vector<double> times;
    Send(view, QEvent::MouseButtonPress, from, Qt::LeftButton);
    QElapsedTimer clock;
    for (int i = 1; i <= frames; ++i) {
        const double t = 2.0 * M_PI * i / frames;
        const QPointF at = from + QPointF(40.0 * std::sin(t), 25.0 * (1.0 - std::cos(t)));
        clock.start();
        Send(view, QEvent::MouseMove, at, Qt::LeftButton);
        view.repaint();
        times.push_back(clock.nsecsElapsed() / 1e6);
    }
    Send(view, QEvent::MouseButtonRelease, from, Qt::NoButton);
    return times;
}

void Report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-28s frames %4zu  median %5.2f ms  95th %5.2f ms  slowest %5.2f ms\n", what,
                times.size(), times[times.size() / 2], times[times.size() * 95 / 100],
                times.back());
}

void WaitForPicture(vellumo::ViewController& controller, vellumo::CropPreviewView& view) {
    vellumo::bench::WaitUntil(
        [&] { return !view.image().isNull() && !controller.preview().isPending(); }, 60000);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const int frames = argc > 1 ? std::max(10, std::atoi(argv[1])) : 300;
    const QString jpeg = QString::fromStdString(vellumo::bench::PhotoJpeg24());

    QApplication application(argc, argv);
    vellumo::MainWindow window;
    vellumo::ViewController controller;
    controller.LoadView(window);
    QSize size(1280, 800);
    if (argc > 2) {
        const QStringList sides = QString::fromLocal8Bit(argv[2]).split(QLatin1Char('x'));
        if (sides.size() == 2) {
            size = QSize(sides[0].toInt(), sides[1].toInt());
        }
    }
    window.resize(size);
    window.show();
    QApplication::processEvents();
    controller.services().chooseFilesToOpen = [&](const vellumo::OpenFilesRequest&) {
        return vellumo::OpenFilesResult(QStringList{jpeg});
    };
    controller.OnAddImages();
    window.findChild<QAbstractButton*>("radioAutoCrop")->click();
    auto* ratios = window.findChild<QComboBox*>("comboAutoCropFormat");
    ratios->setCurrentIndex(2);  // "3:2"
    Q_EMIT ratios->activated(2);
    auto& view = *window.findChild<vellumo::CropPreviewView*>("imageViewCropPreview");
    window.findChild<QTableView*>("tableViewImage")->selectRow(0);
    WaitForPicture(controller, view);
    std::printf(
        "24-megapixel JPEG (6000 x 4000) shown at %d x %d in a %d x %d view, device "
        "pixel ratio %.1f\n",
        view.ImageRect().width(), view.ImageRect().height(), view.width(), view.height(),
        view.devicePixelRatioF());

    Report("drag of a corner handle", Drag(view, view.FrameRectInView().topLeft(), frames));
    WaitForPicture(controller, view);
    Report("drag inside the rectangle", Drag(view, view.FrameRectInView().center(), frames));
    std::fflush(stdout);
    std::quick_exit(EXIT_SUCCESS);
}
