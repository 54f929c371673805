#pragma once

// Inside the core only: one long-lived worker process that decodes and
// encodes images for the engine, so that a decoder crashing on a hostile
// file, running out of memory or hanging takes down only the worker, never
// the program. It is started on first use and again after it dies.

#include <sys/types.h>

#include <atomic>
#include <optional>
#include <string>

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

    // Sends `request` and waits for its final reply, at most the time limit.
    // A worker that dies or runs out of time is gone afterwards; the next
    // request starts a fresh one.
    Reply Exchange(const workerprotocol::Request& request);

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
};

// Where the worker executable is: $VELLUMO_WORKER, else beside the running
// program, else in ../libexec/vellumo/ from the running program (an
// installed copy), else where the build put it. PATH is never searched.
std::string WorkerExecutablePath();

}  // namespace vellumo
