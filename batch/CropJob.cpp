#include "batch/CropJob.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "batch/CropRectangle.h"
#include "imaging/Fatal.h"

namespace vellumo {

namespace {

// What the job was given, shared by its ways of running.
struct JobInput {
    const CropSettings& settings;
    const std::vector<std::string>& list;
    const OutputPlan& plan;
    const std::vector<OverwriteDecision>& decisions;
    const JobOptions& options;
};

ImageTask TaskFor(const JobInput& in, long i) {
    const PlannedOutput& planned = in.plan.images[i];
    ImageTask task;
    task.index = i;
    task.source = in.list[i];
    task.output = planned.path;
    task.decision = in.decisions[i];
    task.settings = in.settings;
    task.settings.outputFormat = planned.format;
    task.kind = in.options.dryRun ? TaskKind::DryRun : TaskKind::Crop;
    task.target = planned.target;
    if (in.options.adjustments != nullptr) {
        if (const auto found = in.options.adjustments->find(task.source);
            found != in.options.adjustments->end()) {
            task.adjustedRect = found->second;
        }
    }
    return task;
}

// The image's own work (or the plan's refusal of it).
ImageOutcome ProcessImage(const JobInput& in, const ImageTask& task, ImageProcessor& processor) {
    if (const std::string& refusal = in.plan.images[task.index].refusal; !refusal.empty()) {
        ImageOutcome refused;
        // The plan's refusal is the whole line ("another image of this
        // batch is written to this path"), in English: no cause for the
        // window to word after a "cannot write:".
        refused.failure = Failure{FailureStage::Write, refusal, Sentence{}};
        return refused;
    }
    ImageOutcome outcome = processor.Process(task);
    if (outcome.status != ImageStatus::Failed) {
        Sentences warnings = in.plan.images[task.index].warnings;
        Append(warnings, outcome.warnings);
        outcome.warnings = std::move(warnings);
    }
    return outcome;
}

// Whether an image's metadata is carried depends on how every image before
// it fared, so it is decided in list order.
bool CarriesMetadata(const JobInput& in, const JobReport& report) {
    return in.settings.keepMetadata && report.allSucceeded && !in.options.dryRun;
}

void Record(JobReport& report, ImageReport image, const JobCallbacks& callbacks) {
    if (image.outcome.status == ImageStatus::Failed) {
        report.allSucceeded = false;
    }
    report.images.push_back(std::move(image));
    if (callbacks.progress) {
        callbacks.progress(report.images.back().index, report.images.back());
    }
}

// One image at a time, the metadata carried as part of each image's work.
JobReport RunInOrder(const JobInput& in, ImageProcessor& processor, const JobCallbacks& callbacks) {
    // Stopping ends the image under way at once.
    const std::stop_callback cancel(in.options.stop, [&] { processor.CancelAll(); });
    JobReport report;
    const long count = static_cast<long>(in.list.size());
    for (long i = 0; i < count; ++i) {
        if (in.options.stop.stop_requested()) {
            report.stopped = true;
            break;
        }
        ImageTask task = TaskFor(in, i);
        if (CarriesMetadata(in, report)) {
            task.kind = TaskKind::CropCarryingMetadata;
        }
        ImageReport image{i, task.source, task.output, task.decision, {}};
        image.outcome = ProcessImage(in, task, processor);
        // Ended by the stop: not handled.
        if (in.options.stop.stop_requested() && image.outcome.status == ImageStatus::Failed) {
            report.stopped = true;
            break;
        }
        Record(report, std::move(image), callbacks);
    }
    return report;
}

// Several images in flight, each on a thread of its own borrowing its own
// worker from the processor. The calling thread takes the results in list
// order: it carries each image's metadata as a second step once every
// earlier image has finished, then reports it, so that what is written and
// told is what the images one at a time would give.
JobReport RunInParallel(const JobInput& in, ImageProcessor& processor,
                        const JobCallbacks& callbacks, int jobs) {
    const long count = static_cast<long>(in.list.size());
    struct Slot {
        bool done = false;
        bool begun = false;  // false: stopped before it began
        ImageOutcome outcome;
    };
    std::vector<Slot> slots(static_cast<std::size_t>(count));
    std::mutex mutex;
    std::condition_variable finished;
    std::atomic<long> next{0};
    int running = jobs;

    const auto work = [&] {
        for (;;) {
            const long i = next.fetch_add(1);
            if (i >= count) {
                break;
            }
            Slot slot;
            if (!in.options.stop.stop_requested()) {
                slot.begun = true;
                slot.outcome = ProcessImage(in, TaskFor(in, i), processor);
            }
            slot.done = true;
            const std::lock_guard lock(mutex);
            slots[static_cast<std::size_t>(i)] = std::move(slot);
            finished.notify_all();
        }
        const std::lock_guard lock(mutex);
        --running;
        finished.notify_all();
    };
    // Stopping ends the images in flight at once; none begins after.
    const std::stop_callback cancel(in.options.stop, [&] { processor.CancelAll(); });

    JobReport report;
    {
        std::vector<std::jthread> threads;
        threads.reserve(static_cast<std::size_t>(jobs));
        for (int t = 0; t < jobs; ++t) {
            threads.emplace_back(work);
        }
        for (long i = 0; i < count; ++i) {
            Slot slot;
            {
                std::unique_lock lock(mutex);
                finished.wait(lock, [&] { return slots[static_cast<std::size_t>(i)].done; });
                slot = std::move(slots[static_cast<std::size_t>(i)]);
            }
            const bool stopped = in.options.stop.stop_requested();
            // An image stopped before it began, or ended in flight by the
            // stop, was not handled; one that was written still counts.
            if (!slot.begun || (stopped && slot.outcome.status == ImageStatus::Failed)) {
                report.stopped = true;
                continue;
            }
            ImageTask task = TaskFor(in, i);
            ImageReport image{i, task.source, task.output, task.decision, std::move(slot.outcome)};
            const ImageStatus status = image.outcome.status;
            if (status == ImageStatus::Failed) {
                report.allSucceeded = false;
            } else if (!stopped && CarriesMetadata(in, report) &&
                       (status == ImageStatus::Written || status == ImageStatus::Skipped)) {
                task.kind = TaskKind::CarryMetadataOnly;
                const ImageOutcome carried = processor.Process(task);
                image.outcome.notes.insert(image.outcome.notes.end(), carried.notes.begin(),
                                           carried.notes.end());
            }
            Record(report, std::move(image), callbacks);
        }
    }
    if (in.options.stop.stop_requested() && static_cast<long>(report.images.size()) < count) {
        report.stopped = true;
    }
    return report;
}

}  // namespace

int JobsToRun(const CropSettings& settings, const JobOptions& options, std::size_t images,
              const ImageProcessor& processor) {
    int jobs = std::clamp(options.jobs, 1, std::max(1, processor.ImagesAtOnce()));
    // An original replaced by its crop is gone once the crop is written: its
    // metadata must be read in the same step, which only the images one at a
    // time allow.
    if (settings.replaceOriginals && settings.keepMetadata) {
        jobs = 1;
    }
    return static_cast<int>(
        std::min<std::size_t>(static_cast<std::size_t>(jobs), std::max<std::size_t>(images, 1)));
}

JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const OutputPlan& plan, const std::vector<OverwriteDecision>& decisions,
                     ImageProcessor& processor, const JobCallbacks& callbacks,
                     const JobOptions& options) {
    if (decisions.size() != listImagePaths.size() || plan.images.size() != listImagePaths.size()) {
        Fatal("crop job given " + std::to_string(decisions.size()) + " decisions and " +
              std::to_string(plan.images.size()) + " outputs for " +
              std::to_string(listImagePaths.size()) + " images");
    }
    const JobInput in{settings, listImagePaths, plan, decisions, options};
    const int jobs = JobsToRun(settings, options, listImagePaths.size(), processor);
    JobReport report = jobs <= 1 ? RunInOrder(in, processor, callbacks)
                                 : RunInParallel(in, processor, callbacks, jobs);
    report.total = static_cast<long>(listImagePaths.size());
    return report;
}

bool EveryImageLeftWhole(const CropSettings& settings,
                         const std::vector<std::string>& listImagePaths, const OutputPlan& plan,
                         ImageProcessor& processor, const CropAdjustments* adjustments) {
    const std::vector<OverwriteDecision> decisions(listImagePaths.size());
    JobOptions options;
    options.dryRun = true;
    options.adjustments = adjustments;
    const JobInput in{settings, listImagePaths, plan, decisions, options};
    bool anyRead = false;
    for (long i = 0; i < static_cast<long>(listImagePaths.size()); ++i) {
        const ImageOutcome outcome = processor.Process(TaskFor(in, i));
        if (outcome.status != ImageStatus::Failed) {
            if (!outcome.wholeImage) {
                return false;
            }
            anyRead = true;
        }
    }
    return anyRead;
}

JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const std::vector<OverwriteDecision>& decisions, ImageProcessor& processor,
                     const JobCallbacks& callbacks, const JobOptions& options) {
    return RunCropJob(settings, listImagePaths,
                      PlanOutputs(settings, listImagePaths, ClashPolicy::Refuse), decisions,
                      processor, callbacks, options);
}

}  // namespace vellumo
