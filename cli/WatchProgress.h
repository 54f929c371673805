#pragma once

// What a watch tells and keeps of each batch of arrived images: a line (or
// JSON object) per image as the batch prints it, numbered on across
// batches; a manifest entry per image, durable before the next; and in
// memory what the engine needs to skip done work and what the watch must
// never take for an arriving image (its own outputs).

#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <vector>

#include "batch/CropCommand.h"
#include "cli/CliOptions.h"
#include "cli/Manifesting.h"
#include "cli/Reporter.h"

namespace vellumo::cli {

// Everything the watch did, from the manifest and this run.
struct WatchRecord {
    std::vector<ManifestEntry> entries;
    std::set<std::string> outputs;  // absolute, as the manifest holds them
    long images = 0;                // reported by this run
    long failed = 0;
};

// The record of the entries of a manifest read at the start.
WatchRecord RecordOf(std::vector<ManifestEntry> entries);

// Of `arrived`, those the record does not hold as done: an image whose
// latest entry is done and whose output still has the recorded length and
// SHA-256 is cropped once only, whatever number its name got. Says how many
// were set aside (unless quiet).
std::vector<std::string> NotYetDone(std::vector<std::string> arrived, const WatchRecord& record,
                                    const CliOptions& options);

class WatchProgress final : public CropObserver {
  public:
    // A manifest that cannot record an image stops the watch through `stop`.
    WatchProgress(const CliOptions& options, Manifesting& manifesting, WatchRecord& record,
                  std::stop_source stop);

    void Planned(const BatchPart& part) override;
    void ImageDone(const ImageReport& report) override;

    // Why an image could not be recorded; empty when all were.
    const std::string& ManifestFailure() const { return manifestFailure_; }

  private:
    const CliOptions& options_;
    Manifesting& manifesting_;
    WatchRecord& record_;
    std::stop_source stop_;
    long firstIndex_;
    std::optional<Reporter> reporter_;
    std::string manifestFailure_;
};

}  // namespace vellumo::cli
