#pragma once

// Inside the core only: one long-lived worker process that decodes and
// encodes images for the engine, so that a decoder crashing on a hostile
// file, running out of memory or hanging takes down only the worker, never
// the program. It is started on first use and again after it dies.

#include <sys/types.h>

#include <atomic>
#include <optional>
#include <string>

#include "worker/GivenFiles.h"
#include "worker/SandboxStatus.h"
#include "worker/WorkerLimits.h"
#include "worker/WorkerProtocol.h"

namespace vellumo {

class WorkerProcess {
  public:
    explicit WorkerProcess(WorkerLimits limits = {});
    ~WorkerProcess();  // stops the worker
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    struct Reply {
        std::optional<workerprotocol::Reply> message;  // the final reply, parsed
        std::string failure;  // why there is none: the worker died, hung or sent nonsense
        long deadWorker = 0;  // the process id of a worker that died doing it
        // It died of a signal of its own (a decoder's crash), not of the
        // memory it needed, the time limit, or someone killing it.
        bool crashed = false;
    };

    // Sends `request`, with the open files it is about (the caller keeps
    // and closes its descriptors), and waits for its final reply, at most
    // the time limit. A worker that dies or runs out of time is gone
    // afterwards; the next request starts a fresh one. With
    // limits().requireSandbox, a worker whose sandbox misses a layer is
    // stopped at once and nothing is sent to it.
    Reply Exchange(const workerprotocol::Request& request, const GivenFiles& files);
    // The same with the files the request names, opened here.
    Reply Exchange(const workerprotocol::Request& request);

    // How the worker last started locked itself down; empty before.
    const SandboxStatus& Sandbox() const { return sandbox_; }

    // Starts a worker now, if none runs, for its sandbox's status alone.
    // Empty with `failure` set when none would start.
    SandboxStatus StartForStatus(std::string& failure);

    const WorkerLimits& limits() const { return limits_; }

    // The running worker's process id, or 0.
    pid_t Pid() const { return pid_; }

  private:
    bool Start(std::string& failure);
    // Kills (when still running) and reaps the worker; gives its end.
    int Stop();
    std::string DeathReason(int status, bool timedOut, std::uint64_t decodingBytes) const;

    WorkerLimits limits_;
    // Read from other threads (a pool stopping its lent workers).
    std::atomic<pid_t> pid_{0};
    int socket_ = -1;
    SandboxStatus sandbox_;
};

// The sandbox layers the engine asks its workers to leave out, from
// $VELLUMO_SANDBOX_SKIP ("landlock,seccomp"; "all" for every layer): only for
// tests that check the status tells the truth. Empty when unset.
std::string SandboxLayersToSkip();

// Where the worker executable is: $VELLUMO_WORKER, else beside the running
// program, else in ../libexec/vellumo/ from the running program (an
// installed copy), else where the build put it. PATH is never searched.
std::string WorkerExecutablePath();

}  // namespace vellumo
