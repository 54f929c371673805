#pragma once

// The command line's side of a manifest: what --resume may skip, and one
// durable entry per finished image.

#include <optional>
#include <string>

#include "batch/CropJob.h"
#include "batch/Manifest.h"

namespace vellumo::cli {

class Manifesting {
  public:
    // Opens the manifest at `path` for appending; nothing, with `reason` set,
    // when it cannot be.
    static std::optional<Manifesting> Open(const std::string& path, const CropSettings& settings,
                                           std::string& reason);

    // Records a finished image: its status, and for an output that is there
    // (written, or kept) its length and SHA-256. False, with `reason` set,
    // when the entry could not be made durable.
    bool Record(const ImageReport& image, std::string& reason);

  private:
    Manifesting(ManifestWriter writer, std::string fingerprint)
        : writer_(std::move(writer)), fingerprint_(std::move(fingerprint)) {}

    ManifestWriter writer_;
    std::string fingerprint_;
};

}  // namespace vellumo::cli
