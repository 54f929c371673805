#include "worker/WorkerPool.h"

#include <signal.h>

#include <algorithm>

namespace vellumo {

WorkerPool::WorkerPool(WorkerLimits limits) : limits_(limits) {}

WorkerPool::Loan::Loan(WorkerPool& pool, std::unique_ptr<WorkerProcess> worker)
    : pool_(&pool), worker_(std::move(worker)) {}

WorkerPool::Loan::~Loan() {
    if (worker_) {
        pool_->GiveBack(std::move(worker_));
    }
}

WorkerPool::Loan WorkerPool::Borrow() {
    const std::lock_guard lock(mutex_);
    std::unique_ptr<WorkerProcess> worker;
    if (idle_.empty()) {
        ++count_;
        worker = std::make_unique<WorkerProcess>(limits_);
    } else {
        worker = std::move(idle_.back());
        idle_.pop_back();
    }
    lent_.push_back(worker.get());
    return Loan(*this, std::move(worker));
}

void WorkerPool::GiveBack(std::unique_ptr<WorkerProcess> worker) {
    const std::lock_guard lock(mutex_);
    lent_.erase(std::remove(lent_.begin(), lent_.end(), worker.get()), lent_.end());
    idle_.push_back(std::move(worker));
}

void WorkerPool::TerminateLent() {
    const std::lock_guard lock(mutex_);
    for (WorkerProcess* worker : lent_) {
        if (const pid_t pid = worker->Pid(); pid > 0) {
            kill(pid, SIGTERM);
        }
    }
}

std::size_t WorkerPool::size() const {
    const std::lock_guard lock(mutex_);
    return count_;
}

}  // namespace vellumo
