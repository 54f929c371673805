// vellumo-cli watch as a child process: images copied into the watched
// folder while it runs (some written slowly, in chunks with pauses) are each
// cropped once and never read half-written; a watch stopped by SIGTERM and
// started again redoes nothing and crops what remains; its own outputs are
// never taken for images; a watched folder that goes away ends it with
// status 1. Nothing here waits on a clock: each check polls for what must
// come, with a generous limit only against a hang.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <thread>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

// Polls `done` until it holds; false after a limit meant only to end a hung
// test.
bool Eventually(const std::function<bool()>& done) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::minutes(3);
    while (!done()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return true;
}

// A vellumo-cli watch running as a child process, its output in files.
class WatchProcess {
  public:
    WatchProcess(const std::vector<std::string>& arguments, const std::string& out,
                 const std::string& err)
        : err_(err) {
        pid_ = fork();
        if (pid_ == 0) {
            const std::string command = "exec " + ShellQuote(VELLUMO_CLI) + " watch" +
                                        Joined(arguments) + " </dev/null >" + ShellQuote(out) +
                                        " 2>" + ShellQuote(err);
            execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
    }
    ~WatchProcess() {
        if (!exited_) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
    }
    WatchProcess(const WatchProcess&) = delete;
    WatchProcess& operator=(const WatchProcess&) = delete;

    // Its exit status once it has ended (-1 when it did not exit).
    std::optional<int> Ended() {
        if (exited_) {
            return status_;
        }
        int status = 0;
        if (waitpid(pid_, &status, WNOHANG) != pid_) {
            return std::nullopt;
        }
        exited_ = true;
        status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return status_;
    }
    int Stop(int signal) {
        kill(pid_, signal);
        Eventually([this] { return Ended().has_value(); });
        return Ended().value_or(-1);
    }
    // Standard error holds the line of a watch that has started.
    bool Watching() const {
        return test::ReadFile(err_).find("vellumo-cli: watching") != std::string::npos;
    }

  private:
    static std::string Joined(const std::vector<std::string>& arguments) {
        std::string text;
        for (const std::string& argument : arguments) {
            text += ' ';
            text += ShellQuote(argument);
        }
        return text;
    }

    pid_t pid_ = -1;
    std::string err_;
    bool exited_ = false;
    int status_ = -1;
};

class WatchCliTest : public CliTest {
  protected:
    // Image number i: a JPEG of its own size, made outside the watched folder.
    std::string Source(int i) {
        std::string path = dir.File("staging") + Name(i, ".jpg");
        if (!fs::exists(path)) {
            fs::create_directories(dir.File("staging"));
            test::PhotoLikeImage(Width(i), Height(i)).jpegsave(path.c_str());
        }
        return path;
    }
    // "/img7.jpg", appended piece by piece: GCC 12 at -O3 warns, wrongly, of
    // an overlapping copy in "literal" + std::string (its -Wrestrict).
    static std::string Name(int i, const char* extension) {
        std::string name = "/img";
        name += std::to_string(i);
        name += extension;
        return name;
    }
    static int Width(int i) { return 160 + 8 * i; }
    static int Height(int i) { return 120 + 2 * i; }
    // Square crops: the shorter side of each.
    static int Side(int i) { return std::min(Width(i), Height(i)); }

    std::string In() { return dir.File("in"); }
    std::string Output(int i) { return Out() + Name(i, ".png"); }

    void CopyIn(int i, const std::string& folder = {}) {
        const std::string target = (folder.empty() ? In() : folder) + Name(i, ".jpg");
        fs::copy_file(Source(i), target);
    }
    // Written in sixteen chunks with pauses, through one descriptor: a look
    // at the file meanwhile finds a JPEG cut short.
    void WriteSlowly(int i) {
        const std::string bytes = test::ReadFileBytes(Source(i));
        std::ofstream file(In() + Name(i, ".jpg"), std::ios::binary);
        const std::size_t chunk = bytes.size() / 16 + 1;
        for (std::size_t at = 0; at < bytes.size(); at += chunk) {
            file.write(bytes.data() + at,
                       static_cast<std::streamsize>(std::min(chunk, bytes.size() - at)));
            file.flush();
            std::this_thread::sleep_for(std::chrono::milliseconds(60));
        }
    }

