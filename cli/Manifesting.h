#pragma once

// The command line's side of a manifest: what --resume may skip, and one
// durable entry per finished image.

#include <optional>
#include <string>

#include "batch/CropJob.h"
#include "batch/Manifest.h"
#include "cli/CliOptions.h"

namespace vellumo::cli {

class Manifesting {
  public:
    // Opens the manifest at `path` for appending; nothing, with `reason` set,
    // when it cannot be.
    static std::optional<Manifesting> Open(const std::string& path, const CropSettings& settings,
                                           std::string& reason);

    // Records a finished image: its status, and for an output that is there
    // (written, or kept) its length and SHA-256. False, with `reason` set,
    // when the entry could not be made durable. The entry made goes to
    // `made` when one is given.
    bool Record(const ImageReport& image, std::string& reason, ManifestEntry* made = nullptr);

  private:
    Manifesting(ManifestWriter writer, std::string fingerprint)
        : writer_(std::move(writer)), fingerprint_(std::move(fingerprint)) {}

    ManifestWriter writer_;
    std::string fingerprint_;
};

// The entries of the manifest a run appends to (options.manifest), when
// they may be appended to: every entry written with these settings. Prints
// why not and gives nothing otherwise.
std::optional<std::vector<ManifestEntry>> UsableManifest(const CliOptions& options);

}  // namespace vellumo::cli
