// Stop while two 100-megapixel PNGs are being cropped to PNG: the time from
// the press of Stop to the idle window (the job over, Crop Images enabled
// again), and the longest GUI-thread stall meanwhile.
//
//   build/bench/vellumo_bench_stop [RUNS]
//
// Runs on Qt's offscreen platform unless QT_QPA_PLATFORM says otherwise.
// Inputs are shared with vellumo_bench_core (build/bench-data/).

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/BenchInputs.h"
#include "bench/BenchWindow.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/dialogs/MessageBox.h"

namespace {

// Both images in flight are being written: their temporary files exist.
bool BothWriting(const QString& folder) {
    return QDir(folder)
               .entryList({QStringLiteral(".vellumo-*")}, QDir::Files | QDir::Hidden)
               .size() >= 2;
}

}  // namespace

int main(int argc, char** argv) {
    vellumo::bench::UseOffscreenUnlessSet();
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    QTemporaryDir dir;
    // Two files, so that two images are in flight.
    const QString png = QString::fromStdString(vellumo::bench::PhotoPng100());
    QStringList sources;
    for (const char* name : {"a.png", "b.png"}) {
        const QString copy = dir.filePath(QString::fromLatin1(name));
        QFile::link(png, copy);
        sources << copy;
    }

    QApplication application(argc, argv);
    vellumo::bench::ShownWindow shown;
    vellumo::MainWindow& window = shown.window;
    vellumo::ViewController& controller = shown.controller;
    // Every question gets its default answer; the report is closed.
    controller.services().showMessageBox = [](const vellumo::MessageBoxRequest& request) {
        return vellumo::BoxAnswer{request.defaultButton};
    };
    controller.services().chooseFilesToOpen = [&](const vellumo::OpenFilesRequest&) {
        return vellumo::OpenFilesResult(sources);
    };
    controller.OnAddImages();
    auto* format = window.findChild<QComboBox*>("comboFormat");
    format->setCurrentIndex(format->findText(QStringLiteral("PNG")));
    Q_EMIT format->activated(format->currentIndex());
    auto* crop = window.findChild<QAbstractButton*>("buttonCropImages");
    auto* stop = window.findChild<QAbstractButton*>("buttonStopCropping");

    std::vector<double> times;
    double longestStall = 0;
    for (int run = 0; run < runs; ++run) {
        const QString out = dir.filePath(QStringLiteral("out%1").arg(run));
        QDir().mkpath(out);
        window.findChild<QLineEdit*>("textFieldOutputFolder")->setText(out);
        crop->click();
        vellumo::bench::WaitUntil([&] { return BothWriting(out); });

        vellumo::bench::StallWatch watch;
        watch.Start();
        QElapsedTimer clock;
        clock.start();
        stop->click();
        vellumo::bench::WaitUntil([&] { return !controller.isCropping() && crop->isEnabled(); });
        times.push_back(clock.nsecsElapsed() / 1e6);
        longestStall = std::max(longestStall, watch.Stop());
        if (!QDir(out).entryList(QDir::Files | QDir::Hidden).isEmpty()) {
            std::fprintf(stderr, "a file was left in %s\n", qPrintable(out));
            return 1;
        }
    }
    std::sort(times.begin(), times.end());
    std::printf(
        "Stop with two 100-megapixel PNGs in flight: median %.1f ms, slowest %.1f ms, "
        "longest GUI-thread stall %.1f ms\n",
        times[times.size() / 2], times.back(), longestStall);
    std::fflush(stdout);
    std::quick_exit(EXIT_SUCCESS);
}
