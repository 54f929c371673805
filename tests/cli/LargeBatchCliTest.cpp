// Large batches on many machines: shards that together take every input
// once and name outputs as one run of the whole batch would, the shards that
// Slurm's and Kubernetes' variables pick, runs killed at random moments and
// resumed until the batch is complete, `verify` finding what is missing,
// failed or done twice, manifests of another batch refused, and the GNU
// parallel recipe of the README run for real.

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <thread>

#include "batch/Manifest.h"
#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

class LargeBatchCli : public CliTest {
  protected:
    // `count` small pictures, listed in `list.txt` in a shuffled order.
    std::string MakeBatch(int count, int side = 48) {
        fs::create_directories(dir.File("in"));
        std::vector<std::string> paths;
        for (int i = 0; i < count; ++i) {
            paths.push_back(dir.File("in/p" + std::to_string(i) + ".png"));
            test::CoordinateImage(side + i % 7, side).pngsave(paths.back().c_str());
        }
        std::shuffle(paths.begin(), paths.end(), std::mt19937(7));
        std::ofstream list(dir.File("list.txt"));
        for (const std::string& path : paths) {
            list << path << "\n";
        }
        return dir.File("list.txt");
    }
    static std::set<std::string> Names(const std::string& folder) {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
    std::string Crop(const std::string& list) {
        return "--inputs " + ShellQuote(list) + " --auto 1:1 --format png --quiet --jobs 2";
    }
};

TEST_F(LargeBatchCli, ShardsTakeEveryInputOnceAndNameOutputsAsOneRunWould) {
    const std::string list = MakeBatch(31);
    for (int shard = 0; shard < 3; ++shard) {
        const std::string i = std::to_string(shard);
        const CliRun run =
            Cli(Crop(list) + " --shard " + i + "/3 --output " + ShellQuote(Out() + "/sharded") +
                " --manifest " + ShellQuote(dir.File("m" + i + ".jsonl")));
        ASSERT_EQ(run.exitCode, 0) << run.err;
    }
    // The whole batch as one shard, in another folder.
    ASSERT_EQ(Cli(Crop(list) + " --shard 0/1 --output " + ShellQuote(Out() + "/whole")).exitCode,
              0);
    EXPECT_EQ(Names(Out() + "/sharded"), Names(Out() + "/whole"));
    EXPECT_EQ(Names(Out() + "/sharded").size(), 31u);
    const CliRun verified = Cli("verify --manifest " + ShellQuote(dir.File("m0.jsonl")) + " " +
                                ShellQuote(dir.File("m1.jsonl")) + " " +
                                ShellQuote(dir.File("m2.jsonl")) + " --inputs " + ShellQuote(list));
    EXPECT_EQ(verified.exitCode, 0) << verified.out;
    EXPECT_EQ(verified.out,
              "31 inputs: 31 done once, 0 missing, 0 failed, 0 done more than once, 0 with a "
              "changed output\n");
    // An output changed since, at the same length: found when hashing.
    const std::string changed = Out() + "/sharded/" + *Names(Out() + "/sharded").begin();
    std::string bytes = test::ReadFileBytes(changed);
    bytes[bytes.size() / 2] = static_cast<char>(~bytes[bytes.size() / 2]);
    std::ofstream(changed, std::ios::binary) << bytes;
    const std::string all = " --manifest " + ShellQuote(dir.File("m0.jsonl")) + " " +
                            ShellQuote(dir.File("m1.jsonl")) + " " +
                            ShellQuote(dir.File("m2.jsonl")) + " --inputs " + ShellQuote(list);
    EXPECT_EQ(Cli("verify" + all).exitCode, 0);
    const CliRun hashed = Cli("verify --hash" + all);
    EXPECT_EQ(hashed.exitCode, 1);
    EXPECT_NE(hashed.out.find("output changed     "), std::string::npos) << hashed.out;
    EXPECT_NE(hashed.out.find(", 1 with a changed output\n"), std::string::npos) << hashed.out;
}

TEST_F(LargeBatchCli, SlurmAndKubernetesVariablesPickTheSameShardAsIOverN) {
    const std::string list = MakeBatch(10);
    // The sources a dry run of `shard` picks, with `variables` set in its
    // environment.
    const auto picked = [&](const std::string& variables, const std::string& shard) {
        const test::CommandResult result = test::RunCommand(
            variables + " " + ShellQuote(VELLUMO_CLI) + " " + Crop(list) +
            " --dry-run --json --output " + ShellQuote(Out()) + " " + shard + " </dev/null");
        std::vector<std::string> sources;
        std::istringstream lines(result.out);
        for (std::string line; std::getline(lines, line);) {
            sources.push_back(nlohmann::json::parse(line)["source"]);
        }
        return sources;
    };
    const std::vector<std::string> expected = picked("", "--shard 1/3");
    ASSERT_EQ(expected.size(), 3u);  // positions 1, 4 and 7 of 10
    EXPECT_EQ(picked("SLURM_ARRAY_TASK_ID=1 SLURM_ARRAY_TASK_COUNT=3", "--shard auto"), expected);
    // An array numbered from 1 (--array=1-3).
    EXPECT_EQ(picked("SLURM_ARRAY_TASK_ID=2 SLURM_ARRAY_TASK_MIN=1 SLURM_ARRAY_TASK_COUNT=3",
                     "--shard auto"),
              expected);
    EXPECT_EQ(picked("JOB_COMPLETION_INDEX=1", "--shard auto --shard-count 3"), expected);
    EXPECT_EQ(picked("JOB_COMPLETION_INDEX=1", "--shard-count 3"), expected);
}

TEST_F(LargeBatchCli, RunsKilledAtRandomMomentsAndResumedEndComplete) {
    const std::string list = MakeBatch(24, 600);
    const std::string manifest = dir.File("m.jsonl");
    const std::string command = ShellQuote(VELLUMO_CLI) + " " + Crop(list) + " --output " +
                                ShellQuote(Out()) + " --manifest " + ShellQuote(manifest) +
                                " --resume";
    std::mt19937 random(2026);
    int kills = 0;
    for (int round = 0; round < 20; ++round) {
        // Start the batch afresh, kill it at a random moment, then resume
        // it until it says it is done.
        fs::remove_all(Out());
        fs::remove(manifest);
        const pid_t pid = fork();
        if (pid == 0) {
            execl("/bin/sh", "sh", "-c", ("exec " + command + " >/dev/null 2>&1").c_str(),
                  static_cast<char*>(nullptr));
            _exit(127);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(random() % 700));
        if (kill(pid, SIGKILL) == 0) {
            ++kills;
        }
        waitpid(pid, nullptr, 0);
        int exitCode = -1;
        for (int tries = 0; tries < 5 && exitCode != 0; ++tries) {
            exitCode = test::RunCommand(command + " >/dev/null 2>&1").exitCode;
        }
        ASSERT_EQ(exitCode, 0) << "round " << round;
        const CliRun verified =
            Cli("verify --manifest " + ShellQuote(manifest) + " --inputs " + ShellQuote(list));
        ASSERT_EQ(verified.exitCode, 0) << "round " << round << "\n" << verified.out;
        // Every output whole, none twice, no temporary file left.
        const std::set<std::string> names = Names(Out());
        ASSERT_EQ(names.size(), 24u) << "round " << round;
        for (const std::string& name : names) {
            ASSERT_EQ(name.rfind(".vellumo-", 0), std::string::npos) << name;
            ASSERT_EQ(test::MagickIdentifySize(Out() + "/" + name).width, 600) << name;
        }
    }
    EXPECT_GT(kills, 10);  // most rounds were killed mid-run
}

TEST_F(LargeBatchCli, VerifyFindsMissingFailedAndDuplicatedInputs) {
    std::ofstream(dir.File("list.txt")) << "a.png\nb.png\nc.png\nd.png\ne.png\n";
    fs::create_directories(Out());
    const auto entry = [&](const std::string& source, const std::string& status) {
        ManifestEntry e;
        e.source = source;
        e.output = Out() + "/" + source;
        e.status = StatusFromName(status);
        e.settings = "s";
        if (status == "failed") {
            e.reason = "cannot decode: not a PNG file";
        } else {
            std::ofstream(e.output) << "1234";
            e.bytes = 4;
            e.sha256 = std::string(64, '0');
        }
        return ManifestLine(e) + "\n";
    };
    // Shard one: a written, b failed, c written. Shard two: c again, e failed
    // then written on a resumed run. d is nowhere.
    std::ofstream(dir.File("m0.jsonl"))
        << entry("a.png", "written") << entry("b.png", "failed") << entry("c.png", "written");
    std::ofstream(dir.File("m1.jsonl"))
        << entry("c.png", "written") << entry("e.png", "failed") << entry("e.png", "written");
    const CliRun run =
        Cli("verify --manifest " + ShellQuote(dir.File("m0.jsonl")) + " " +
            ShellQuote(dir.File("m1.jsonl")) + " --inputs " + ShellQuote(dir.File("list.txt")));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.out,
              "failed             b.png: cannot decode: not a PNG file\n"
              "done 2 times       c.png\n"
              "missing            d.png\n"
              "5 inputs: 2 done once, 1 missing, 1 failed, 1 done more than once, 0 with a "
              "changed output\n");
}

