#include "batch/Preconditions.h"

#include "batch/NameTemplate.h"

namespace vellumo {

std::optional<std::string> CropJobRefusal(const std::vector<std::string>& listImagePaths,
                                          const CropSettings& settings) {
    if (listImagePaths.empty()) {
        return kNoImagesToCrop;
    }
    if (settings.outputFolder.empty() && !settings.replaceOriginals) {
        return kSelectAnOutputFolder;
    }
    if (!settings.replaceOriginals) {
        if (const std::optional<std::string> problem = NameTemplateProblem(settings.nameTemplate)) {
            return "The name template cannot be used: " + *problem + ".";
        }
    }
    return std::nullopt;
}

}  // namespace vellumo
