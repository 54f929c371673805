#include "cli/WatchCommand.h"

#include <dirent.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <optional>

#include "batch/OutputFolder.h"
#include "cli/CliCrop.h"
#include "cli/WatchProgress.h"
#include "cli/WatchedTree.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo::cli {

namespace {

// What the watch names the manifest it keeps in the output folder: hidden,
// so that no walk of that folder takes it for anything.
constexpr const char* kManifestName = ".vellumo-watch.jsonl";

// Absolute and normal, without a trailing slash: the form every path of the
// watch is built in, so that paths compare as strings.
std::string NormalPath(const std::string& path) {
    std::error_code ignored;
    std::string normal = std::filesystem::absolute(path, ignored).lexically_normal().string();
    while (normal.size() > 1 && normal.back() == '/') {
        normal.pop_back();
    }
    return normal;
}

// Why the folder given cannot be watched; nothing when it can.
std::optional<std::string> FolderProblem(const std::string& folder) {
    struct stat facts {};
    if (stat(folder.c_str(), &facts) != 0) {
        return folder + ": " + std::strerror(errno);
    }
    if (!S_ISDIR(facts.st_mode)) {
        return folder + ": not a folder";
    }
    DIR* listing = opendir(folder.c_str());
    if (listing == nullptr) {
        return "cannot read the folder " + folder + ": " + std::strerror(errno);
    }
    closedir(listing);
    return std::nullopt;
}

// Everything a watch needs before its first image; each step's failure is
// printed and ends the watch with its status.
struct Watch {
    CliOptions options;
    std::string root;
    std::optional<Manifesting> manifesting;
    WatchRecord record;
    std::optional<WatchedTree> tree;
};

int Prepare(Watch& watch) {
    CliOptions& options = watch.options;
    watch.root = NormalPath(options.roots.front());
    options.roots = {watch.root};
    if (const auto problem = FolderProblem(watch.root)) {
        std::cerr << "vellumo-cli: watch: " << *problem << std::endl;
        return 1;
    }
    const std::string out = NormalPath(options.settings.outputFolder);
    options.settings.outputFolder = out;
    if (const SaveResult made = CreateOutputFolder(out); !made.saved) {
        std::cerr << "vellumo-cli: --output: the folder " << out
                  << " cannot be created: " << made.reason << std::endl;
        return 2;
    }
    if (options.manifest.empty()) {
        options.manifest = out + "/" + kManifestName;
    }
    options.resume = true;
    std::optional<std::vector<ManifestEntry>> recorded = UsableManifest(options);
    std::string reason;
    if (recorded) {
        watch.manifesting = Manifesting::Open(options.manifest, options.settings, reason);
    }
    if (!watch.manifesting) {
        if (recorded) {
            std::cerr << "vellumo-cli: --manifest: " << options.manifest << ": " << reason
                      << std::endl;
        }
        return 2;
    }
    watch.record = RecordOf(std::move(*recorded));
    return 0;
}

// Watches the folder (and below) and finds the files already there.
int StartTree(Watch& watch, ArrivingFiles& files) {
    std::string reason;
    std::optional<FolderWatch> notifications = FolderWatch::Open(reason);
    if (!notifications) {
        std::cerr << "vellumo-cli: watch: no file notifications: " << reason << std::endl;
        return 1;
    }
    // An output folder inside the watched one is never watched.
    const std::string& out = watch.options.settings.outputFolder;
    const bool outInside = out.size() > watch.root.size() &&
                           out.compare(0, watch.root.size() + 1, watch.root + "/") == 0;
    watch.tree.emplace(std::move(*notifications), watch.root, outInside ? out : std::string(),
                       watch.options.recursive);
    if (!watch.tree->Start(files, reason)) {
        std::cerr << "vellumo-cli: watch: cannot watch the folder " << watch.root << ": " << reason
                  << std::endl;
        return 1;
    }
    return 0;
}

// Crops the images that arrived, as one batch; 0 to go on watching, else
// the status to end with.
int CropArrived(Watch& watch, std::vector<std::string> images, ImageProcessor& processor,
                std::stop_source& stop) {
    CliOptions batch = watch.options;
    batch.files = NotYetDone(std::move(images), watch.record, watch.options);
    if (batch.files.empty()) {
        return 0;
    }
    // [FileIndex] goes on across the watch's batches, and after those of
    // earlier watches: each image done so far has an entry.
    CropRequest request = RequestOf(batch, watch.record.entries);
    request.firstIndex = static_cast<long>(watch.record.entries.size());
    const CropCommand command(std::move(request), processor);
    CliAnswers answers(batch.overwrite);
    WatchProgress progress(watch.options, *watch.manifesting, watch.record, stop);
    CropCommandResult result = command.Agree(answers);
    if (result.ending == CropCommandResult::Ending::Agreed) {
        result = command.Run(answers, progress, stop.get_token());
    }
    if (result.refusal) {
        return ReportRefusal(watch.options, *result.refusal);
    }
    if (!progress.ManifestFailure().empty()) {
        std::cerr << "vellumo-cli: --manifest: " << watch.options.manifest
                  << ": cannot record an image: " << progress.ManifestFailure() << std::endl;
        return 1;
    }
    return 0;
}

// The complete files that are images to crop: never an output of the watch.
std::vector<std::string> Arrived(ArrivingFiles& files, const WatchRecord& record) {
    std::vector<std::string> arrived;
    for (std::string& path : files.TakeComplete(ArrivingFiles::Clock::now())) {
        if (record.outputs.count(path) == 0) {
            arrived.push_back(std::move(path));
        }
    }
    return arrived;
}

// Waits for events, or a stop, or (while files settle) a quarter second.
void Wait(int events, int wake, bool settling) {
    pollfd waiting[2] = {{events, POLLIN, 0}, {wake, POLLIN, 0}};
    poll(waiting, 2, settling ? 250 : -1);
}

int Follow(Watch& watch, ArrivingFiles& files, std::stop_source& stop) {
    const int wake = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    const std::stop_callback wakeOnStop(stop.get_token(), [wake] {
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t written = write(wake, &one, sizeof one);
    });
    // Decoding and encoding happen in worker processes, kept between batches.
    WorkerImageProcessor processor(watch.options.limits);
    int status = 0;
    while (status == 0 && !stop.stop_requested()) {
        if (!watch.tree->Follow(files)) {
            std::cerr << "vellumo-cli: watch: the folder " << watch.root
                      << " was removed or moved away; the watch ends" << std::endl;
            status = 1;
            break;
        }
        if (std::vector<std::string> arrived = Arrived(files, watch.record); !arrived.empty()) {
            status = CropArrived(watch, std::move(arrived), processor, stop);
            continue;  // events came in the meantime
        }
        Wait(watch.tree->Descriptor(), wake, files.Waiting());
    }
    close(wake);
    return status;
}

}  // namespace

int RunWatch(int argc, const char* const* argv, const std::stop_source& stop) {
    // Nobody is there to answer a question: existing outputs are kept
    // unless --overwrite all says otherwise.
    const ParseOutcome parsed = ParseCommandLine(
        argc, argv, false, [](const char*) { return std::optional<std::string>(); },
        Command::Watch);
    if (!parsed.options) {
        (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.message << std::endl;
        return parsed.exitCode;
    }
    Watch watch{*parsed.options, {}, {}, {}, {}};
    ArrivingFiles files;
    if (const int status = Prepare(watch); status != 0) {
        return status;
    }
    if (const int status = StartTree(watch, files); status != 0) {
        return status;
    }
    if (!watch.options.quiet) {
        std::cerr << "vellumo-cli: watching " << watch.root << " (" << watch.record.entries.size()
                  << " images recorded in " << watch.options.manifest << ")" << std::endl;
    }
    std::stop_source running = stop;
    const int status = Follow(watch, files, running);
    if (!watch.options.quiet || status != 0) {
        std::cerr << "vellumo-cli: watch ended: " << watch.record.images << " images, "
                  << watch.record.failed << " failed" << std::endl;
    }
    return status;
}

}  // namespace vellumo::cli
