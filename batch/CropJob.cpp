#include "batch/CropJob.h"

#include "imaging/Fatal.h"

namespace vellumo {

JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const OutputPlan& plan, const std::vector<OverwriteDecision>& decisions,
                     ImageProcessor& processor, const JobCallbacks& callbacks,
                     const JobOptions& options) {
    if (decisions.size() != listImagePaths.size() || plan.images.size() != listImagePaths.size()) {
        Fatal("crop job given " + std::to_string(decisions.size()) + " decisions and " +
              std::to_string(plan.images.size()) + " outputs for " +
              std::to_string(listImagePaths.size()) + " images");
    }
    JobReport report;
    const long count = static_cast<long>(listImagePaths.size());
    for (long i = 0; i < count; ++i) {
        if (options.stop.stop_requested()) {
            report.stopped = true;
            break;
        }
        const PlannedOutput& planned = plan.images[i];
        ImageTask task;
        task.index = i;
        task.source = listImagePaths[i];
        task.output = planned.path;
        task.decision = decisions[i];
        task.settings = settings;
        task.settings.outputFormat = planned.format;
        if (options.adjustments != nullptr) {
            if (const auto found = options.adjustments->find(task.source);
                found != options.adjustments->end()) {
                task.adjustedRect = found->second;
            }
        }
        task.carryMetadata = settings.keepMetadata && report.allSucceeded;
        task.dryRun = options.dryRun;
        task.replacesSource = planned.replacesSource;

        ImageReport image{i, task.source, task.output, task.decision, {}};
        if (!planned.refusal.empty()) {
            image.outcome.reason = planned.refusal;
        } else {
            image.outcome = processor.Process(task);
        }
        if (image.outcome.status == ImageStatus::Failed) {
            report.allSucceeded = false;
        }
        report.images.push_back(std::move(image));
        if (callbacks.progress) {
            callbacks.progress(i, report.images.back());
        }
    }
    return report;
}

JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const std::vector<OverwriteDecision>& decisions, ImageProcessor& processor,
                     const JobCallbacks& callbacks, const JobOptions& options) {
    return RunCropJob(settings, listImagePaths,
                      PlanOutputs(settings, listImagePaths, ClashPolicy::Refuse), decisions,
                      processor, callbacks, options);
}

}  // namespace vellumo
