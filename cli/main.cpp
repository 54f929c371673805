// vellumo-cli: the crop engine without a window.
//
// Exit status: 0 when every image succeeded, 1 when some failed, 2 when
// nothing was attempted (a usage error, an output folder that is a file or
// cannot be made).

#include <unistd.h>

#include <iostream>

#include "batch/CropJob.h"
#include "batch/OutputFolder.h"
#include "batch/OutputPlan.h"
#include "batch/OverwritePrompts.h"
#include "cli/CliOptions.h"
#include "cli/Reporter.h"
#include "cli/TerminalPrompt.h"
#include "worker/WorkerImageProcessor.h"

int main(int argc, char** argv) {
    using namespace vellumo;
    const cli::ParseOutcome parsed = cli::ParseCommandLine(argc, argv, isatty(STDIN_FILENO) == 1);
    if (!parsed.options) {
        (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.message << std::endl;
        return parsed.exitCode;
    }
    const cli::CliOptions& options = *parsed.options;

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
    const JobReport report = RunCropJob(options.settings, options.files, plan, decisions, processor,
                                        callbacks, jobOptions);
    reporter.Finish(report);
    return report.allSucceeded ? 0 : 1;
}
