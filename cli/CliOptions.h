#pragma once

// The command line's options, parsed into the settings the engine reads.

#include <optional>
#include <string>
#include <vector>

#include "batch/CropAdjustments.h"
#include "batch/CropSettings.h"
#include "batch/InputFolders.h"
#include "batch/OutputPlan.h"
#include "batch/Shard.h"
#include "worker/WorkerLimits.h"

namespace vellumo::cli {

enum class OverwriteMode { Ask, All, None };

struct CliOptions {
    CropSettings settings;
    std::vector<std::string> files;
    // The folders given, which the images' kept tree is measured from, and
    // what their walk left out.
    std::vector<std::string> roots;
    WalkedInputs walk;
    CropAdjustments adjustments;  // from a crop plan
    OverwriteMode overwrite = OverwriteMode::None;
    ClashPolicy onClash = ClashPolicy::Refuse;
    bool dryRun = false;
    bool json = false;
    bool quiet = false;
    WorkerLimits limits;
    int jobs = 1;  // images in flight at once
    // This run's share of the batch; then `files` is sorted, each path
    // once (SortedUnique), so that every shard sees the same list.
    std::optional<Shard> shard;
    std::string manifest;    // where each finished image is recorded
    bool resume = false;     // skip the images the manifest records as done
    bool recursive = false;  // the folders' subfolders too (a watch watches them)
};

// What the words after the program's name ask for: a crop of the images
// given, or `vellumo-cli watch FOLDER`, the images arriving in one folder
// (CliOptions::roots holds it; no plan, list, share of a batch, in-place or
// dry run).
enum class Command { Crop, Watch };

struct ParseOutcome {
    std::optional<CliOptions> options;  // set when the job can run
    int exitCode = 0;                   // otherwise: 0 after --help or --version, 2 after an error
    std::string message;                // the help text, or one line naming the bad option
};

// `standardInputIsTerminal` settles the default of --overwrite: ask on a
// terminal, none otherwise (no file is replaced without consent).
// `environment` gives the scheduler's variables for --shard auto.
ParseOutcome ParseCommandLine(int argc, const char* const* argv, bool standardInputIsTerminal,
                              const EnvironmentLookup& environment,
                              Command command = Command::Crop);

}  // namespace vellumo::cli
