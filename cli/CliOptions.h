#pragma once

// The command line's options, parsed into the settings the engine reads.

#include <optional>
#include <string>
#include <vector>

#include "batch/CropAdjustments.h"
#include "batch/CropSettings.h"
#include "batch/OutputPlan.h"
#include "worker/WorkerLimits.h"

namespace vellumo::cli {

enum class OverwriteMode { Ask, All, None };

struct CliOptions {
    CropSettings settings;
    std::vector<std::string> files;
    CropAdjustments adjustments;  // from a crop plan
    OverwriteMode overwrite = OverwriteMode::None;
    ClashPolicy onClash = ClashPolicy::Refuse;
    bool dryRun = false;
    bool json = false;
    bool quiet = false;
    WorkerLimits limits;
    int jobs = 1;  // images in flight at once
};

struct ParseOutcome {
    std::optional<CliOptions> options;  // set when the job can run
    int exitCode = 0;                   // otherwise: 0 after --help or --version, 2 after an error
    std::string message;                // the help text, or one line naming the bad option
};

// `standardInputIsTerminal` settles the default of --overwrite: ask on a
// terminal, none otherwise (no file is replaced without consent).
ParseOutcome ParseCommandLine(int argc, const char* const* argv, bool standardInputIsTerminal);

}  // namespace vellumo::cli
