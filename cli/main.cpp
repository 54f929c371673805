// vellumo-cli: the crop engine without a window.
//
// Exit status: 0 when every image succeeded, 1 when some failed, 2 for a
// usage error.

#include <unistd.h>

#include <filesystem>
#include <iostream>

#include "batch/CropJob.h"
#include "batch/OverwritePrompts.h"
#include "batch/WorkerImageProcessor.h"
#include "cli/CliOptions.h"
#include "cli/Reporter.h"
#include "cli/TerminalPrompt.h"

int main(int argc, char** argv) {
    using namespace vellumo;
    const cli::ParseOutcome parsed = cli::ParseCommandLine(argc, argv, isatty(STDIN_FILENO) == 1);
    if (!parsed.options) {
        (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.message << std::endl;
        return parsed.exitCode;
    }
    const cli::CliOptions& options = *parsed.options;

    // Unlike the window, whose folder chooser picks an existing folder, the
    // command line makes its output folder. When it cannot, every image
    // fails with the reason.
    if (!options.dryRun) {
        std::error_code ignored;
        std::filesystem::create_directories(options.settings.outputFolder, ignored);
    }

    const std::vector<OverwriteDecision> decisions = PromptOverwrites(
        options.settings, options.files, cli::MakeOverwriteAsker(options.overwrite));

    cli::Reporter reporter(options, static_cast<long>(options.files.size()),
                           isatty(STDERR_FILENO) == 1);
    // Decoding and encoding happen in a worker process: a file that crashes
    // a decoder fails alone and the batch goes on.
    WorkerImageProcessor processor(options.limits);
    JobCallbacks callbacks;
    callbacks.progress = [&](long, const ImageReport& report) { reporter.Image(report); };
    JobOptions jobOptions;
    jobOptions.dryRun = options.dryRun;
    jobOptions.printRemoveFailures = !options.json;
    const JobReport report =
        RunCropJob(options.settings, options.files, decisions, processor, callbacks, jobOptions);
    reporter.Finish(report);
    return report.allSucceeded ? 0 : 1;
}