TEST_F(LargeBatchCli, ResumingWithAChangedSettingIsRefusedAndWritesNothing) {
    const std::string list = MakeBatch(4);
    const std::string common = "--inputs " + ShellQuote(list) + " --quiet --output " +
                               ShellQuote(Out()) + " --manifest " + ShellQuote(dir.File("m.jsonl"));
    ASSERT_EQ(Cli(common + " --auto 1:1 --format png").exitCode, 0);
    const std::set<std::string> before = Names(Out());
    const std::string entries = test::ReadFileBytes(dir.File("m.jsonl"));
    for (const char* changed : {"--auto 4:3 --format png", "--auto 1:1 --format jpg",
                                "--auto 1:1 --format png --name '[FileName]'"}) {
        const CliRun run = Cli(common + " " + changed + " --resume");
        EXPECT_EQ(run.exitCode, 2) << changed;
        EXPECT_EQ(run.err, "vellumo-cli: --manifest: " + dir.File("m.jsonl") +
                               ": entry 1 was written with other settings (name, format, folder "
                               "or crop rule); give the same settings, or another manifest\n")
            << changed;
    }
    EXPECT_EQ(Names(Out()), before);
    EXPECT_EQ(test::ReadFileBytes(dir.File("m.jsonl")), entries);
    // The same settings resume: nothing left to do.
    const CliRun same = Cli(common + " --auto 1:1 --format png --resume");
    EXPECT_EQ(same.exitCode, 0) << same.err;
    EXPECT_EQ(test::ReadFileBytes(dir.File("m.jsonl")), entries);
}

