// The worker's sandbox, tested from outside: a worker built for the tests
// (vellumo-worker-probe: the real worker, its lockdown included, that also
// answers "probe" requests) acts as a decoder taken over by a hostile file
// and tries what the sandbox forbids. Each attempt must fail under the
// lockdown, and succeed with the lockdown left out, so that an escape would
// show. Then: every input format of the shared test images decodes under the
// sandbox exactly as in the engine's own process, and the status the
// workers report is truthful when a layer is left out on purpose.

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "batch/CropJob.h"
#include "batch/ImageProcessor.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"
#include "worker/GivenFiles.h"
#include "worker/WorkerImageProcessor.h"
#include "worker/WorkerProcess.h"
#include "worker/WorkerProtocol.h"

extern char** environ;

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

const std::string kProbeWorker = VELLUMO_BINARY_DIR "/worker/vellumo-worker-probe";

// The environment variable, set for the scope of the object.
class ScopedEnvironment {
  public:
    ScopedEnvironment(const char* name, const std::string& value) : name_(name) {
        if (const char* old = std::getenv(name)) {
            old_ = old;
        }
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnvironment() {
        if (old_) {
            setenv(name_, old_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }

  private:
    const char* name_;
    std::optional<std::string> old_;
};

// A probe worker started as the engine starts its workers, with the layers
// named in `skip` left out.
class ProbeWorker {
  public:
    explicit ProbeWorker(const std::string& skip) {
        int sockets[2];
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, sockets[1], 3);
        const char* argv[] = {kProbeWorker.c_str(),
                              "--socket-fd",
                              "3",
                              "--address-space",
                              "0",
                              "--sandbox-skip",
                              skip.empty() ? "none" : skip.c_str(),
                              nullptr};
        EXPECT_EQ(posix_spawn(&pid_, kProbeWorker.c_str(), &actions, nullptr,
                              const_cast<char* const*>(argv), environ),
                  0);
        posix_spawn_file_actions_destroy(&actions);
        close(sockets[1]);
        socket_ = sockets[0];
        workerprotocol::Message frame;
        EXPECT_EQ(workerprotocol::Receive(socket_, frame, 30000),
                  workerprotocol::ReceiveStatus::Received);
        const auto hello = workerprotocol::DecodeReply(frame);
        EXPECT_TRUE(hello && std::holds_alternative<workerprotocol::Hello>(*hello));
        if (hello && std::holds_alternative<workerprotocol::Hello>(*hello)) {
            sandbox_ = std::get<workerprotocol::Hello>(*hello).sandbox;
        }
    }
    ~ProbeWorker() {
        close(socket_);
        int status = 0;
        waitpid(pid_, &status, 0);
    }

    // Each act tried, with "ok" or the error's name.
    std::map<std::string, std::string> Probe(const Json& request) {
        Json frame = request;
        frame["type"] = "probe";
        std::map<std::string, std::string> results;
        if (!SendGivenFiles(socket_, {}) || !workerprotocol::Send(socket_, {frame.dump(), {}})) {
            ADD_FAILURE() << "the probe worker is gone";
            return results;
        }
        workerprotocol::Message reply;
        if (workerprotocol::Receive(socket_, reply, 60000) !=
            workerprotocol::ReceiveStatus::Received) {
            ADD_FAILURE() << "the probe worker did not answer";
            return results;
        }
        const Json parsed = Json::parse(reply.json);
        for (const auto& [act, result] : parsed.at("results").items()) {
            results[act] = result.get<std::string>();
        }
        return results;
    }

    const SandboxStatus& sandbox() const { return sandbox_; }

  private:
    pid_t pid_ = 0;
    int socket_ = -1;
    SandboxStatus sandbox_;
};

// A TCP port on 127.0.0.1 that accepts connections while the object lives.
class Listener {
  public:
    Listener() : fd_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(bind(fd_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(fd_, 8), 0);
        socklen_t size = sizeof address;
        getsockname(fd_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
    }
    ~Listener() { close(fd_); }
    int port() const { return port_; }

  private:
    int fd_;
    int port_ = 0;
};

class SandboxProbeTest : public ::testing::Test {
  protected:
    SandboxProbeTest() {
        fs::create_directories(dir.File("home/.ssh"));
        fs::create_directories(dir.File("originals"));
        fs::create_directories(dir.File("out"));
        Write(dir.File("home/.ssh/id_ed25519"), "secret");
        Write(dir.File("originals/b.png"), "another original");
        Write(dir.File("originals/c.png"), "one more");
        // Where Yama restricts tracing to descendants, let the probe try.
        prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY, 0, 0, 0);
    }
    static void Write(const std::string& path, const std::string& text) {
        std::ofstream(path) << text;
    }
    Json Request(int port) {
        return {{"read",
                 {dir.File("home/.ssh/id_ed25519"), dir.File("originals/b.png"), kProbeWorker,
                  fs::path(kProbeWorker).parent_path().string()}},
                {"write", {dir.File("originals/b.png")}},
                {"create", dir.File("out/new.png")},
                {"remove", dir.File("originals/c.png")},
                {"tcpPort", port},
                {"program", "/bin/true"}};
    }
    // Every act of the request, the engine's signal and trace included.
    static constexpr std::size_t kActs = 12;
    // Every layer's name, for a worker that leaves them all out.
    static std::string AllLayers() {
        std::string all;
        for (const std::string& name : SandboxLayerNames()) {
            all += (all.empty() ? "" : ",") + name;
        }
        return all;
    }
    test::TempDir dir;
};

TEST_F(SandboxProbeTest, WithoutTheLockdownEveryForbiddenActWorksSoTheProbeCanSeeAnEscape) {
    Listener listener;
    ProbeWorker worker(AllLayers());
    EXPECT_FALSE(SandboxComplete(worker.sandbox()));
    const auto results = worker.Probe(Request(listener.port()));
    EXPECT_EQ(results.size(), kActs);
    for (const auto& [act, result] : results) {
        EXPECT_EQ(result, "ok") << act;
    }
    EXPECT_FALSE(fs::exists(dir.File("originals/c.png")));
    EXPECT_TRUE(fs::exists(dir.File("out/new.png")));
}

TEST_F(SandboxProbeTest, UnderTheLockdownEveryForbiddenActFails) {
    Listener listener;
    ProbeWorker worker("");
    ASSERT_TRUE(SandboxComplete(worker.sandbox())) << MissingSandboxLayers(worker.sandbox());
    const auto results = worker.Probe(Request(listener.port()));
    EXPECT_EQ(results.size(), kActs);
    for (const auto& [act, result] : results) {
        // Landlock answers EACCES for files and TCP, seccomp EPERM; there
        // is nothing to connect without a socket.
        EXPECT_TRUE(result == "EACCES" || result == "EPERM" ||
                    (act == "connect" && result == "no socket"))
            << act << ": " << result;
    }
    // Nothing changed on disk.
    EXPECT_EQ(test::ReadFileBytes(dir.File("originals/b.png")), "another original");
    EXPECT_TRUE(fs::exists(dir.File("originals/c.png")));
    EXPECT_FALSE(fs::exists(dir.File("out/new.png")));
}

TEST_F(SandboxProbeTest, EachLayerHoldsAlone) {
    Listener listener;
    {
        // Landlock alone keeps every file, TCP and the engine's signals.
        ProbeWorker worker("seccomp");
        const auto results = worker.Probe(Request(listener.port()));
        for (const char* act : {"create", "remove", "connect", "signal engine", "trace engine"}) {
            EXPECT_NE(results.at(act), "ok") << act;
        }
        EXPECT_NE(results.at("read " + dir.File("home/.ssh/id_ed25519")), "ok");
        EXPECT_NE(results.at("write " + dir.File("originals/b.png")), "ok");
        EXPECT_EQ(results.at("socket"), "ok");  // what seccomp forbids
    }
    {
        // seccomp alone forbids the network, programs, signals and tracing,
        // and leaves the files to Landlock (missing here: the status says so).
        ProbeWorker worker("landlock");
        const auto results = worker.Probe(Request(listener.port()));
        for (const char* act : {"socket", "execve", "signal engine"}) {
            EXPECT_EQ(results.at(act), "EPERM") << act;
        }
#if !defined(__SANITIZE_ADDRESS__)
        // (An AddressSanitizer build's worker leaves ptrace to Landlock: its
        // leak checker traces the worker's own threads.)
        EXPECT_EQ(results.at("trace engine"), "EPERM");
#endif
        EXPECT_EQ(results.at("read " + dir.File("home/.ssh/id_ed25519")), "ok");
        const auto landlock =
            std::find_if(worker.sandbox().begin(), worker.sandbox().end(),
                         [](const SandboxLayer& layer) { return layer.name == "landlock"; });
        ASSERT_NE(landlock, worker.sandbox().end());
        EXPECT_FALSE(landlock->active);
    }
}

// --- every input format under the sandbox --------------------------------

// The files of the shared test images' format folders.
std::vector<std::string> FormatSamples() {
    std::vector<std::string> files;
    for (const char* folder :
         {"bmp", "gif", "jp2", "jpeg", "png", "tiff", "orientation", "heif", "webp", "jxl"}) {
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(test::TestDataPath(folder), error)) {
            if (entry.is_regular_file()) {
                files.push_back(entry.path().string());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

TEST(SandboxFormats, EveryInputFormatDecodesUnderTheSandboxAsInTheEnginesOwnProcess) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::vector<std::string> files = FormatSamples();
    ASSERT_GT(files.size(), 50u);
    test::TempDir dir;
    CropSettings settings;
    settings.outputFormat = OutputFormat::Png;  // PNG: lossless, so equal pixels are equal bytes
    settings.nameTemplate = "[FileName]-[FileIndex]";
    settings.mode = CropMode::Auto;
    settings.autoCropRatio = RatioChoice::Ratio16x9;
    const std::vector<OverwriteDecision> decisions(files.size(), OverwriteDecision::NoConflict);

    WorkerLimits limits;
    limits.requireSandbox = true;
    WorkerImageProcessor sandboxed(limits);
    settings.outputFolder = dir.File("sandboxed");
    fs::create_directory(settings.outputFolder);
    const JobReport inWorkers = RunCropJob(settings, files, decisions, sandboxed);

    InProcessImageProcessor own;
    settings.outputFolder = dir.File("own");
    fs::create_directory(settings.outputFolder);
    const JobReport inProcess = RunCropJob(settings, files, decisions, own);

    ASSERT_EQ(inWorkers.images.size(), files.size());
    std::size_t written = 0;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const ImageOutcome& a = inWorkers.images[i].outcome;
        const ImageOutcome& b = inProcess.images[i].outcome;
        EXPECT_EQ(a.status, b.status) << files[i] << ": " << a.Reason();
        EXPECT_EQ(a.Reason(), b.Reason()) << files[i];
        EXPECT_EQ(a.warnings, b.warnings) << files[i];
        written += a.status == ImageStatus::Written;
    }
    EXPECT_GT(written, files.size() * 9 / 10);
    // The same bytes, unless the file's decoder gives other pixels each
    // time in the engine's own process too (OpenJPEG reads memory it never
    // wrote on some conformance files).
    settings.outputFolder = dir.File("own-again");
    fs::create_directory(settings.outputFolder);
    RunCropJob(settings, files, decisions, own);
    for (const auto& entry : fs::directory_iterator(dir.File("own"))) {
        const std::string name = entry.path().filename().string();
        const std::string ownBytes = test::ReadFileBytes(entry.path().string());
        if (ownBytes != test::ReadFileBytes(dir.File("own-again/" + name))) {
            continue;
        }
        EXPECT_TRUE(test::ReadFileBytes(dir.File("sandboxed/" + name)) == ownBytes) << name;
    }
}

// --- the status --------------------------------------------------------

TEST(SandboxStatusTest, EveryLayerIsActiveHere) {
    WorkerProcess worker;
    std::string failure;
    const SandboxStatus status = worker.StartForStatus(failure);
    ASSERT_FALSE(status.empty()) << failure;
    EXPECT_TRUE(SandboxComplete(status)) << MissingSandboxLayers(status);
    EXPECT_EQ(status.size(), SandboxLayerNames().size());
}

TEST(SandboxStatusTest, ALayerLeftOutIsReportedMissingAndARequiredSandboxThenRefusesToDecode) {
    for (const std::string& layer : SandboxLayerNames()) {
        const ScopedEnvironment skip("VELLUMO_SANDBOX_SKIP", layer);
        WorkerProcess worker;
        std::string failure;
        const SandboxStatus status = worker.StartForStatus(failure);
        // Landlock and seccomp need no-new-privileges: without it they are
        // missing too, and say why.
        EXPECT_EQ(MissingSandboxLayers(status).rfind(
                      layer + " (left out on request (VELLUMO_SANDBOX_SKIP))", 0),
                  0u)
            << MissingSandboxLayers(status);

        test::TempDir dir;
        test::CoordinateImage(64, 48).pngsave(dir.File("a.png").c_str());
        WorkerLimits limits;
        limits.requireSandbox = true;
        WorkerImageProcessor processor(limits);
        ImageTask task;
        task.source = dir.File("a.png");
        task.output = dir.File("a-out.png");
        task.settings.outputFormat = OutputFormat::Png;
        const ImageOutcome outcome = processor.Process(task);
        EXPECT_EQ(outcome.status, ImageStatus::Failed) << layer;
        EXPECT_NE(outcome.Reason().find("the sandbox is required but incomplete: " + layer),
                  std::string::npos)
            << outcome.Reason();
        EXPECT_FALSE(fs::exists(task.output));
    }
}

TEST(SandboxStatusTest, TheCommandLineTellsEachLayerAndRefusesWithoutOne) {
    const std::string cli = VELLUMO_BINARY_DIR "/cli/vellumo-cli";
    const test::CommandResult complete = test::RunCommand(cli + " --sandbox-status");
    EXPECT_EQ(complete.exitCode, 0) << complete.out;
    for (const std::string& layer : SandboxLayerNames()) {
        EXPECT_NE(complete.out.find(layer), std::string::npos) << complete.out;
    }
    EXPECT_EQ(complete.out.find("MISSING"), std::string::npos) << complete.out;

    const test::CommandResult missing =
        test::RunCommand("VELLUMO_SANDBOX_SKIP=landlock " + cli + " --sandbox-status");
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_NE(missing.out.find("landlock           MISSING   left out on request"),
              std::string::npos)
        << missing.out;

    test::TempDir dir;
    test::CoordinateImage(64, 48).pngsave(dir.File("a.png").c_str());
    const std::string crop = cli + " --output " + test::ShellQuote(dir.File("out")) +
                             " --require-sandbox " + test::ShellQuote(dir.File("a.png")) + " 2>&1";
    const test::CommandResult refused = test::RunCommand("VELLUMO_SANDBOX_SKIP=seccomp " + crop);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_NE(refused.out.find("the sandbox is required but incomplete: seccomp"),
              std::string::npos)
        << refused.out;
    EXPECT_FALSE(fs::exists(dir.File("out/a_cropped (1).png")));
    const test::CommandResult cropped = test::RunCommand(crop);
    EXPECT_EQ(cropped.exitCode, 0) << cropped.out;
}

}  // namespace
}  // namespace vellumo
