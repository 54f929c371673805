// Carrying a source file's metadata and creation date over to a saved file.

#include "imaging/FileDates.h"
#include "imaging/ImageTools.h"
#include "imaging/MetadataCarry.h"

namespace vellumo {

MetadataResult ImageTools::ChangeImageExifWithOriginalImagePath(
    const std::string& originalImagePath, const std::string& croppedImagePath) {
    return metadatacarry::Carry(originalImagePath, croppedImagePath,
                                [&] { return ImageCreationDateWithPath(originalImagePath); });
}

MetadataResult ImageTools::ChangeImageCreationDateWithOriginalImagePath(
    const std::string& originalImagePath, const std::string& croppedImagePath) {
    if (!filedates::SetCreationDate(croppedImagePath,
                                    ImageCreationDateWithPath(originalImagePath))) {
        return MetadataResult::DateNotSet("the creation date cannot be set");
    }
    return MetadataResult::Carried();
}

std::chrono::system_clock::time_point ImageTools::ImageCreationDateWithPath(
    const std::string& path) {
    return filedates::CreationDate(path).value_or(std::chrono::system_clock::now());
}

}  // namespace vellumo
