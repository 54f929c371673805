#include "cli/CliCrop.h"

#include <unistd.h>

#include <iostream>

#include "batch/OutputFolder.h"
#include "cli/RuleClashText.h"
#include "cli/TerminalPrompt.h"

namespace vellumo::cli {

CliAnswers::CliAnswers(OverwriteMode overwrite) : ask_(MakeOverwriteAsker(overwrite)) {}

CliProgress::CliProgress(const CliOptions& options, std::stop_source stop)
    : options_(options), stop_(std::move(stop)) {}

namespace {

// What the walk of the folders given left out, in one line; nothing when
// it left nothing out.
std::string LeftOutLine(const WalkedInputs& walk) {
    std::string line;
    const auto add = [&line](long count, const char* one, const char* many) {
        if (count > 0) {
            line += (line.empty() ? "" : ", ") + std::to_string(count) + " " +
                    (count == 1 ? one : many);
        }
    };
    add(walk.hiddenSkipped, "hidden file or folder", "hidden files and folders");
    add(walk.nonImagesSkipped, "file that is no image", "files that are no images");
    add(walk.loopsSkipped, "linked folder leading back up", "linked folders leading back up");
    return line.empty() ? line : "left out of the folders: " + line;
}

}  // namespace

void CliProgress::Planned(const BatchPart& part) {
    for (const UnreadFolder& folder : options_.walk.unread) {
        std::cerr << "vellumo-cli: cannot read the folder " << folder.folder << ": "
                  << folder.reason << std::endl;
    }
    if (const std::string line = LeftOutLine(options_.walk); !line.empty() && !options_.quiet) {
        std::cerr << "vellumo-cli: " << line << std::endl;
    }
    if (part.alreadyDone > 0 && !options_.quiet) {
        std::cerr << "vellumo-cli: " << part.alreadyDone << " of " << part.shardSize
                  << " images already done (recorded in " << options_.manifest << ")" << std::endl;
    }
}

bool CliProgress::Starting(const BatchPart& part, std::string& reason) {
    if (!options_.manifest.empty() && !options_.dryRun) {
        manifesting_ = Manifesting::Open(options_.manifest, options_.settings, reason);
        if (!manifesting_) {
            return false;
        }
    }
    reporter_.emplace(options_, static_cast<long>(part.list.size()), isatty(STDERR_FILENO) == 1);
    return true;
}

void CliProgress::ImageDone(const ImageReport& report) {
    reporter_->Image(report);
    std::string reason;
    if (manifesting_ && manifestFailure_.empty() && !manifesting_->Record(report, reason)) {
        // What is not recorded would be done again: stop here.
        manifestFailure_ = reason;
        stop_.request_stop();
    }
}

int CliProgress::Finish(const JobReport& report) {
    reporter_->Finish(report);
    if (!manifestFailure_.empty()) {
        std::cerr << "vellumo-cli: --manifest: " << options_.manifest
                  << ": cannot record an image: " << manifestFailure_ << std::endl;
        return 1;
    }
    if (report.stopped) {
        return 130;
    }
    // A folder that could not be read is work not done.
    return report.allSucceeded && options_.walk.unread.empty() ? 0 : 1;
}

int ReportRefusal(const CliOptions& options, const CropRefusal& refusal) {
    std::cerr << "vellumo-cli: ";
    switch (refusal.kind) {
        case CropRefusal::Kind::Unready:
            std::cerr << refusal.detail.English();
            break;
        case CropRefusal::Kind::NotAFolder:
            std::cerr << "--output: " << NotAFolderNotice(refusal.folder);
            break;
        case CropRefusal::Kind::FolderNotMade:
            std::cerr << "--output: the folder " << refusal.folder
                      << " cannot be created: " << refusal.detail.English();
            break;
        case CropRefusal::Kind::NotStarted:
            std::cerr << "--manifest: " << options.manifest << ": " << refusal.detail.English();
            break;
        case CropRefusal::Kind::RulesClash:
            // The options check the same before (ApplyTrimAndPad): the
            // command's own check words it as they do.
            std::cerr << RuleClashText(refusal.clash.value_or(RuleClash::PadAfterCut),
                                       options.settings);
            break;
    }
    std::cerr << std::endl;
    return 2;
}

CropRequest RequestOf(const CliOptions& options, std::vector<ManifestEntry> recorded) {
    CropRequest request;
    request.settings = options.settings;
    request.images = options.files;
    request.roots = options.roots;
    request.adjustments = options.adjustments;
    request.jobs = options.jobs;
    request.dryRun = options.dryRun;
    request.clashes = options.onClash;
    request.shard = options.shard;
    request.recorded = std::move(recorded);
    return request;
}

}  // namespace vellumo::cli
