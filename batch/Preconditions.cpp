#include "batch/Preconditions.h"

namespace vellumo {

std::optional<std::string> CropJobRefusal(const std::vector<std::string>& listImagePaths,
                                          const CropSettings& settings) {
    if (listImagePaths.empty()) {
        return kNoImagesToCrop;
    }
    if (settings.outputFolder.empty() && !settings.replaceOriginals) {
        return kSelectAnOutputFolder;
    }
    return std::nullopt;
}

}  // namespace vellumo
