#include "batch/NameFacts.h"

#include "batch/NameTemplate.h"

namespace vellumo {

bool NamesNeedImages(const CropSettings& settings) {
    std::string problem;
    const std::optional<NameTemplate> name = NameTemplate::Parse(settings.nameTemplate, problem);
    return !settings.replaceOriginals && name && name->NeedsImage();
}

std::vector<ImageNameFacts> GatherNameFacts(const CropSettings& settings,
                                            const std::vector<std::string>& listImagePaths,
                                            ImageProcessor& processor,
                                            const CropAdjustments* adjustments) {
    std::vector<ImageNameFacts> facts;
    if (!NamesNeedImages(settings)) {
        return facts;
    }
    facts.reserve(listImagePaths.size());
    for (long i = 0; i < static_cast<long>(listImagePaths.size()); ++i) {
        ImageTask task;
        task.index = i;
        task.source = listImagePaths[i];
        task.settings = settings;
        task.kind = TaskKind::NameFacts;
        if (adjustments != nullptr) {
            if (const auto found = adjustments->find(task.source); found != adjustments->end()) {
                task.adjustedRect = found->second;
            }
        }
        ImageOutcome outcome = processor.Process(task);
        if (outcome.status == ImageStatus::Failed) {
            facts.emplace_back();
            continue;
        }
        facts.push_back({outcome.outputSize, std::move(outcome.photoFacts)});
    }
    return facts;
}

}  // namespace vellumo
