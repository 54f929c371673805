#include "worker/WorkerProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "worker/EngineFiles.h"

extern char** environ;

namespace vellumo {

namespace {

// The worker's end of the socket, as the worker expects it.
constexpr int kWorkerSocketFd = 3;

std::string Gigabytes(std::uint64_t bytes) {
    std::ostringstream text;
    const double gb = static_cast<double>(bytes) / (1024.0 * 1024.0 * 1024.0);
    text << (gb < 10 ? std::round(gb * 10) / 10 : std::round(gb)) << " GB";
    return text.str();
}

}  // namespace

std::string WorkerExecutablePath() {
    if (const char* configured = std::getenv("VELLUMO_WORKER"); configured && *configured) {
        return configured;
    }
    // The worker is looked for only next to the program that starts it: a
    // `vellumo-worker` found on PATH could be any other build (or anything
    // else of that name), and it is handed every image the batch decodes.
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error) {
        const std::filesystem::path folder = self.parent_path();
        // Beside the program: the build tree's programs and a relocated copy.
        // Then an installed copy: programs in <prefix>/bin, the worker in
        // <prefix>/libexec/vellumo, since nobody runs it by hand. Relative
        // to the program, so a package unpacked anywhere finds its own.
        for (const std::filesystem::path& candidate :
             {folder / "vellumo-worker",
              folder / ".." / "libexec" / "vellumo" / "vellumo-worker"}) {
            if (std::filesystem::exists(candidate, error)) {
                return candidate.lexically_normal().string();
            }
        }
    }
    // Last, where this build put it: programs run from elsewhere (a test
    // copied out of the tree) still find a worker while the build exists.
    return VELLUMO_WORKER_BUILD_PATH;
}

WorkerProcess::WorkerProcess(WorkerLimits limits) : limits_(limits) {}

WorkerProcess::~WorkerProcess() {
    Stop();
}

bool WorkerProcess::Start(std::string& failure) {
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0) {
        failure = "the image worker could not be started (no socket)";
        return false;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // dup2 clears close-on-exec on the copy the worker keeps.
    posix_spawn_file_actions_adddup2(&actions, sockets[1], kWorkerSocketFd);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    // What decoders print as they fail (or crash) is noise to the person
    // running a batch; the engine reports each failure with its reason, and
    // what the work itself prints comes back with its outcome.
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const std::string path = WorkerExecutablePath();
    const std::string addressSpace = std::to_string(WorkerAddressSpace(limits_));
    const std::string skip = SandboxLayersToSkip();
    const char* argv[] = {path.c_str(),
                          "--socket-fd",
                          "3",
                          "--address-space",
                          addressSpace.c_str(),
                          "--priority",
                          limits_.background ? "background" : "normal",
                          skip.empty() ? nullptr : "--sandbox-skip",
                          skip.c_str(),
                          nullptr};
    // The worker starts with no signal blocked (the engine may block the ones
    // it waits for in a thread of its own) and in a process group of its
    // own: a Ctrl+C at the terminal reaches the engine, which decides what
    // its workers do.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, path.c_str(), &actions, &attributes,
                                    const_cast<char* const*>(argv), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    close(sockets[1]);
    if (spawned != 0) {
        close(sockets[0]);
        failure = "the image worker could not be started (" + path + ": " +
                  std::generic_category().message(spawned) + ")";
        return false;
    }
    pid_ = pid;
    socket_ = sockets[0];
    workerprotocol::Message frame;
    const auto status = workerprotocol::Receive(socket_, frame, 30000);
    const auto hello = status == workerprotocol::ReceiveStatus::Received
                           ? workerprotocol::DecodeReply(frame)
                           : std::nullopt;
    const auto* greeting = hello ? std::get_if<workerprotocol::Hello>(&*hello) : nullptr;
    if (greeting == nullptr || greeting->version != workerprotocol::kVersion) {
        Stop();
        failure = "the image worker did not start properly (" + path + ")";
        return false;
    }
    sandbox_ = greeting->sandbox;
    if (limits_.requireSandbox && !SandboxComplete(sandbox_)) {
        Stop();
        failure = "the sandbox is required but incomplete: " + MissingSandboxLayers(sandbox_);
        return false;
    }
    return true;
}