TEST_F(LargeBatchCli, BadShardsListsAndManifestsAreOneLineAndStatusTwo) {
    const std::string list = MakeBatch(3);
    std::ofstream(dir.File("bad.jsonl"))
        << "{\"source\": \"x\", \"output\": \"y\", \"status\": \"written\", \"settings\": \"s\"}\n"
        << "not json at all\n"
        << "{\"source\": \"z\", \"output\": \"y\", \"status\": \"written\", \"settings\": \"s\"}\n";
    const struct {
        std::string arguments;
        std::string message;
    } cases[] = {
        {Crop(list) + " --shard 3/2", "--shard: the shard's index must be from 0 to 1, got 3/2"},
        {Crop(list) + " --shard 0/0", "--shard: the number of shards must be at least 1, got 0/0"},
        {"--inputs " + ShellQuote(dir.File("none.txt")),
         "--inputs: " + dir.File("none.txt") + ": No such file or directory"},
        {Crop(list) + " --manifest " + ShellQuote(dir.File("bad.jsonl")),
         "--manifest: " + dir.File("bad.jsonl") + ": line 2 is not a manifest entry"},
        {Crop(list) + " --shard auto",
         "--shard: neither JOB_COMPLETION_INDEX nor SLURM_ARRAY_TASK_ID is set"},
    };
    // Not inside a scheduler's job, whatever runs the tests.
    unsetenv("SLURM_ARRAY_TASK_ID");
    unsetenv("JOB_COMPLETION_INDEX");
    for (const auto& bad : cases) {
        const CliRun run = Cli(bad.arguments + " --output " + ShellQuote(Out()));
        EXPECT_EQ(run.exitCode, 2) << bad.arguments;
        EXPECT_EQ(run.err, "vellumo-cli: " + bad.message + "\n") << bad.arguments;
        EXPECT_FALSE(fs::exists(Out())) << bad.arguments;
    }
}

