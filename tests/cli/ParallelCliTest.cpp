// vellumo-cli with several images in flight (--jobs): the same files, the
// same JSON and the same metadata as one image at a time; distinct outputs
// for a clash; a stop by SIGINT that leaves no partial file and no worker,
// and a second SIGINT that quits at once, leaving none either.

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <regex>
#include <sstream>
#include <thread>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

class ParallelCliTest : public CliTest {
  protected:
    // The JSON lines without what differs from run to run (the folder).
    static std::vector<std::string> Lines(const CliRun& run, const std::string& folder) {
        std::vector<std::string> lines;
        for (const nlohmann::json& object : run.objects) {
            std::string text = object.dump();
            for (std::size_t at; (at = text.find(folder)) != std::string::npos;) {
                text.replace(at, folder.size(), "OUT");
            }
            lines.push_back(text);
        }
        return lines;
    }
    static std::map<std::string, std::string> Outputs(const std::string& folder) {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(folder)) {
            files[entry.path().filename().string()] = test::ReadFileBytes(entry.path().string());
        }
        return files;
    }
};

TEST_F(ParallelCliTest, TwoJobsWriteTheBytesAndJsonOfOneJobOnMixedRealFilesWithMetadata) {
    VELLUMO_REQUIRE_TESTDATA();
    const char* names[] = {
        "jpeg/Canon_40D.jpg",
        "orientation/Landscape_3.jpg",
        "png/basn6a16.png",
        "tiff/cramps.tif",
        "jpeg/jolla.jpg",
        "orientation/Portrait_6.jpg",
        "jpeg/Reconyx_HC500_Hyperfire.jpg",
        "gif/hopper.gif",
        "bmp/gracehopper.bmp",
        "bad/corrupted.jpg",  // in the middle: fails alone, and ends the metadata
        "jpeg/testorig.jpg",
        "orientation/Landscape_6.jpg",
        "jp2/file1.jp2",
        "png/basn0g08.png",
        "jpeg/no_exif.jpg",
        "orientation/Apple iPhone 5.jpg",
        "tiff/quad-lzw.tif",
        "jpeg/testimgari.jpg",
        "orientation/Landscape_8.jpg",
        "large/sky.jpg",
    };
    std::string files;
    for (const char* name : names) {
        files += ' ';
        files += test::ShellQuote(test::TestDataPath(name));
    }
    const std::string options = " --json --keep-metadata --auto 4:3 --quality 85 --output ";
    const CliRun one = Cli("--jobs 1" + options + test::ShellQuote(dir.File("one")) + files);
    const CliRun two = Cli("--jobs 2" + options + test::ShellQuote(dir.File("two")) + files);
    EXPECT_EQ(one.exitCode, 1);  // the corrupt file
    EXPECT_EQ(two.exitCode, 1);
    ASSERT_EQ(one.objects.size(), 20u);
    EXPECT_EQ(Lines(one, dir.File("one")), Lines(two, dir.File("two")));
    EXPECT_EQ(one.objects[9]["status"], "failed");
    const auto a = Outputs(dir.File("one"));
    const auto b = Outputs(dir.File("two"));
    // Every file but the corrupt one is written.
    for (std::size_t i = 0; i < one.objects.size(); ++i) {
        EXPECT_EQ(one.objects[i]["status"], i == 9 ? "failed" : "written") << names[i];
    }
    EXPECT_EQ(a.size(), 19u);
    ASSERT_TRUE(a.count("Canon_40D_cropped (1).jpg") && a.count("Apple iPhone 5_cropped (16).jpg"));
    EXPECT_TRUE(a == b) << "the outputs differ";
    // Before the failure the metadata was carried, after it not.
    const std::string before =
        test::RunCommand("exiftool -s3 -Model " +
                         test::ShellQuote(dir.File("two") + "/Canon_40D_cropped (1).jpg"))
            .out;
    EXPECT_EQ(before, "Canon EOS 40D\n");
    const std::string after =
        test::RunCommand("exiftool -s3 -Model " +
                         test::ShellQuote(dir.File("two") + "/Apple iPhone 5_cropped (16).jpg"))
            .out;
    EXPECT_EQ(after, "");
}

