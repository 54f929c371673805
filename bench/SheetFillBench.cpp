// How long the contact sheet takes to show every photo of a batch: 200
// entries (hard links to a series of 24-megapixel photo-like JPEGs, so that
// each is a file of its own to the thumbnail cache) in a fresh thumbnail
// folder. Times the first screen, from the switch to the sheet until its
// cells all have their pictures, and the whole sheet, paged through from
// top to bottom, each page waited on until its cells have theirs. Also
// when the first screen's cells first all had a picture: a camera's
// embedded thumbnail stands in until the file's own is made.
//
//   build/bench/vellumo_bench_sheet_fill [ENTRIES] [FILES] [FOLDER]
//
// With FOLDER, its photos (camera JPEGs, or WebP, JPEG 2000 and HEIC
// files) are linked in turn instead.
// Runs on Qt's offscreen platform unless QT_QPA_PLATFORM says otherwise.

#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QScrollBar>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/BenchInputs.h"
#include "bench/BenchWindow.h"
#include "ui/sheet/ContactSheetView.h"
#include "ui/thumbnails/ThumbnailLoader.h"

namespace {

// `entries` paths in `folder`, each a hard link to one of `originals` in
// turn; empty when a link cannot be made.
QStringList LinkedEntries(const QTemporaryDir& folder, const std::vector<std::string>& originals,
                          int entries) {
    QStringList paths;
    for (int i = 0; i < entries; ++i) {
        const std::string& original = originals[static_cast<std::size_t>(i) % originals.size()];
        const QString suffix = QFileInfo(QString::fromStdString(original)).suffix();
        const QString path =
            folder.filePath(QStringLiteral("entry-%1.%2").arg(i, 4, 10, QChar('0')).arg(suffix));
        if (::link(original.c_str(), QFile::encodeName(path).constData()) != 0) {
            std::perror("link");
            return {};
        }
        paths << path;
    }
    return paths;
}

void WaitUntilIdle(const vellumo::ThumbnailLoader& loader) {
    QApplication::processEvents();
    vellumo::bench::WaitUntil([&] { return loader.isIdle(); });
    QApplication::processEvents();
}

}  // namespace

// The photos in `folder`, sorted by name.
std::vector<std::string> PhotosIn(const char* folder) {
    std::vector<std::string> found;
    const QDir dir(QString::fromLocal8Bit(folder));
    const QStringList kinds = {QStringLiteral("*.jpg"), QStringLiteral("*.JPG"),
                               QStringLiteral("*.webp"), QStringLiteral("*.jp2"),
                               QStringLiteral("*.heic")};
    for (const QString& name : dir.entryList(kinds, QDir::Files, QDir::Name)) {
        found.push_back(QFile::encodeName(dir.filePath(name)).toStdString());
    }
    return found;
}

int main(int argc, char** argv) {
    vellumo::bench::UseOffscreenUnlessSet();
    const int entries = argc > 1 ? std::max(1, std::atoi(argv[1])) : 200;
    const int files = argc > 2 ? std::max(1, std::atoi(argv[2])) : 8;
    QTemporaryDir cacheHome;
    QTemporaryDir folder;
    qputenv("XDG_CACHE_HOME", cacheHome.path().toLocal8Bit());
    QApplication application(argc, argv);
    const std::vector<std::string> originals =
        argc > 3 ? PhotosIn(argv[3]) : vellumo::bench::PhotoJpeg24Series(files);
    if (originals.empty()) {
        std::fputs("no photos to show\n", stderr);
        return EXIT_FAILURE;
    }
    const QStringList paths = LinkedEntries(folder, originals, entries);
    if (paths.isEmpty()) {
        return EXIT_FAILURE;
    }

    vellumo::bench::ShownWindow shown;
    shown.controller.services().chooseFilesToOpen = [&](const vellumo::OpenFilesRequest&) {
        return vellumo::OpenFilesResult(paths);
    };
    shown.controller.OnAddImages();
    auto& sheet = *shown.window.findChild<vellumo::ContactSheetView*>("contactSheetImages");
    QElapsedTimer clock;
    clock.start();
    shown.window.findChild<QAction*>("actionShowContactSheet")->trigger();
    vellumo::ThumbnailLoader& loader = *sheet.thumbnailLoader();
    vellumo::bench::WaitUntil([&] {
        const QList<int> rows = sheet.VisibleRows();
        return std::all_of(rows.begin(), rows.end(), [&](int row) {
            return loader.Find(paths[row]) != nullptr || loader.HasFailed(paths[row]);
        });
    });
    const double firstPictures = clock.nsecsElapsed() / 1e6;
    WaitUntilIdle(loader);
    const double firstScreen = clock.nsecsElapsed() / 1e6;
    const auto cells = static_cast<long long>(sheet.VisibleRows().size());
    QScrollBar& bar = *sheet.verticalScrollBar();
    while (bar.value() < bar.maximum()) {
        bar.setValue(std::min(bar.maximum(), bar.value() + bar.pageStep()));
        WaitUntilIdle(loader);
    }
    const double whole = clock.nsecsElapsed() / 1e6;
    std::printf(
        "%d entries (%zu files), %lld cells on a screen: first screen's pictures %.0f ms, "
        "first screen %.0f ms, whole sheet %.0f ms, thumbnails made %llu, stand-ins %llu\n",
        entries, originals.size(), cells, firstPictures, firstScreen, whole,
        static_cast<unsigned long long>(loader.deliveries().made),
        static_cast<unsigned long long>(loader.deliveries().standIns));
    std::fflush(stdout);
    std::quick_exit(EXIT_SUCCESS);
}
