#include "batch/CropJob.h"

#include <iostream>

#include "batch/OutputPath.h"
#include "imaging/Fatal.h"

namespace vellumo {

JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const std::vector<OverwriteDecision>& decisions, ImageProcessor& processor,
                     const JobCallbacks& callbacks, const JobOptions& options) {
    if (decisions.size() != listImagePaths.size()) {
        Fatal("crop job given " + std::to_string(decisions.size()) + " decisions for " +
              std::to_string(listImagePaths.size()) + " images");
    }
    JobReport report;
    const long count = static_cast<long>(listImagePaths.size());
    for (long i = 0; i < count; ++i) {
        ImageTask task;
        task.index = i;
        task.source = listImagePaths[i];
        task.output = GenerateOutputPathWithImageIndex(settings, listImagePaths, i);
        task.decision = decisions[i];
        task.settings = settings;
        task.carryMetadata = settings.keepMetadata && report.allSucceeded;
        task.dryRun = options.dryRun;

        ImageReport image{i, task.source, task.output, task.decision, processor.Process(task)};
        if (options.printRemoveFailures && !image.outcome.removeError.empty()) {
            std::cout << "Remove failed: " << image.outcome.removeError << std::endl;
        }
        if (options.printRemoveFailures && !image.outcome.console.empty()) {
            std::cout << image.outcome.console << std::flush;
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

}  // namespace vellumo
