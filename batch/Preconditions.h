#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/CropSettings.h"
#include "imaging/Sentence.h"

namespace vellumo {

inline constexpr const char* kNoImagesToCrop =
    VELLUMO_TEXT("Engine", "There are no images to crop.");
inline constexpr const char* kSelectAnOutputFolder =
    VELLUMO_TEXT("Engine", "Please select an output folder.");

// Why a job cannot start, tested in this order: an empty list, then an empty
// output folder text (only emptiness: a folder of one blank passes), which
// replacing the originals does not need, then a name template that cannot
// be read (an unknown or unclosed token). Nothing when it can start.
std::optional<Sentence> CropJobRefusal(const std::vector<std::string>& listImagePaths,
                                       const CropSettings& settings);

}  // namespace vellumo
