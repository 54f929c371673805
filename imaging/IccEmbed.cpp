#include "imaging/IccEmbed.h"

#include "imaging/ExivRuntime.h"
#include "imaging/FileBytes.h"

namespace vellumo {

SaveResult EmbedIccProfile(const std::string& path, const void* icc, std::size_t size) {
    exivruntime::EnsureStarted();
    std::string reason;
    const auto encoded = ReadFileBytes(path, reason);
    if (!encoded) {
        return SaveResult::Failed(reason);
    }
    std::vector<unsigned char> withProfile;
    try {
        const std::unique_ptr<Exiv2::Image> image = exivruntime::Open(
            Exiv2::ImageFactory::open(encoded->data(), static_cast<long>(encoded->size())));
        image->readMetadata();
        // A fresh buffer: Exiv2 takes over the bytes of the one it is given.
        Exiv2::DataBuf profile(static_cast<const Exiv2::byte*>(icc), static_cast<long>(size));
        image->setIccProfile(profile, /*bTestValid=*/false);
        image->writeMetadata();
        withProfile = exivruntime::BytesOf(*image);
    } catch (const Exiv2::Error& error) {
        return SaveResult::Failed(std::string("the colour profile could not be written: ") +
                                  error.what());
    }
    return OverwriteFileBytes(path, withProfile.data(), withProfile.size());
}

}  // namespace vellumo