SandboxStatus WorkerProcess::StartForStatus(std::string& failure) {
    if (pid_ == 0) {
        Start(failure);
    }
    return sandbox_;
}

std::string SandboxLayersToSkip() {
    const char* skip = std::getenv("VELLUMO_SANDBOX_SKIP");
    if (skip == nullptr || *skip == '\0') {
        return {};
    }
    if (std::string(skip) == "all") {
        std::string all;
        for (const std::string& name : SandboxLayerNames()) {
            all += (all.empty() ? "" : ",") + name;
        }
        return all;
    }
    return skip;
}

int WorkerProcess::Stop() {
    if (socket_ >= 0) {
        close(socket_);
        socket_ = -1;
    }
    int status = 0;
    if (const pid_t pid = pid_.exchange(0); pid > 0) {
        // A worker that has not already ended is stopped now.
        if (waitpid(pid, &status, WNOHANG) == 0) {
            kill(pid, SIGKILL);
            while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
            }
        }
    }
    return status;
}

namespace {

constexpr char kDecoderCrashed[] = "the image decoder crashed on this file";

}  // namespace

std::string WorkerProcess::DeathReason(int status, bool timedOut,
                                       std::uint64_t decodingBytes) const {
    if (timedOut) {
        std::ostringstream seconds;
        seconds << std::chrono::duration<double>(limits_.timeout).count();
        return "decoding took longer than " + seconds.str() + " s";
    }
    // A decoder that needs more memory than the worker may have fails as
    // allocations fail: an abort, a crash, or the system's out-of-memory
    // killer.
    const bool outOfMemory = decodingBytes > WorkerAddressSpace(limits_) / 2;
    if (WIFSIGNALED(status)) {
        if (outOfMemory) {
            return "this image would need " + Gigabytes(decodingBytes) + " of memory";
        }
        if (WTERMSIG(status) == SIGKILL) {
            return "the image worker was stopped from outside while working on this file";
        }
        return kDecoderCrashed;
    }
    if (outOfMemory) {
        return "this image would need " + Gigabytes(decodingBytes) + " of memory";
    }
    return "the image worker ended unexpectedly on this file";
}

WorkerProcess::Reply WorkerProcess::Exchange(const workerprotocol::Request& message) {
    const auto* image = std::get_if<workerprotocol::ImageRequest>(&message);
    const EngineFiles files =
        image ? EngineFiles(image->task)
              : EngineFiles(std::get<workerprotocol::PreviewRequest>(message).path);
    return Exchange(message, files.Given());
}

WorkerProcess::Reply WorkerProcess::Exchange(const workerprotocol::Request& message,
                                             const GivenFiles& files) {
    Reply reply;
    if (pid_ == 0 && !Start(reply.failure)) {
        return reply;
    }
    const workerprotocol::Message request = workerprotocol::Encode(message);
    const auto send = [&] {
        return SendGivenFiles(socket_, files) && workerprotocol::Send(socket_, request);
    };
    if (!send()) {
        // Gone since the last request (killed from outside, say): once more
        // with a fresh one.
        Stop();
        if (!Start(reply.failure))
            return reply;
        if (!send()) {
            reply.deadWorker = pid_;
            reply.failure = DeathReason(Stop(), false, 0);
            return reply;
        }
    }
    const auto deadline = std::chrono::steady_clock::now() + limits_.timeout;
    std::uint64_t decodingBytes = 0;
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        workerprotocol::Message message;
        const auto status = workerprotocol::Receive(
            socket_, message, static_cast<int>(std::max<long long>(0, left.count())));
        if (status == workerprotocol::ReceiveStatus::Received) {
            std::optional<workerprotocol::Reply> parsed = workerprotocol::DecodeReply(message);
            if (const auto* note =
                    parsed ? std::get_if<workerprotocol::DecodingNote>(&*parsed) : nullptr) {
                decodingBytes = note->bytes;
                continue;
            }
            if (!parsed) {
                reply.failure = "the image worker answered nonsense";
            }
            reply.message = std::move(parsed);
            return reply;
        }
        const bool timedOut = status == workerprotocol::ReceiveStatus::TimedOut;
        reply.deadWorker = pid_;
        reply.failure = DeathReason(Stop(), timedOut, decodingBytes);
        reply.crashed = reply.failure == kDecoderCrashed;
        return reply;
    }
}

}  // namespace vellumo