TEST_F(ParallelCliTest, TwoImagesWithOneOutputPathNeverShareItInFlight) {
    fs::create_directories(dir.File("a"));
    fs::create_directories(dir.File("b"));
    test::CoordinateImage(300, 200).pngsave(dir.File("a/photo.png").c_str());
    test::CoordinateImage(200, 300).pngsave(dir.File("b/photo.png").c_str());
    const std::string both = Files({dir.File("a/photo.png"), dir.File("b/photo.png")}) +
                             " --format png --name " + test::ShellQuote("[FileName]") +
                             " --jobs 2 --json --output ";
    const CliRun refused = Cli(both + test::ShellQuote(dir.File("refused")));
    ASSERT_EQ(refused.objects.size(), 2u);
    EXPECT_EQ(refused.objects[0]["status"], "written");
    EXPECT_EQ(refused.objects[1]["status"], "failed");
    EXPECT_EQ(test::MagickIdentifySize(dir.File("refused/photo.png")).width, 300);
    const CliRun numbered =
        Cli(both + test::ShellQuote(dir.File("numbered")) + " --on-clash number");
    EXPECT_EQ(numbered.exitCode, 0);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("numbered/photo.png")).width, 300);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("numbered/photo (2).png")).width, 200);
}

TEST_F(ParallelCliTest, AWorkerDyingWhileOthersRunHoldsUpOnlyItsImage) {
    VELLUMO_REQUIRE_TESTDATA();
    // The JPEG 2000 file crashes its decoder, and with it its worker, while
    // the other images are in flight; a fresh worker reads it with the
    // second decoder, and the pool starts new workers for the images after
    // it.
    std::vector<std::string> list;
    for (int i = 0; i < 6; ++i) {
        const std::string path = dir.File("photo" + std::to_string(i) + ".png");
        test::CoordinateImage(300 + i, 200).pngsave(path.c_str());
        list.push_back(path);
    }
    list.insert(list.begin() + 2, test::TestDataPath("bad/issue254.jp2"));
    const CliRun run =
        Cli(Files(list) + " --jobs 2 --json --format png --output " + test::ShellQuote(Out()));
    EXPECT_EQ(run.exitCode, 0);
    ASSERT_EQ(run.objects.size(), 7u);
    for (std::size_t i = 0; i < run.objects.size(); ++i) {
        EXPECT_EQ(run.objects[i]["status"], "written") << i;
    }
    EXPECT_EQ(test::MagickIdentifySize(Out() + "/issue254_cropped (3).png").width, 908);
    EXPECT_EQ(test::MagickIdentifySize(Out() + "/photo5_cropped (7).png").width, 305);
}

TEST_F(ParallelCliTest, BadJobCountsAreRefusedWithOneLine) {
    for (const char* count : {"0", "-2", "two"}) {
        const CliRun run =
            Cli(std::string("--jobs ") + count + " --output " + test::ShellQuote(Out()) + " x.png");
        EXPECT_EQ(run.exitCode, 2) << count;
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_NE(run.err.find("--jobs"), std::string::npos) << run.err;
    }
}

// The processes whose parent is `pid` (its workers).
std::vector<int> ChildPids(pid_t pid) {
    std::istringstream lines(test::RunCommand("pgrep -P " + std::to_string(pid)).out);
    std::vector<int> pids;
    for (int child = 0; lines >> child;) {
        pids.push_back(child);
    }
    return pids;
}

