// Moving through the list with the arrow keys: from the key press to the
// picture on the preview, for 20 24-megapixel JPEGs, once the rows around
// the selected one have had the time a person takes to look at a photo
// (half a second) to be made ahead. The first photo is decoded on demand and
// reported apart. Meanwhile a 1 ms timer on the GUI thread measures the
// longest time the thread was not free to run it.
//
//   build/bench/vellumo_bench_browsing [PAUSE_MS]
//
// Runs on Qt's offscreen platform unless QT_QPA_PLATFORM says otherwise;
// the window has the size it has on a 1280 x 800 screen.

#include <QApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/BenchInputs.h"
#include "bench/BenchWindow.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/preview/CropPreviewView.h"

namespace {

constexpr int kPhotos = 20;

// Presses `key` on the table and waits for the next picture on the view;
// returns the milliseconds from the press to the picture, and the longest
// GUI-thread stall meanwhile in `stall`.
double PressAndWait(vellumo::ViewController& controller, QTableView& table,
                    vellumo::CropPreviewView& view, Qt::Key key, double& stall) {
    QEventLoop loop;
    QElapsedTimer clock;
    vellumo::bench::StallWatch watch;
    const auto connection = QObject::connect(&view, &vellumo::CropPreviewView::imageChanged, [&] {
        if (!view.image().isNull() && !controller.preview().isPending()) {
            loop.quit();
        }
    });
    watch.Start();
    clock.start();
    QTest::keyClick(&table, key);
    if (controller.preview().isPending() || view.image().isNull()) {
        loop.exec();
    }
    const double milliseconds = clock.nsecsElapsed() / 1e6;
    view.repaint();
    stall = watch.Stop();
    QObject::disconnect(connection);
    return milliseconds;
}

void Wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace

int main(int argc, char** argv) {
    vellumo::bench::UseOffscreenUnlessSet();
    const int pause = argc > 1 ? std::max(0, std::atoi(argv[1])) : 500;
    QStringList photos;
    for (const std::string& file : vellumo::bench::PhotoJpeg24Series(kPhotos)) {
        photos << QString::fromStdString(file);
    }

    QApplication application(argc, argv);
    vellumo::bench::ShownWindow shown;
    vellumo::MainWindow& window = shown.window;
    vellumo::ViewController& controller = shown.controller;
    controller.services().chooseFilesToOpen = [&](const vellumo::OpenFilesRequest&) {
        return vellumo::OpenFilesResult(photos);
    };
    controller.OnAddImages();

    auto& table = *window.findChild<QTableView*>("tableViewImage");
    auto& view = *window.findChild<vellumo::CropPreviewView*>("imageViewCropPreview");
    table.setFocus();
    QElapsedTimer first;
    first.start();
    table.selectRow(0);
    vellumo::bench::WaitUntil(
        [&] { return !controller.preview().isPending() && !view.image().isNull(); });
    std::printf("first photo, decoded on demand: %.1f ms\n", first.nsecsElapsed() / 1e6);

    std::vector<double> times;
    double longestStall = 0;
    for (int row = 1; row < kPhotos; ++row) {
        Wait(pause);
        double stall = 0;
        times.push_back(PressAndWait(controller, table, view, Qt::Key_Down, stall));
        longestStall = std::max(longestStall, stall);
    }
    std::sort(times.begin(), times.end());
    std::printf(
        "Down through %d photos, %d ms on each: median %.1f ms, slowest %.1f ms, "
        "longest GUI-thread stall %.1f ms\n",
        kPhotos, pause, times[times.size() / 2], times.back(), longestStall);
    std::fflush(stdout);
    std::quick_exit(EXIT_SUCCESS);
}
