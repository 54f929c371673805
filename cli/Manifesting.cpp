#include "cli/Manifesting.h"

#include "imaging/FileDigest.h"

namespace vellumo::cli {

std::optional<Manifesting> Manifesting::Open(const std::string& path, const CropSettings& settings,
                                             std::string& reason) {
    std::optional<ManifestWriter> writer = ManifestWriter::Open(path, reason);
    if (!writer) {
        return std::nullopt;
    }
    return Manifesting(std::move(*writer), SettingsFingerprint(settings));
}

bool Manifesting::Record(const ImageReport& image, std::string& reason) {
    ManifestEntry entry;
    entry.source = image.source;
    // Absolute, so that a run from another folder (a resumed run, verify)
    // finds it.
    entry.output = AbsoluteOutputPath(image.output);
    entry.status = image.outcome.status;
    entry.reason = image.outcome.Reason();
    if (image.outcome.status == ImageStatus::Written ||
        image.outcome.status == ImageStatus::Skipped) {
        if (const std::optional<FileDigest> digest = DigestOfFile(image.output)) {
            entry.bytes = digest->bytes;
            entry.sha256 = digest->sha256;
        }
    }
    entry.time = ManifestTimeNow();
    entry.settings = fingerprint_;
    return writer_.Append(entry, reason);
}

}  // namespace vellumo::cli
