// Scrolling the contact sheet through 2,000 images while their thumbnails
// are still being made: page by page from the top to the bottom at a steady
// pace, then back up. Measures what the GUI thread goes through: the time
// of each frame (the sheet's repaint after a scroll step) and the longest
// time a 1 ms timer on the GUI thread went without running, which covers
// everything else the thread did meanwhile (thumbnails arriving, rows
// drawn again).
//
//   build/bench/vellumo_bench_contact_sheet [ENTRIES] [FILES] [STEP_MS]
//
// ENTRIES list entries (2000) are distinct paths, hard links to FILES
// (40) generated photo-like JPEGs of 1600 x 1067 in a temporary folder; the
// thumbnail folder is a fresh temporary one, so every thumbnail is decoded.
// Runs on Qt's offscreen platform unless QT_QPA_PLATFORM says otherwise.

#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/BenchWindow.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/sheet/ContactSheetView.h"
#include "ui/thumbnails/ThumbnailLoader.h"

namespace {

// Gradients, discs and noise: a JPEG that takes as long to decode as a
// photo of its size.
QImage PhotoLike(int width, int height, int seed) {
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, width, height);
    sky.setColorAt(0, QColor::fromHsv((seed * 37) % 360, 120, 230));
    sky.setColorAt(1, QColor::fromHsv((seed * 37 + 120) % 360, 200, 90));
    painter.fillRect(image.rect(), sky);
    QRandomGenerator random(static_cast<quint32>(seed));
    for (int i = 0; i < 40; ++i) {
        painter.setBrush(QColor::fromHsv(random.bounded(360), 150, 200, 120));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QPoint(random.bounded(width), random.bounded(height)),
                            random.bounded(20, 200), random.bounded(20, 200));
    }
    painter.end();
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const int n = random.bounded(-12, 13);
            const QRgb p = line[x];
            line[x] = qRgb(std::clamp(qRed(p) + n, 0, 255), std::clamp(qGreen(p) + n, 0, 255),
                           std::clamp(qBlue(p) + n, 0, 255));
        }
    }
    return image;
}

// The longest time the GUI thread did not get to a 1 ms timer.
class StallWatch {
  public:
    StallWatch() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            longest_ = std::max(longest_, sinceTick_.nsecsElapsed() / 1e6);
            sinceTick_.restart();
        });
    }
    void Start() {
        longest_ = 0;
        sinceTick_.start();
        timer_.start(1);
    }
    double Stop() {
        timer_.stop();
        return longest_;
    }

  private:
    QTimer timer_;
    QElapsedTimer sinceTick_;
    double longest_ = 0;
};

struct Pass {
    std::vector<double> frames;  // ms per repaint
    double longestStall = 0;
    double seconds = 0;
};

double Percentile(std::vector<double> values, double p) {
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, static_cast<std::size_t>(p * values.size()))];
}

// Scrolls `sheet` a page at a time, every `stepMs`, from where it is to the
// other end (`down` or up), repainting after each step as the screen would.
Pass Scroll(vellumo::ContactSheetView& sheet, bool down, int stepMs) {
    Pass pass;
    StallWatch watch;
    QScrollBar& bar = *sheet.verticalScrollBar();
    QElapsedTimer clock;
    QEventLoop loop;
    QTimer step;
    step.setTimerType(Qt::PreciseTimer);
    QObject::connect(&step, &QTimer::timeout, [&] {
        const int next = down ? std::min(bar.maximum(), bar.value() + bar.pageStep())
                              : std::max(bar.minimum(), bar.value() - bar.pageStep());
        bar.setValue(next);
        QElapsedTimer frame;
        frame.start();
        sheet.viewport()->repaint();
        pass.frames.push_back(frame.nsecsElapsed() / 1e6);
        if (next == (down ? bar.maximum() : bar.minimum())) {
            loop.quit();
        }
    });
    watch.Start();
    clock.start();
    step.start(stepMs);
    loop.exec();
    pass.seconds = clock.nsecsElapsed() / 1e9;
    pass.longestStall = watch.Stop();
    return pass;
}

void Report(const char* what, const Pass& pass, const vellumo::ThumbnailLoader& loader) {
    const long over =
        std::count_if(pass.frames.begin(), pass.frames.end(), [](double ms) { return ms > 16.0; });
    std::printf(
        "%-22s %4zu frames in %5.1f s  frame median %5.2f ms  p95 %5.2f ms  max %5.2f ms  "
        "frames over 16 ms: %ld  longest GUI-thread stall %5.1f ms  thumbnails made %llu, "
        "cached %lld (%.0f MB)\n",
        what, pass.frames.size(), pass.seconds, Percentile(pass.frames, 0.5),
        Percentile(pass.frames, 0.95), Percentile(pass.frames, 1.0), over, pass.longestStall,
        static_cast<unsigned long long>(loader.deliveries().made),
        static_cast<long long>(loader.cache().count()), loader.cache().bytes() / 1048576.0);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const int entries = argc > 1 ? std::max(1, std::atoi(argv[1])) : 2000;
    const int files = argc > 2 ? std::max(1, std::atoi(argv[2])) : 40;
    const int stepMs = argc > 3 ? std::max(1, std::atoi(argv[3])) : 40;

    QTemporaryDir cacheHome;
    QTemporaryDir folder;
    qputenv("XDG_CACHE_HOME", cacheHome.path().toLocal8Bit());
    QApplication application(argc, argv);

    std::vector<QString> originals;
    for (int i = 0; i < files; ++i) {
        const QString path = folder.filePath(QStringLiteral("photo-%1.jpg").arg(i));
        PhotoLike(1600, 1067, i).save(path, "JPEG", 85);
        originals.push_back(path);
    }
    QStringList paths;
    for (int i = 0; i < entries; ++i) {
        const QString path =
            folder.filePath(QStringLiteral("entry-%1.jpg").arg(i, 5, 10, QChar('0')));
        const QString& original = originals[static_cast<std::size_t>(i % files)];
        if (::link(QFile::encodeName(original).constData(), QFile::encodeName(path).constData()) !=
            0) {
            std::perror("link");
            return EXIT_FAILURE;
        }
        paths << path;
    }

    vellumo::MainWindow window;
    vellumo::ViewController controller;
    controller.LoadView(window);
    window.resize(1280, 800);
    window.show();
    controller.services().chooseFilesToOpen = [&](const vellumo::OpenFilesRequest&) {
        return vellumo::OpenFilesResult(paths);
    };
    controller.OnAddImages();
    window.findChild<QAction*>("actionShowContactSheet")->trigger();
    auto& sheet = *window.findChild<vellumo::ContactSheetView*>("contactSheetImages");
    QApplication::processEvents();
    vellumo::ThumbnailLoader& loader = *sheet.thumbnailLoader();
    std::printf("%d entries (%d files), sheet %d x %d showing %lld cells, a page every %d ms\n",
                entries, files, sheet.viewport()->width(), sheet.viewport()->height(),
                static_cast<long long>(sheet.VisibleRows().size()), stepMs);

    Report("down, thumbnails cold", Scroll(sheet, true, stepMs), loader);
    Report("up, thumbnails loading", Scroll(sheet, false, stepMs), loader);
    // Then let the top screens finish and scroll once more.
    vellumo::bench::WaitUntil([&] { return loader.isIdle(); }, 60000);
    Report("down again", Scroll(sheet, true, stepMs), loader);
    std::fflush(stdout);
    std::quick_exit(EXIT_SUCCESS);
}