    std::vector<std::string> Arguments(std::vector<std::string> more = {}) {
        std::vector<std::string> arguments = {In(),  "--auto", "1:1",        "--format",
                                              "PNG", "--name", "[FileName]", "--output",
                                              Out(), "--json", "--jobs",     "2"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }

    // The manifest's entries of images done, by source.
    std::map<std::string, int> DoneBySource(const std::string& manifest) {
        std::map<std::string, int> done;
        std::ifstream lines(manifest);
        for (std::string line; std::getline(lines, line);) {
            const nlohmann::json entry = nlohmann::json::parse(line);
            if (entry["status"] == "written" || entry["status"] == "kept" ||
                entry["status"] == "skipped") {
                ++done[entry["source"].get<std::string>()];
            }
        }
        return done;
    }
    std::string Manifest() { return Out() + "/.vellumo-watch.jsonl"; }
    long DoneCount() {
        long count = 0;
        for (const auto& [source, times] : DoneBySource(Manifest())) {
            count += times;
        }
        return count;
    }
    // The files in the output folder, hidden ones too.
    long FilesIn(const std::string& folder) {
        long count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            count += entry.is_regular_file() ? 1 : 0;
        }
        return count;
    }
    void ExpectCropped(int i) {
        const test::MagickSize size = test::MagickIdentifySize(Output(i));
        EXPECT_EQ(size.width, Side(i)) << Output(i);
        EXPECT_EQ(size.height, Side(i)) << Output(i);
    }
};

TEST_F(WatchCliTest, ArrivingImagesAreCroppedOnceAndARestartRedoesNothing) {
    constexpr int kCount = 30;
    for (int i = 0; i < kCount; ++i) {
        Source(i);
    }
    fs::create_directories(In());
    for (int i = 0; i < 4; ++i) {
        CopyIn(i);  // there before the watch starts
    }
    {
        WatchProcess watch(Arguments(), dir.File("out1.txt"), dir.File("err1.txt"));
        ASSERT_TRUE(Eventually([&] { return watch.Watching(); }))
            << test::ReadFile(dir.File("err1.txt"));
        for (int i = 4; i < 14; ++i) {
            CopyIn(i);
        }
        for (int i = 14; i < 17; ++i) {
            WriteSlowly(i);
        }
        ASSERT_TRUE(Eventually([&] { return DoneCount() == 17; }))
            << test::ReadFile(dir.File("err1.txt")) << test::ReadFile(dir.File("out1.txt"));
        // Three more, and the stop at once: those in flight are ended whole.
        for (int i = 17; i < 20; ++i) {
            CopyIn(i);
        }
        EXPECT_EQ(watch.Stop(SIGTERM), 0) << test::ReadFile(dir.File("err1.txt"));
    }
    for (int i = 0; i < 17; ++i) {
        ExpectCropped(i);
    }
    std::map<std::string, fs::file_time_type> firstTimes;
    for (const auto& entry : fs::directory_iterator(Out())) {
        firstTimes[entry.path().string()] = entry.last_write_time();
    }
    const std::map<std::string, int> firstDone = DoneBySource(Manifest());
    for (int i = 20; i < kCount; ++i) {
        CopyIn(i);  // while no watch runs
    }
    WatchProcess again(Arguments(), dir.File("out2.txt"), dir.File("err2.txt"));
    ASSERT_TRUE(Eventually([&] { return DoneCount() == kCount; }))
        << test::ReadFile(dir.File("err2.txt")) << test::ReadFile(dir.File("out2.txt"));
    EXPECT_EQ(again.Stop(SIGINT), 0);

    // Every image cropped exactly once, at its size, and nothing else.
    for (int i = 0; i < kCount; ++i) {
        ExpectCropped(i);
    }
    for (const auto& [source, times] : DoneBySource(Manifest())) {
        EXPECT_EQ(times, 1) << source;
    }
    EXPECT_EQ(FilesIn(Out()), kCount + 1);  // the crops and the manifest
    // What the first watch wrote was left alone.
    for (const auto& [path, time] : firstTimes) {
        const std::string name = fs::path(path).filename().string();
        if (name[0] != '.' &&
            firstDone.count(In() + "/" + fs::path(path).stem().string() + ".jpg") > 0) {
            EXPECT_EQ(fs::last_write_time(path), time) << path;
        }
    }
    // No image was read half-written: none failed, and both watches together
    // reported each once.
    std::map<std::string, int> reported;
    for (const char* out : {"out1.txt", "out2.txt"}) {
        std::istringstream lines(test::ReadFile(dir.File(out)));
        for (std::string line; std::getline(lines, line);) {
            const nlohmann::json image = nlohmann::json::parse(line);
            EXPECT_EQ(image["status"], "written") << line;
            ++reported[image["source"].get<std::string>()];
        }
    }
    EXPECT_EQ(reported.size(), static_cast<std::size_t>(kCount));
    for (const auto& [source, times] : reported) {
        EXPECT_EQ(times, 1) << source;
    }
    EXPECT_NE(test::ReadFile(dir.File("err2.txt")).find("already done"), std::string::npos)
        << test::ReadFile(dir.File("err2.txt"));
}

TEST_F(WatchCliTest, FileIndexNumbersOnAcrossArrivalsAndARestart) {
    fs::create_directories(In());
    const std::vector<std::string> arguments = {
        In(),     "--auto",           "1:1",      "--format", "PNG",
        "--name", "shot [FileIndex]", "--output", Out(),      "--json"};
    const auto shot = [this](int number) {
        std::string path = Out() + "/shot ";
        path += std::to_string(number);
        path += ".png";
        return path;
    };
    {
        WatchProcess watch(arguments, dir.File("out1.txt"), dir.File("err1.txt"));
        ASSERT_TRUE(Eventually([&] { return watch.Watching(); }))
            << test::ReadFile(dir.File("err1.txt"));
        // One at a time, each cropped before the next arrives: three groups.
        for (int i = 1; i <= 3; ++i) {
            CopyIn(i);
            ASSERT_TRUE(Eventually([&] { return DoneCount() == i; }))
                << test::ReadFile(dir.File("err1.txt"));
        }
        EXPECT_EQ(watch.Stop(SIGTERM), 0);
    }
    CopyIn(4);  // while no watch runs
    WatchProcess again(arguments, dir.File("out2.txt"), dir.File("err2.txt"));
    ASSERT_TRUE(Eventually([&] { return DoneCount() == 4; }))
        << test::ReadFile(dir.File("err2.txt"));
    CopyIn(5);
    ASSERT_TRUE(Eventually([&] { return DoneCount() == 5; }))
        << test::ReadFile(dir.File("err2.txt"));
    EXPECT_EQ(again.Stop(SIGINT), 0);

    // Image i became "shot i": its own square, numbered once each.
    for (int i = 1; i <= 5; ++i) {
        const test::MagickSize size = test::MagickIdentifySize(shot(i));
        EXPECT_EQ(size.width, Side(i)) << shot(i);
        EXPECT_EQ(size.height, Side(i)) << shot(i);
    }
    EXPECT_EQ(FilesIn(Out()), 5 + 1);  // the crops and the manifest
    for (const auto& [source, times] : DoneBySource(Manifest())) {
        EXPECT_EQ(times, 1) << source;
    }
}

TEST_F(WatchCliTest, CropsWrittenInsideTheWatchedFolderAreNeverCroppedAgain) {
    fs::create_directories(In());
    CopyIn(1);
    CopyIn(2);
    // The crops go beside their sources, into the watched folder itself.
    WatchProcess watch({In(), "--auto", "1:1", "--format", "PNG", "--name", "[FileName]_square",
                        "--keep-structure", "--output", In(), "--json"},
                       dir.File("out.txt"), dir.File("err.txt"));
    const std::string manifest = In() + "/.vellumo-watch.jsonl";
    ASSERT_TRUE(Eventually([&] { return DoneBySource(manifest).size() >= 2; }))
        << test::ReadFile(dir.File("err.txt"));
    // A third image after the crops arrived: when it is done, the watch has
    // seen the crops too.
    CopyIn(3);
    ASSERT_TRUE(Eventually([&] { return DoneBySource(manifest).size() >= 3; }))
        << test::ReadFile(dir.File("err.txt"));
    EXPECT_EQ(watch.Stop(SIGTERM), 0);
    EXPECT_EQ(DoneBySource(manifest).size(), 3u) << test::ReadFile(dir.File("out.txt"));
    EXPECT_EQ(FilesIn(In()), 3 + 3 + 1);  // sources, crops, manifest
    EXPECT_EQ(test::MagickIdentifySize(In() + "/img3_square.png").width, Side(3));
    std::ifstream lines(manifest);
    long entries = 0;
    for (std::string line; std::getline(lines, line);) {
        ++entries;
    }
    EXPECT_EQ(entries, 3);
}

TEST_F(WatchCliTest, SubfoldersMadeLaterAreWatchedWithRecursive) {
    fs::create_directories(In());
    WatchProcess watch(Arguments({"--recursive", "--keep-structure"}), dir.File("out.txt"),
                       dir.File("err.txt"));
    ASSERT_TRUE(Eventually([&] { return watch.Watching(); }));
    fs::create_directories(In() + "/shoes/red");
    CopyIn(5, In() + "/shoes/red");
    const std::string output = Out() + "/shoes/red/img5.png";
    ASSERT_TRUE(Eventually([&] { return DoneCount() == 1; }))
        << test::ReadFile(dir.File("err.txt"));
    EXPECT_EQ(watch.Stop(SIGTERM), 0);
    EXPECT_EQ(test::MagickIdentifySize(output).width, Side(5));
}

TEST_F(WatchCliTest, AWatchedFolderThatGoesAwayEndsTheWatch) {
    fs::create_directories(In());
    WatchProcess watch(Arguments(), dir.File("out.txt"), dir.File("err.txt"));
    ASSERT_TRUE(Eventually([&] { return watch.Watching(); }));
    fs::remove_all(In());
    ASSERT_TRUE(Eventually([&] { return watch.Ended().has_value(); }));
    EXPECT_EQ(watch.Ended(), 1);
    EXPECT_NE(test::ReadFile(dir.File("err.txt")).find("was removed or moved away"),
              std::string::npos)
        << test::ReadFile(dir.File("err.txt"));
}

TEST_F(WatchCliTest, AMissingFolderIsOneLineAndStatusOne) {
    const CliRun run = Cli("watch " + ShellQuote(In()) + " --output " + ShellQuote(Out()));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "vellumo-cli: watch: " + In() + ": No such file or directory\n");
}

TEST_F(WatchCliTest, TheWatchedFolderAsOutputIsRefusedWithoutTheKeptTree) {
    fs::create_directories(In());
    const CliRun run = Cli("watch " + ShellQuote(In()) + " --output " + ShellQuote(In()));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.err.find("is a folder of the images"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace vellumo
