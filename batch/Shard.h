#pragma once

// A batch split between runs of the command line on many machines, with no
// coordination between them: every run sorts the same input list the same
// way, drops repeated paths, and takes the images whose position is its
// index modulo the number of shards. The runs together take every image
// exactly once, whatever order a shell or a scheduler gave the paths in.

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vellumo {

struct Shard {
    long index = 0;  // 0 to count - 1
    long count = 1;
};

// "I/N", with 0 <= I < N; nothing, with `reason` set, for anything else.
std::optional<Shard> ParseShard(const std::string& text, std::string& reason);

// A variable of the environment, or nothing when it is not set.
using EnvironmentLookup = std::function<std::optional<std::string>(const char* name)>;

// The shard a scheduler gave this run: the index from JOB_COMPLETION_INDEX
// (a Kubernetes Indexed Job) or SLURM_ARRAY_TASK_ID less
// SLURM_ARRAY_TASK_MIN (a Slurm array job), the count from `count` or
// SLURM_ARRAY_TASK_COUNT. Nothing, with `reason` set, when they do not say.
std::optional<Shard> ShardFromEnvironment(std::optional<long> count,
                                          const EnvironmentLookup& lookup, std::string& reason);

// The paths sorted by their bytes, each once.
std::vector<std::string> SortedUnique(std::vector<std::string> paths);

// The positions (0-based, ascending) in a list of `total` images that
// belong to `shard`.
std::vector<long> ShardPositions(long total, const Shard& shard);

}  // namespace vellumo
