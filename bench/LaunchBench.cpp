// Starting with a folder of 10,000 files (`vellumo FOLDER`): the time until
// the list holds them all, and the longest GUI-thread stall from then until
// two seconds later, while the visible rows' thumbnails are made. The files
// are empty (a list takes paths without opening them; each row shows its
// warning mark once looked at).
//
//   build/bench/vellumo_bench_launch [COUNT]
//
// Runs on Qt's offscreen platform unless QT_QPA_PLATFORM says otherwise.

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "app/DesktopLaunch.h"
#include "bench/BenchWindow.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"

int main(int argc, char** argv) {
    vellumo::bench::UseOffscreenUnlessSet();
    const int count = argc > 1 ? std::max(1, std::atoi(argv[1])) : 10000;
    QApplication application(argc, argv);
    QTemporaryDir dir;
    for (int i = 0; i < count; ++i) {
        QFile(dir.filePath(QStringLiteral("photo-%1.jpg").arg(i))).open(QIODevice::WriteOnly);
    }
    vellumo::bench::ShownWindow shown;
    vellumo::MainWindow& window = shown.window;
    vellumo::ViewController& controller = shown.controller;

    QByteArray folder = dir.path().toLocal8Bit();
    std::vector<char*> arguments{argv[0], folder.data()};
    const vellumo::Launch launch =
        vellumo::DesktopLaunch(static_cast<int>(arguments.size()), arguments.data());

    vellumo::bench::StallWatch watch;
    QElapsedTimer clock;
    clock.start();
    launch.launched(window, controller);
    const double listed = clock.nsecsElapsed() / 1e6;
    if (controller.imageList().paths().size() != count) {
        std::fprintf(stderr, "listed %lld of %d\n",
                     static_cast<long long>(controller.imageList().paths().size()), count);
        return 1;
    }
    watch.Start();
    QEventLoop settle;
    QTimer::singleShot(2000, &settle, &QEventLoop::quit);
    settle.exec();
    const double longest = watch.Stop();
    std::printf(
        "%d files: listed in %.1f ms (one GUI-thread turn); longest GUI-thread stall over the "
        "next 2 s %.1f ms\n",
        count, listed, longest);
    std::fflush(stdout);
    std::quick_exit(EXIT_SUCCESS);
}
