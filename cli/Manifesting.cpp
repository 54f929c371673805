#include "cli/Manifesting.h"

#include <iostream>

#include "batch/BatchPart.h"
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

bool Manifesting::Record(const ImageReport& image, std::string& reason, ManifestEntry* made) {
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
    if (made != nullptr) {
        *made = entry;
    }
    return writer_.Append(entry, reason);
}

std::optional<std::vector<ManifestEntry>> UsableManifest(const CliOptions& options) {
    const Loaded<std::vector<ManifestEntry>> read = ReadManifest(options.manifest);
    if (!read) {
        std::cerr << "vellumo-cli: --manifest: " << options.manifest << ": " << read.reason()
                  << std::endl;
        return std::nullopt;
    }
    if (const std::string foreign = ForeignSettings(*read, SettingsFingerprint(options.settings));
        !foreign.empty()) {
        std::cerr << "vellumo-cli: --manifest: " << options.manifest << ": " << foreign
                  << "; give the same settings, or another manifest" << std::endl;
        return std::nullopt;
    }
    return *read;
}

}  // namespace vellumo::cli
