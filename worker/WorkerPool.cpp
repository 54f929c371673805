#include "worker/WorkerPool.h"

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
    if (idle_.empty()) {
        ++count_;
        return Loan(*this, std::make_unique<WorkerProcess>(limits_));
    }
    std::unique_ptr<WorkerProcess> worker = std::move(idle_.back());
    idle_.pop_back();
    return Loan(*this, std::move(worker));
}

void WorkerPool::GiveBack(std::unique_ptr<WorkerProcess> worker) {
    const std::lock_guard lock(mutex_);
    idle_.push_back(std::move(worker));
}

std::size_t WorkerPool::size() const {
    const std::lock_guard lock(mutex_);
    return count_;
}

}  // namespace vellumo
