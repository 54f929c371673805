// Carrying a source file's metadata and creation date over to a saved file.

#include "imaging/FileDates.h"
#include "imaging/ImageTools.h"
#include "imaging/MetadataCarry.h"

namespace vellumo {

MetadataResult ImageTools::CarryMetadata(const std::string& source, const std::string& output) {
    return metadatacarry::Carry(source, output, [&] { return CreationDate(source); });
}

MetadataResult ImageTools::CarryCreationDate(const std::string& source, const std::string& output) {
    if (!filedates::SetCreationDate(output, CreationDate(source))) {
        return MetadataResult::DateNotSet("the creation date cannot be set");
    }
    return MetadataResult::Carried();
}

std::chrono::system_clock::time_point ImageTools::CreationDate(const std::string& path) {
    return filedates::CreationDate(path).value_or(std::chrono::system_clock::now());
}

}  // namespace vellumo