// Eight large PNGs being written as PNG by two workers, stopped by signals.
class StopSignalTest : public ParallelCliTest {
  protected:
    // Starts vellumo-cli on the eight images and returns once one of them is
    // being written (its temporary file is there).
    pid_t StartAndWaitUntilWriting() {
        std::vector<std::string> sources;
        for (int i = 0; i < 8; ++i) {
            sources.push_back(dir.File("big" + std::to_string(i) + ".png"));
            test::PhotoLikeImage(4000, 3000).pngsave(sources.back().c_str());
        }
        fs::create_directories(Out());
        const pid_t pid = fork();
        if (pid == 0) {
            std::vector<std::string> args = {VELLUMO_CLI, "--jobs",   "2",  "--format",
                                             "png",       "--output", Out()};
            args.insert(args.end(), sources.begin(), sources.end());
            std::vector<char*> argv;
            argv.reserve(args.size() + 1);
            for (std::string& arg : args) {
                argv.push_back(arg.data());
            }
            argv.push_back(nullptr);
            if (freopen(ErrFile().c_str(), "w", stderr) == nullptr ||
                freopen("/dev/null", "w", stdout) == nullptr) {
                _exit(126);
            }
            execv(VELLUMO_CLI, argv.data());
            _exit(127);
        }
        bool writing = false;
        for (int tries = 0; tries < 6000 && !writing && pid > 0; ++tries) {
            writing = !TemporaryFiles().empty();
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_TRUE(writing);
        return pid;
    }
    std::string ErrFile() { return dir.File("err.txt"); }
    std::vector<std::string> TemporaryFiles() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(Out())) {
            const std::string name = entry.path().filename().string();
            if (name.rfind(".vellumo-", 0) == 0) {
                names.push_back(name);
            }
        }
        return names;
    }
    static int ExitStatus(pid_t pid) {
        int status = 0;
        EXPECT_EQ(waitpid(pid, &status, 0), pid);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    // Every file in the output folder is a whole image; returns how many.
    std::size_t WholeOutputs() {
        std::size_t written = 0;
        for (const auto& entry : fs::directory_iterator(Out())) {
            EXPECT_EQ(test::MagickPixels(entry.path().string(), "", "rgb", 8).size(),
                      std::size_t{4000} * 3000 * 3)
                << entry.path();
            ++written;
        }
        return written;
    }
    static std::string WorkersOf(pid_t pid) {
        return test::RunCommand("pgrep -f " + test::ShellQuote("vellumo-worker --socket-fd") +
                                " -P " + std::to_string(pid) + " | wc -l")
            .out;
    }
};

TEST_F(StopSignalTest, SigintStopsWith130TheSummaryNoPartialFileAndNoWorkerLeft) {
    const pid_t pid = StartAndWaitUntilWriting();
    ASSERT_GT(pid, 0);
    EXPECT_EQ(ChildPids(pid).size(), 2u);
    kill(pid, SIGINT);
    EXPECT_EQ(ExitStatus(pid), 130);
    const std::string err = test::ReadFile(ErrFile());
    const std::regex summary("Cropping was stopped: (\\d) of 8 images were written\\.");
    std::smatch said;
    ASSERT_TRUE(std::regex_search(err, said, summary)) << err;
    EXPECT_EQ(TemporaryFiles(), std::vector<std::string>());
    EXPECT_EQ(WholeOutputs(), static_cast<std::size_t>(std::stoi(said[1])));
    EXPECT_EQ(WorkersOf(pid), "0\n");
}

// The second signal ends the program at once; its workers, which notice the
// engine's end, remove their temporary files as they go.
TEST_F(StopSignalTest, ASecondSigintQuitsAtOnceLeavingNoPartialFile) {
    const pid_t pid = StartAndWaitUntilWriting();
    ASSERT_GT(pid, 0);
    const std::vector<int> workers = ChildPids(pid);
    ASSERT_EQ(workers.size(), 2u);
    kill(pid, SIGINT);
    kill(pid, SIGINT);
    EXPECT_EQ(ExitStatus(pid), 130);
    for (int worker : workers) {
        for (int tries = 0; tries < 1000 && kill(worker, 0) == 0; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_NE(kill(worker, 0), 0) << "worker " << worker << " is still running";
    }
    EXPECT_EQ(TemporaryFiles(), std::vector<std::string>());
    WholeOutputs();
}

}  // namespace
}  // namespace vellumo