TEST_F(LargeBatchCli, TheGnuParallelRecipeDoesABatchOfTwoHundredInThreeShards) {
    const std::string list = MakeBatch(200, 32);
    // The README's recipe, with this test's folders.
    const std::string recipe =
        "cd " + ShellQuote(dir.File("")) + " && seq 0 2 | parallel -j 3 " +
        ShellQuote(VELLUMO_CLI) +
        " --inputs list.txt --shard {}/3 --jobs 1 --auto 1:1 --format png --quiet "
        "--output out --manifest manifest-{}.jsonl";
    ASSERT_EQ(test::RunCommand(recipe + " 2>&1").exitCode, 0);
    const CliRun verified =
        Cli("verify --manifest " + ShellQuote(dir.File("manifest-0.jsonl")) + " " +
            ShellQuote(dir.File("manifest-1.jsonl")) + " " +
            ShellQuote(dir.File("manifest-2.jsonl")) + " --inputs " + ShellQuote(list));
    EXPECT_EQ(verified.exitCode, 0) << verified.out;
    EXPECT_EQ(Names(Out()).size(), 200u);
}

// The Slurm array script of docs/scale-out, run as three of its tasks would
// run it (the variables Slurm sets, the batch folder elsewhere).
TEST_F(LargeBatchCli, TheSlurmArrayScriptRunAsItsTasksDoesTheBatch) {
    const std::string list = MakeBatch(20, 32);
    const std::string path =
        "PATH=" + ShellQuote(fs::path(VELLUMO_CLI).parent_path().string()) + ":\"$PATH\"";
    for (int task = 0; task < 3; ++task) {
        const std::string id = std::to_string(task);
        ASSERT_EQ(test::RunCommand(
                      path + " BATCH=" + ShellQuote(dir.File("")) + " SLURM_ARRAY_TASK_ID=" + id +
                      " SLURM_ARRAY_TASK_COUNT=3 SLURM_CPUS_PER_TASK=1 bash " +
                      ShellQuote(VELLUMO_SOURCE_DIR "/docs/scale-out/slurm-array.sh") + " 2>&1")
                      .exitCode,
                  0)
            << task;
    }
    const CliRun verified =
        Cli("verify --manifest " + ShellQuote(dir.File("manifests/0.jsonl")) + " " +
            ShellQuote(dir.File("manifests/1.jsonl")) + " " +
            ShellQuote(dir.File("manifests/2.jsonl")) + " --inputs " + ShellQuote(list));
    EXPECT_EQ(verified.exitCode, 0) << verified.out;
    EXPECT_EQ(Names(dir.File("out")).size(), 20u);
}

// The command of the Kubernetes Indexed Job in docs/scale-out, run as its 32
// pods would run it (JOB_COMPLETION_INDEX 0 to 31, the volume elsewhere).
TEST_F(LargeBatchCli, TheKubernetesJobsCommandRunAsItsPodsDoesTheBatch) {
    const std::string list = MakeBatch(40, 32);
    const std::string yaml =
        test::ReadFileBytes(VELLUMO_SOURCE_DIR "/docs/scale-out/vellumo-indexed-job.yaml");
    const std::size_t args = yaml.find("args:\n");
    ASSERT_NE(args, std::string::npos);
    const std::size_t start = yaml.find("- ", args) + 2;
    std::string command = yaml.substr(start, yaml.find('\n', start) - start);
    // The volume's mount point is this test's folder; the program is the
    // build's.
    const std::string volume = fs::path(dir.File("x")).parent_path().string();
    for (std::size_t at = command.find("/batch"); at != std::string::npos;
         at = command.find("/batch", at + volume.size())) {
        command.replace(at, 6, volume);
    }
    command.replace(command.find("exec vellumo-cli"), 16, "exec " + ShellQuote(VELLUMO_CLI));
    for (int pod = 0; pod < 32; ++pod) {
        ASSERT_EQ(test::RunCommand("JOB_COMPLETION_INDEX=" + std::to_string(pod) + " sh -c " +
                                   ShellQuote(command) + " 2>&1")
                      .exitCode,
                  0)
            << pod << ": " << command;
    }
    std::string manifests;
    for (int pod = 0; pod < 32; ++pod) {
        manifests += ' ';
        manifests += ShellQuote(dir.File("manifests/" + std::to_string(pod) + ".jsonl"));
    }
    const CliRun verified = Cli("verify --manifest" + manifests + " --inputs " + ShellQuote(list));
    EXPECT_EQ(verified.exitCode, 0) << verified.out;
    EXPECT_EQ(Names(dir.File("out")).size(), 40u);
}

}  // namespace
}  // namespace vellumo
