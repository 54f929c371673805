// vellumo-cli: the crop engine without a window.
//
// Exit status: 0 when every image succeeded, 1 when some failed, 2 when
// nothing was attempted (a usage error, an output folder that is a file or
// cannot be made, a manifest that cannot be used), 130 when the job was
// stopped by SIGINT or SIGTERM. `vellumo-cli verify` checks the manifests of
// a batch (cli/VerifyCommand.h); `vellumo-cli --sandbox-status` tells how
// the image workers lock themselves down (cli/SandboxStatusCommand.h).

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <stop_token>
#include <string_view>
#include <thread>
#include <vector>

#include "batch/BatchPart.h"
#include "batch/CropCommand.h"
#include "cli/CliCrop.h"
#include "cli/CliOptions.h"
#include "cli/Manifesting.h"
#include "cli/SandboxStatusCommand.h"
#include "cli/VerifyCommand.h"
#include "cli/WatchCommand.h"
#include "imaging/AtomicFile.h"
#include "worker/WorkerImageProcessor.h"

namespace {

// SIGINT and SIGTERM are taken by one thread of their own (blocked in every
// other): the first stops the job as the window's Stop button does; the
// second ends the program at once. Either way no output path holds a
// partial file: the workers, which notice the engine's end, end with it, and
// the temporary files the engine is writing are removed.
void WatchForStopSignals(const std::stop_source& stop) {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::thread([signals, stop]() mutable {
        int signal = 0;
        sigwait(&signals, &signal);
        std::cerr << "\nvellumo-cli: stopping (the images in flight are ended; again to quit "
                     "at once)"
                  << std::endl;
        stop.request_stop();
        sigwait(&signals, &signal);
        vellumo::atomicfile::RemoveTemporariesInProgress();
        _exit(130);
    }).detach();
}

std::optional<std::string> Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vellumo;
    if (argc > 1 && std::string_view(argv[1]) == "verify") {
        return cli::RunVerify(argc - 1, argv + 1);
    }
    if (argc == 2 && std::string_view(argv[1]) == "--sandbox-status") {
        return cli::RunSandboxStatus();
    }
    std::stop_source stop;
    WatchForStopSignals(stop);
    if (argc > 1 && std::string_view(argv[1]) == "watch") {
        return cli::RunWatch(argc - 1, argv + 1, stop);
    }
    const cli::ParseOutcome parsed =
        cli::ParseCommandLine(argc, argv, isatty(STDIN_FILENO) == 1, &Environment);
    if (!parsed.options) {
        (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.message << std::endl;
        return parsed.exitCode;
    }
    const cli::CliOptions& options = *parsed.options;
    // A manifest is checked before anything is written: another batch's, or
    // a damaged one, is refused.
    std::vector<ManifestEntry> recorded;
    if (!options.manifest.empty() && !options.dryRun) {
        std::optional<std::vector<ManifestEntry>> usable = cli::UsableManifest(options);
        if (!usable) {
            return 2;
        }
        if (options.resume) {
            recorded = std::move(*usable);
        }
    }
    // Decoding and encoding happen in worker processes: a file that crashes
    // a decoder fails alone and the batch goes on.
    WorkerImageProcessor processor(options.limits);
    const CropCommand command(cli::RequestOf(options, std::move(recorded)), processor);
    cli::CliAnswers answers(options.overwrite);
    cli::CliProgress progress(options, stop);
    CropCommandResult result = command.Agree(answers);
    if (result.ending == CropCommandResult::Ending::Agreed) {
        result = command.Run(answers, progress, stop.get_token());
    }
    if (result.refusal) {
        return cli::ReportRefusal(options, *result.refusal);
    }
    // The command line's answers never decline: a job that ran.
    return result.ending == CropCommandResult::Ending::Finished ? progress.Finish(result.report)
                                                                : 2;
}
