#include "batch/Shard.h"

#include <algorithm>
#include <charconv>

namespace vellumo {

namespace {

// A whole number, all of `text`.
std::optional<long> WholeNumber(const std::string& text) {
    long value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::optional<Shard> ParseShard(const std::string& text, std::string& reason) {
    const std::size_t slash = text.find('/');
    const std::optional<long> index =
        slash == std::string::npos ? std::nullopt : WholeNumber(text.substr(0, slash));
    const std::optional<long> count =
        slash == std::string::npos ? std::nullopt : WholeNumber(text.substr(slash + 1));
    if (!index || !count) {
        reason = "expected I/N, the shard's index and the number of shards, got " + text;
        return std::nullopt;
    }
    if (*count < 1) {
        reason = "the number of shards must be at least 1, got " + text;
        return std::nullopt;
    }
    if (*index < 0 || *index >= *count) {
        reason =
            "the shard's index must be from 0 to " + std::to_string(*count - 1) + ", got " + text;
        return std::nullopt;
    }
    return Shard{*index, *count};
}

std::optional<Shard> ShardFromEnvironment(std::optional<long> count,
                                          const EnvironmentLookup& lookup, std::string& reason) {
    std::optional<long> index;
    std::string from;
    if (const auto kubernetes = lookup("JOB_COMPLETION_INDEX")) {
        index = WholeNumber(*kubernetes);
        from = "JOB_COMPLETION_INDEX=" + *kubernetes;
    } else if (const auto slurm = lookup("SLURM_ARRAY_TASK_ID")) {
        index = WholeNumber(*slurm);
        from = "SLURM_ARRAY_TASK_ID=" + *slurm;
        // Arrays may start anywhere (--array=1-8): shards count from its
        // first task.
        if (const auto first = lookup("SLURM_ARRAY_TASK_MIN"); first && index) {
            const std::optional<long> min = WholeNumber(*first);
            index = min ? std::optional<long>(*index - *min) : std::nullopt;
        }
        if (!count) {
            if (const auto tasks = lookup("SLURM_ARRAY_TASK_COUNT")) {
                count = WholeNumber(*tasks);
            }
        }
    } else {
        reason = "neither JOB_COMPLETION_INDEX nor SLURM_ARRAY_TASK_ID is set";
        return std::nullopt;
    }
    if (!index) {
        reason = "not a shard index: " + from;
        return std::nullopt;
    }
    if (!count) {
        reason = "the number of shards is not known: give --shard-count";
        return std::nullopt;
    }
    return ParseShard(std::to_string(*index) + "/" + std::to_string(*count), reason);
}

std::vector<std::string> SortedUnique(std::vector<std::string> paths) {
    std::sort(paths.begin(), paths.end());
    paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
    return paths;
}

std::vector<long> ShardPositions(long total, const Shard& shard) {
    std::vector<long> positions;
    for (long i = shard.index; i < total; i += shard.count) {
        positions.push_back(i);
    }
    return positions;
}

}  // namespace vellumo
