#include "batch/CropCommand.h"

#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "batch/NameFacts.h"
#include "batch/OutputFolder.h"
#include "batch/Preconditions.h"
#include "batch/RuleClash.h"
#include "imaging/AtomicFile.h"

namespace vellumo {

namespace {

CropCommandResult Ended(CropCommandResult::Ending ending) {
    CropCommandResult result;
    result.ending = ending;
    return result;
}

CropCommandResult Refused(CropRefusal::Kind kind, std::string folder, Sentence detail = {}) {
    CropCommandResult result = Ended(CropCommandResult::Ending::Refused);
    result.refusal = CropRefusal{kind, std::move(folder), std::move(detail), std::nullopt};
    return result;
}

// The output folder's subfolders the kept tree writes into, made before
// the job (the worker makes nothing). One that cannot be made fails its
// images' writes, with the reason the file system gives.
void MakeSubfolders(const std::string& outputFolder, const OutputPlan& plan) {
    namespace fs = std::filesystem;
    std::set<fs::path> made;
    for (const PlannedOutput& image : plan.images) {
        const fs::path folder = fs::path(image.path).parent_path();
        if (!image.refusal.empty() || folder == fs::path(outputFolder) ||
            !made.insert(folder).second) {
            continue;
        }
        std::error_code ignored;
        fs::create_directories(folder, ignored);
        // Left over from an earlier run that was killed mid-write.
        atomicfile::RemoveLeftoversOfEndedProcesses(folder.string());
    }
}

}  // namespace

CropCommand::CropCommand(CropRequest request, ImageProcessor& processor)
    : request_(std::move(request)), processor_(processor) {}

CropCommandResult CropCommand::Agree(CropQuestions& questions) const {
    using Ending = CropCommandResult::Ending;
    const CropSettings& settings = request_.settings;
    if (const std::optional<Sentence> refusal = CropJobRefusal(request_.images, settings)) {
        return Refused(CropRefusal::Kind::Unready, settings.outputFolder, *refusal);
    }
    // Before any question, so that nothing is made for a job that cannot run.
    if (const std::optional<RuleClash> clash = RuleClashOf(settings)) {
        CropCommandResult refused = Refused(CropRefusal::Kind::RulesClash, settings.outputFolder);
        refused.refusal->clash = clash;
        return refused;
    }
    if (settings.replaceOriginals) {
        return Ended(questions.ReplaceOriginals(request_.images.size()) == Answer::Yes
                         ? Ending::Agreed
                         : Ending::Declined);
    }
    switch (OutputFolderState(settings.outputFolder)) {
        case FolderState::Exists:
            return Ended(Ending::Agreed);
        case FolderState::NotAFolder:
            return Refused(CropRefusal::Kind::NotAFolder, settings.outputFolder);
        case FolderState::Missing:
            // Made when the job starts, once nothing else can stop it.
            return Ended(questions.CreateFolder(settings.outputFolder) == Answer::Yes
                             ? Ending::Agreed
                             : Ending::Declined);
    }
    return Ended(Ending::Declined);
}

std::optional<BatchPart> CropCommand::Plan(CropQuestions& questions) const {
    const CropSettings& settings = request_.settings;
    // Names made of what the images hold need them read before anything is
    // decided (in the worker process, when that is the processor).
    const std::vector<ImageNameFacts> facts =
        GatherNameFacts(settings, request_.images, processor_, &request_.adjustments);
    const auto part = [&](ClashPolicy policy) {
        return SelectBatchPart(settings, request_.images, policy, request_.shard, request_.recorded,
                               &facts, &request_.roots, request_.firstIndex);
    };
    BatchPart planned = part(request_.clashes.value_or(ClashPolicy::Refuse));
    // An auto crop always lies on the image; padding, asked for, puts each
    // image on a canvas (one of the ratio already is left as it is).
    if (settings.mode != CropMode::Auto && !settings.pad.on &&
        EveryImageLeftWhole(settings, planned.list, planned.plan, processor_,
                            &request_.adjustments) &&
        questions.WriteUncroppedCopies() == Answer::No) {
        return std::nullopt;
    }
    if (!request_.clashes && !planned.plan.clashes.empty()) {
        if (questions.NumberClashes(planned.plan.clashes, planned.list) == Answer::No) {
            return std::nullopt;
        }
        planned = part(ClashPolicy::Number);
    }
    return planned;
}

CropCommandResult CropCommand::Run(CropQuestions& questions, CropObserver& observer,
                                   std::stop_token stop) const {
    using Ending = CropCommandResult::Ending;
    const CropSettings& settings = request_.settings;
    observer.Preparing();
    const std::optional<BatchPart> part = Plan(questions);
    if (!part) {
        return Ended(Ending::Declined);
    }
    observer.Planned(*part);
    const std::vector<OverwriteDecision> decisions = PromptOverwrites(
        part->plan, [&](const std::string& path) { return questions.Overwrite(path); });
    if (!settings.replaceOriginals && !request_.dryRun &&
        OutputFolderState(settings.outputFolder) == FolderState::Missing) {
        if (const SaveResult made = CreateOutputFolder(settings.outputFolder); !made.saved) {
            return Refused(CropRefusal::Kind::FolderNotMade, settings.outputFolder,
                           Sentence{"%1", {made.reason}});
        }
    }
    if (!settings.replaceOriginals && !request_.dryRun) {
        // What a run killed in the middle of a write left there.
        atomicfile::RemoveLeftoversOfEndedProcesses(settings.outputFolder);
        if (settings.keepStructure) {
            MakeSubfolders(settings.outputFolder, part->plan);
        }
    }
    if (std::string reason; !observer.Starting(*part, reason)) {
        return Refused(CropRefusal::Kind::NotStarted, settings.outputFolder,
                       Sentence{"%1", {reason}});
    }
    CropCommandResult result = Ended(Ending::Finished);
    result.report = RunJob(*part, decisions, observer, std::move(stop));
    return result;
}

JobReport CropCommand::RunJob(const BatchPart& part,
                              const std::vector<OverwriteDecision>& decisions,
                              CropObserver& observer, std::stop_token stop) const {
    JobCallbacks callbacks;
    callbacks.progress = [&observer](long, const ImageReport& report) {
        observer.ImageDone(report);
    };
    JobOptions options;
    options.dryRun = request_.dryRun;
    options.adjustments = &request_.adjustments;
    options.jobs = request_.jobs;
    options.stop = std::move(stop);
    return RunCropJob(request_.settings, part.list, part.plan, decisions, processor_, callbacks,
                      options);
}

}  // namespace vellumo
