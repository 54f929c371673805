#include "batch/BatchPart.h"

#include <unordered_map>

namespace vellumo {

BatchPart SelectBatchPart(const CropSettings& settings, const std::vector<std::string>& all,
                          ClashPolicy policy, const std::optional<Shard>& shard,
                          const std::vector<ManifestEntry>& done,
                          const std::vector<ImageNameFacts>* facts,
                          const std::vector<std::string>* roots, long firstIndex) {
    const OutputPlan whole = PlanOutputs(settings, all, policy, facts, roots, firstIndex);
    // The latest entry of each source.
    std::unordered_map<std::string, const ManifestEntry*> latest;
    for (const ManifestEntry& entry : done) {
        latest[entry.source] = &entry;
    }
    const long total = static_cast<long>(all.size());
    const std::vector<long> positions = ShardPositions(total, shard.value_or(Shard{}));
    BatchPart part;
    std::unordered_map<long, long> partIndex;  // the batch's index -> the part's
    part.shardSize = static_cast<long>(positions.size());
    for (const long i : positions) {
        const auto found = latest.find(all[i]);
        if (found != latest.end() && found->second->Done() &&
            found->second->output == AbsoluteOutputPath(whole.images[i].path) &&
            OutputAsRecorded(*found->second)) {
            ++part.alreadyDone;
            continue;
        }
        partIndex[i] = static_cast<long>(part.list.size());
        part.list.push_back(all[i]);
        part.plan.images.push_back(whole.images[i]);
    }
    // The clashes among the images this part does, by their places in it.
    for (const OutputClash& clash : whole.clashes) {
        OutputClash here{clash.path, {}};
        for (const long i : clash.images) {
            if (const auto found = partIndex.find(i); found != partIndex.end()) {
                here.images.push_back(found->second);
            }
        }
        if (here.images.size() >= 2) {
            part.plan.clashes.push_back(std::move(here));
        }
    }
    return part;
}

std::string ForeignSettings(const std::vector<ManifestEntry>& entries,
                            const std::string& fingerprint) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].settings != fingerprint) {
            return "entry " + std::to_string(i + 1) +
                   " was written with other settings (name, format, folder or crop rule)";
        }
    }
    return {};
}

}  // namespace vellumo
