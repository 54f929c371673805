// What selecting a photo in the window costs, end to end: from the table's
// new selection to the preview's picture (the photo with a 3:2 crop marked)
// being set on the view, through the window's own controller and workers.
// Also the first picture shown: the thumbnail the list made standing in
// for it, while it is decoded.
// Meanwhile a 1 ms timer on the GUI thread measures the longest time the
// thread was not free to run it.
//
//   build/bench/vellumo_bench_window_preview [RUNS] [PHOTO]
//
// PHOTO (a WebP, JPEG 2000 or HEIC file, say) replaces the 24-megapixel
// JPEG and is the only file: the PNG beside the JPEG is then not opened,
// nor decoded ahead as the JPEG's neighbour while the JPEG is timed.
//
// Runs without a display on Qt's offscreen platform unless QT_QPA_PLATFORM
// says otherwise; the window has the size it has on a 1280 x 800 screen.
// Inputs are shared with vellumo_bench_core (build/bench-data/).

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/BenchInputs.h"
#include "bench/BenchWindow.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/PreviewPrefetch.h"
#include "ui/sheet/ContactSheetController.h"
#include "ui/thumbnails/ThumbnailLoader.h"

namespace {

struct Timing {
    double milliseconds = 0;
    // Until the view first showed a picture of the file: its thumbnail
    // standing in, when the list had made it, else the picture itself.
    double firstPicture = 0;
    double longestGuiStall = 0;
};

// Selects `row` and waits until its picture is on the view.
Timing SelectAndWait(vellumo::ViewController& controller, QTableView& table,
                     vellumo::CropPreviewView& view, int row) {
    table.clearSelection();
    // A picture kept from an earlier selection would be shown at once: this
    // times the decode (vellumo_bench_browsing times the kept pictures).
    controller.preview().prefetch().Clear();
    QApplication::processEvents();
    vellumo::bench::StallWatch watch;
    QEventLoop loop;
    QElapsedTimer clock;
    double firstPicture = -1;
    const auto connection = QObject::connect(&view, &vellumo::CropPreviewView::imageChanged, [&] {
        if (!view.image().isNull() && firstPicture < 0) {
            firstPicture = clock.nsecsElapsed() / 1e6;
        }
        if (!view.image().isNull() && !controller.preview().isPending()) {
            loop.quit();
        }
    });
    watch.Start();
    clock.start();
    table.selectRow(row);
    loop.exec();
    Timing timing;
    timing.milliseconds = clock.nsecsElapsed() / 1e6;
    timing.firstPicture = firstPicture;
    // The picture is drawn on the screen at the next paint: count it in.
    view.repaint();
    timing.longestGuiStall = watch.Stop();
    QObject::disconnect(connection);
    return timing;
}

void Report(const std::string& what, std::vector<Timing> runs) {
    std::sort(runs.begin(), runs.end(),
              [](const Timing& a, const Timing& b) { return a.milliseconds < b.milliseconds; });
    double stall = 0;
    std::vector<double> first;
    for (const Timing& run : runs) {
        stall = std::max(stall, run.longestGuiStall);
        first.push_back(run.firstPicture);
    }
    std::sort(first.begin(), first.end());
    std::printf(
        "%-34s runs %2zu  median %7.1f ms  min %7.1f ms  max %7.1f ms  "
        "first picture median %6.1f ms  longest GUI-thread stall %5.1f ms\n",
        what.c_str(), runs.size(), runs[runs.size() / 2].milliseconds, runs.front().milliseconds,
        runs.back().milliseconds, first[first.size() / 2], stall);
}

}  // namespace

int main(int argc, char** argv) {
    vellumo::bench::UseOffscreenUnlessSet();
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 10;
    const QString jpeg = argc > 2 ? QString::fromLocal8Bit(argv[2])
                                  : QString::fromStdString(vellumo::bench::PhotoJpeg24());
    const std::string name =
        argc > 2 ? QFileInfo(jpeg).fileName().toStdString() : "24-megapixel JPEG (6000 x 4000)";
    const bool alone = argc > 2;
    const QString png = alone ? QString() : QString::fromStdString(vellumo::bench::PhotoPng100());
    const QStringList files = alone ? QStringList{jpeg} : QStringList{jpeg, png};

    QApplication application(argc, argv);
    vellumo::bench::ShownWindow shown;
    vellumo::MainWindow& window = shown.window;
    vellumo::ViewController& controller = shown.controller;

    controller.services().chooseFilesToOpen = [&](const vellumo::OpenFilesRequest&) {
        return vellumo::OpenFilesResult(files);
    };
    controller.OnAddImages();
    auto* ratios = window.findChild<QComboBox*>("comboAutoCropFormat");
    ratios->setCurrentIndex(2);  // "3:2"
    Q_EMIT ratios->activated(2);
    window.findChild<QAbstractButton*>("radioAutoCrop")->click();

    auto& table = *window.findChild<QTableView*>("tableViewImage");
    auto& view = *window.findChild<vellumo::CropPreviewView*>("imageViewCropPreview");
    std::printf("preview view %d x %d, device pixel ratio %.1f: pictures of up to %d pixels\n",
                view.width(), view.height(), view.devicePixelRatioF(), view.LongestPictureSide());

    // A first selection of each warms up the decoders and the thread pools.
    for (int row = 0; row < files.size(); ++row) {
        SelectAndWait(controller, table, view, row);
    }
    // The list's row icons, made as soon as the files were added, are the
    // thumbnails that stand in for a picture being decoded: timed once
    // without them (a selection before they exist), then with them.
    std::vector<Timing> coldRuns;
    for (int i = 0; i < runs; ++i) {
        controller.contactSheet()->thumbnails().Forget();
        coldRuns.push_back(SelectAndWait(controller, table, view, 0));
    }
    Report(name + ", no thumbnail", coldRuns);
    vellumo::ThumbnailLoader& thumbnails = controller.contactSheet()->thumbnails();
    thumbnails.Want(files);
    vellumo::bench::WaitUntil([&] {
        return std::all_of(files.begin(), files.end(),
                           [&](const QString& file) { return thumbnails.Find(file) != nullptr; });
    });

    std::vector<Timing> jpegRuns;
    for (int i = 0; i < runs; ++i) {
        jpegRuns.push_back(SelectAndWait(controller, table, view, 0));
    }
    Report(name, jpegRuns);

    if (!alone) {
        std::vector<Timing> pngRuns;
        for (int i = 0; i < std::max(1, runs / 3); ++i) {
            pngRuns.push_back(SelectAndWait(controller, table, view, 1));
        }
        Report("100-megapixel PNG (10000 x 10000)", pngRuns);
    }
    std::fflush(stdout);
    // As the application does: no waiting for worker threads at the end.
    std::quick_exit(EXIT_SUCCESS);
}
