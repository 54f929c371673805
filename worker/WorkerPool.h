#pragma once

// Inside the core only: worker processes shared by the threads of one
// client, each lent to one thread at a time, so that no two requests ever
// meet on one worker's socket. Workers outlive the loans (a worker is
// started once and then serves request after request); there are never
// more of them than loans at one moment.

#include <memory>
#include <mutex>
#include <vector>

#include "worker/WorkerLimits.h"
#include "worker/WorkerProcess.h"

namespace vellumo {

class WorkerPool {
  public:
    explicit WorkerPool(WorkerLimits limits = {});
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // A worker for the holder alone; it goes back to the pool with the loan.
    class Loan {
      public:
        ~Loan();
        Loan(Loan&&) = default;
        Loan& operator=(Loan&&) = delete;
        WorkerProcess& operator*() const { return *worker_; }
        WorkerProcess* operator->() const { return worker_.get(); }

      private:
        friend class WorkerPool;
        Loan(WorkerPool& pool, std::unique_ptr<WorkerProcess> worker);
        WorkerPool* pool_;
        std::unique_ptr<WorkerProcess> worker_;
    };

    Loan Borrow();

    const WorkerLimits& limits() const { return limits_; }
    // How many workers exist, lent or not.
    std::size_t size() const;
    // Tells every lent worker that has started to stop at once (SIGTERM:
    // it removes its temporary file and ends); the holders' requests fail
    // and their next ones start fresh workers.
    void TerminateLent();

  private:
    void GiveBack(std::unique_ptr<WorkerProcess> worker);

    const WorkerLimits limits_;
    mutable std::mutex mutex_;
    std::vector<std::unique_ptr<WorkerProcess>> idle_;
    std::vector<WorkerProcess*> lent_;
    std::size_t count_ = 0;
};

}  // namespace vellumo
