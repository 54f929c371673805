#include "batch/Preconditions.h"

#include "batch/NameTemplate.h"

namespace vellumo {

std::optional<Sentence> CropJobRefusal(const std::vector<std::string>& listImagePaths,
                                       const CropSettings& settings) {
    if (listImagePaths.empty()) {
        return Sentence{kNoImagesToCrop, {}};
    }
    if (settings.outputFolder.empty() && !settings.replaceOriginals) {
        return Sentence{kSelectAnOutputFolder, {}};
    }
    if (!settings.replaceOriginals) {
        if (const std::optional<std::string> problem = NameTemplateProblem(settings.nameTemplate)) {
            return Sentence{VELLUMO_TEXT("Engine", "The name template cannot be used: %1."),
                            {*problem}};
        }
    }
    return std::nullopt;
}

}  // namespace vellumo
