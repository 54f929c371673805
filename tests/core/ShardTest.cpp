// Sharding a batch without coordination: the shard from I/N or from the
// variables schedulers set, and every position taken by exactly one shard.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "batch/Shard.h"

namespace vellumo {
namespace {

std::string Reason(const std::string& text) {
    std::string reason;
    EXPECT_FALSE(ParseShard(text, reason).has_value()) << text;
    return reason;
}

TEST(Shard, IOverNIsParsedAndBadOnesSayWhy) {
    std::string reason;
    const auto shard = ParseShard("2/5", reason);
    ASSERT_TRUE(shard.has_value()) << reason;
    EXPECT_EQ(shard->index, 2);
    EXPECT_EQ(shard->count, 5);
    EXPECT_EQ(Reason("3/2"), "the shard's index must be from 0 to 1, got 3/2");
    EXPECT_EQ(Reason("0/0"), "the number of shards must be at least 1, got 0/0");
    EXPECT_EQ(Reason("-1/4"), "the shard's index must be from 0 to 3, got -1/4");
    EXPECT_EQ(Reason("two/4"),
              "expected I/N, the shard's index and the number of shards, got two/4");
    EXPECT_EQ(Reason("1"), "expected I/N, the shard's index and the number of shards, got 1");
    EXPECT_EQ(Reason("1/2/3"),
              "expected I/N, the shard's index and the number of shards, got 1/2/3");
}

TEST(Shard, ShardsTogetherTakeEveryPositionExactlyOnce) {
    for (const long total : {0L, 1L, 2L, 7L, 100L, 1001L}) {
        for (const long count : {1L, 2L, 3L, 8L}) {
            std::multiset<long> taken;
            for (long index = 0; index < count; ++index) {
                for (const long position : ShardPositions(total, {index, count})) {
                    EXPECT_EQ(position % count, index);
                    taken.insert(position);
                }
            }
            ASSERT_EQ(static_cast<long>(taken.size()), total) << total << "/" << count;
            for (long position = 0; position < total; ++position) {
                EXPECT_EQ(taken.count(position), 1u);
            }
        }
    }
}

TEST(Shard, TheListIsSortedByItsBytesAndEachPathTakenOnce) {
    EXPECT_EQ(SortedUnique({"b.jpg", "a/x.jpg", "B.jpg", "b.jpg", "a/x.jpg", "a.jpg"}),
              (std::vector<std::string>{"B.jpg", "a.jpg", "a/x.jpg", "b.jpg"}));
}

// An environment of exactly these variables.
EnvironmentLookup Environment(std::map<std::string, std::string> variables) {
    return [variables](const char* name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
}

TEST(Shard, SchedulersVariablesGiveTheSameShardsAsIOverN) {
    std::string reason;
    // A Slurm array --array=0-2.
    auto slurm = ShardFromEnvironment(
        std::nullopt, Environment({{"SLURM_ARRAY_TASK_ID", "1"}, {"SLURM_ARRAY_TASK_COUNT", "3"}}),
        reason);
    ASSERT_TRUE(slurm.has_value()) << reason;
    EXPECT_EQ(slurm->index, 1);
    EXPECT_EQ(slurm->count, 3);
    // --array=1-3: the first task is shard 0.
    slurm = ShardFromEnvironment(std::nullopt,
                                 Environment({{"SLURM_ARRAY_TASK_ID", "1"},
                                              {"SLURM_ARRAY_TASK_MIN", "1"},
                                              {"SLURM_ARRAY_TASK_COUNT", "3"}}),
                                 reason);
    ASSERT_TRUE(slurm.has_value()) << reason;
    EXPECT_EQ(slurm->index, 0);
    // A Kubernetes Indexed Job with --shard-count 4.
    const auto kubernetes =
        ShardFromEnvironment(4L, Environment({{"JOB_COMPLETION_INDEX", "3"}}), reason);
    ASSERT_TRUE(kubernetes.has_value()) << reason;
    EXPECT_EQ(kubernetes->index, 3);
    EXPECT_EQ(kubernetes->count, 4);
}

TEST(Shard, MissingOrBadVariablesSayWhy) {
    std::string reason;
    EXPECT_FALSE(ShardFromEnvironment(3L, Environment({}), reason));
    EXPECT_EQ(reason, "neither JOB_COMPLETION_INDEX nor SLURM_ARRAY_TASK_ID is set");
    EXPECT_FALSE(
        ShardFromEnvironment(std::nullopt, Environment({{"JOB_COMPLETION_INDEX", "2"}}), reason));
    EXPECT_EQ(reason, "the number of shards is not known: give --shard-count");
    EXPECT_FALSE(ShardFromEnvironment(2L, Environment({{"JOB_COMPLETION_INDEX", "2"}}), reason));
    EXPECT_EQ(reason, "the shard's index must be from 0 to 1, got 2/2");
    EXPECT_FALSE(ShardFromEnvironment(2L, Environment({{"SLURM_ARRAY_TASK_ID", "x"}}), reason));
    EXPECT_EQ(reason, "not a shard index: SLURM_ARRAY_TASK_ID=x");
}

}  // namespace
}  // namespace vellumo
