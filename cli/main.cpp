// vellumo-cli: the crop engine without a window.
//
// Exit status: 0 when every image succeeded, 1 when some failed, 2 when
// nothing was attempted (a usage error, an output folder that is a file or
// cannot be made), 130 when the job was stopped by SIGINT or SIGTERM.

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <iostream>
#include <stop_token>
#include <thread>

#include "batch/CropJob.h"
#include "batch/OutputFolder.h"
#include "batch/OutputPlan.h"
#include "batch/OverwritePrompts.h"
#include "cli/CliOptions.h"
#include "cli/Reporter.h"
#include "cli/TerminalPrompt.h"
#include "worker/WorkerImageProcessor.h"

namespace {

// SIGINT and SIGTERM are taken by one thread of their own (blocked in every
// other): the first stops the job as the window's Stop button does; the
// second ends the program at once. Either way no output path holds a
// partial file: the workers, which notice the engine's end, remove theirs.
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
        _exit(130);
    }).detach();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vellumo;
    const cli::ParseOutcome parsed = cli::ParseCommandLine(argc, argv, isatty(STDIN_FILENO) == 1);
    if (!parsed.options) {
        (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.message << std::endl;
        return parsed.exitCode;
    }
    const cli::CliOptions& options = *parsed.options;
    std::stop_source stop;
    WatchForStopSignals(stop);

    // The output folder is made, with its parents, as the job starts.
    const std::string& folder = options.settings.outputFolder;
    if (!options.settings.replaceOriginals) {
        const FolderState state = OutputFolderState(folder);
        if (state == FolderState::NotAFolder) {
            std::cerr << "vellumo-cli: --output: " << NotAFolderNotice(folder) << std::endl;
            return 2;
        }
        if (state == FolderState::Missing && !options.dryRun) {
            const SaveResult made = CreateOutputFolder(folder);
            if (!made.saved) {
                std::cerr << "vellumo-cli: --output: the folder " << folder
                          << " cannot be created: " << made.reason << std::endl;
                return 2;
            }
        }
    }

    const OutputPlan plan = PlanOutputs(options.settings, options.files, options.onClash);
    const std::vector<OverwriteDecision> decisions =
        PromptOverwrites(plan, cli::MakeOverwriteAsker(options.overwrite));

    cli::Reporter reporter(options, static_cast<long>(options.files.size()),
                           isatty(STDERR_FILENO) == 1);
    // Decoding and encoding happen in a worker process: a file that crashes
    // a decoder fails alone and the batch goes on.
    WorkerImageProcessor processor(options.limits);
    JobCallbacks callbacks;
    callbacks.progress = [&](long, const ImageReport& report) { reporter.Image(report); };
    JobOptions jobOptions;
    jobOptions.dryRun = options.dryRun;
    jobOptions.adjustments = &options.adjustments;
    jobOptions.jobs = options.jobs;
    jobOptions.stop = stop.get_token();
    const JobReport report = RunCropJob(options.settings, options.files, plan, decisions, processor,
                                        callbacks, jobOptions);
    reporter.Finish(report);
    if (report.stopped) {
        return 130;
    }
    return report.allSucceeded ? 0 : 1;
}
