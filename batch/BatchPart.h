#pragma once

// The part of a batch one run does: its shard of the whole list, less the
// images its manifest already records as done. Outputs are planned with the
// whole list, so that every shard names and numbers each image's output as
// one run of the whole batch would.

#include <optional>
#include <string>
#include <vector>

#include "batch/CropSettings.h"
#include "batch/Manifest.h"
#include "batch/OutputPlan.h"
#include "batch/Shard.h"

namespace vellumo {

struct BatchPart {
    std::vector<std::string> list;  // the images to do now, in the batch's order
    OutputPlan plan;                // their outputs, and the clashes among them
    long shardSize = 0;             // the images of this shard, done or not
    long alreadyDone = 0;           // of those, recorded as done and still there
};

// `all` is the whole batch (for a shard: sorted, each path once; see
// SortedUnique). An image is already done when the latest entry of `done`
// for its source is done, names the output planned for it, and that file
// still has the recorded length and SHA-256; it is not opened. `facts`,
// `roots` and `firstIndex` are PlanOutputs'.
BatchPart SelectBatchPart(const CropSettings& settings, const std::vector<std::string>& all,
                          ClashPolicy policy, const std::optional<Shard>& shard,
                          const std::vector<ManifestEntry>& done,
                          const std::vector<ImageNameFacts>* facts = nullptr,
                          const std::vector<std::string>* roots = nullptr, long firstIndex = 0);

// Why a manifest cannot be resumed with these settings: its first entry
// written with others ("line 3 was written with other settings"); empty
// when every entry agrees.
std::string ForeignSettings(const std::vector<ManifestEntry>& entries,
                            const std::string& fingerprint);

}  // namespace vellumo
