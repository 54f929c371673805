#pragma once

// The record a batch keeps of itself, so that a run killed at any moment can
// be resumed and a batch split over many machines can be checked:
// one JSON object per finished image, one per line, appended and made
// durable before the next image is recorded.
//
//   {"source": "...", "output": "...", "status": "written", "reason": null,
//    "bytes": 123456, "sha256": "...", "time": "2026-11-24T06:40:00Z",
//    "settings": "<SHA-256 of the settings>"}
//
// `bytes` and `sha256` describe the output as it was left (written, or kept
// when skipped); they are absent for a failed image. `settings` is the
// fingerprint of everything that decides the outputs (SettingsFingerprint),
// so that a resumed run never mixes outputs of two different batches.
//
// A line is written with one call and ends with a newline; a run killed
// while writing can leave at most a torn last line, which reading ignores
// and appending first cuts off (its image is then done again).

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "batch/CropSettings.h"
#include "batch/ImageTask.h"
#include "imaging/LoadResult.h"

namespace vellumo {

struct ManifestEntry {
    std::string source;
    std::string output;
    // Written, Skipped or Failed; in the JSON by its StatusName ("written").
    ImageStatus status = ImageStatus::Failed;
    std::string reason;  // for a failure
    std::optional<std::uint64_t> bytes;
    std::string sha256;
    std::string time;      // UTC, ISO 8601
    std::string settings;  // SettingsFingerprint

    // Done: an output is there, written or kept.
    bool Done() const { return status == ImageStatus::Written || status == ImageStatus::Skipped; }
};

// The entry's output is still the file it records: the same length and
// SHA-256 (read again). False for an entry without an output.
bool OutputAsRecorded(const ManifestEntry& entry);

// The fingerprint of the settings that decide what is written.
std::string SettingsFingerprint(const CropSettings& settings);

// The manifest's line for `entry`, without its newline.
std::string ManifestLine(const ManifestEntry& entry);

// Every entry of the manifest at `path`, in order. A missing file has none.
// A torn last line is left out; any other line that is not an entry fails
// the whole read ("line 12 is not a manifest entry").
Loaded<std::vector<ManifestEntry>> ReadManifest(const std::string& path);
// The entries of a manifest's text, as ReadManifest reads them.
Loaded<std::vector<ManifestEntry>> ManifestFromText(const std::string& text);

// Appends entries to a manifest, each made durable (written and synced to
// the disk) before Append returns.
class ManifestWriter {
  public:
    // Opens (or creates) the manifest at `path` for appending, cutting off a
    // torn last line first. Nothing, with `reason` set, when it cannot.
    static std::optional<ManifestWriter> Open(const std::string& path, std::string& reason);

    ManifestWriter(ManifestWriter&& other) noexcept;
    ManifestWriter& operator=(ManifestWriter&& other) noexcept;
    ManifestWriter(const ManifestWriter&) = delete;
    ManifestWriter& operator=(const ManifestWriter&) = delete;
    ~ManifestWriter();

    // False, with `reason` set, when the line could not be made durable.
    bool Append(const ManifestEntry& entry, std::string& reason);

  private:
    explicit ManifestWriter(int fd) : fd_(fd) {}
    int fd_ = -1;
};

// An output path as the manifest records it: absolute and normalised.
std::string AbsoluteOutputPath(const std::string& path);

// The current time as the manifest writes it: "2026-11-24T06:40:00Z".
std::string ManifestTimeNow();

}  // namespace vellumo
