#include "tests/gui/support/Workers.h"

namespace vellumo::test {

ImageOutcome RecordingProcessor::Process(const ImageTask& task) {
    if (task.kind == TaskKind::DryRun) {
        {
            const std::lock_guard lock(mutex_);
            ++measured_;
        }
        return inner_.Process(task);
    }
    {
        std::unique_lock lock(mutex_);
        ++started_;
        released_.wait(lock, [this] { return !held_ || cancelled_; });
        if (cancelled_) {
            cancelled_ = false;
            ImageOutcome ended;
            ended.failure = Failure::At(FailureStage::Decode, "the image worker was stopped");
            return ended;
        }
    }
    ImageOutcome outcome = inner_.Process(task);
    const std::lock_guard lock(mutex_);
    tasks_.push_back(task);
    outcomes_.push_back(outcome);
    return outcome;
}

std::vector<ImageTask> RecordingProcessor::tasks() const {
    const std::lock_guard lock(mutex_);
    return tasks_;
}

std::vector<ImageOutcome> RecordingProcessor::outcomes() const {
    const std::lock_guard lock(mutex_);
    return outcomes_;
}

std::vector<OverwriteDecision> RecordingProcessor::decisions() const {
    const std::lock_guard lock(mutex_);
    std::vector<OverwriteDecision> decisions;
    for (const ImageTask& task : tasks_) {
        decisions.push_back(task.decision);
    }
    return decisions;
}

void RecordingProcessor::Hold() {
    const std::lock_guard lock(mutex_);
    held_ = true;
}

void RecordingProcessor::CancelAll() {
    {
        const std::lock_guard lock(mutex_);
        cancelled_ = held_;
        held_ = false;
    }
    released_.notify_all();
}

void RecordingProcessor::Release() {
    {
        const std::lock_guard lock(mutex_);
        held_ = false;
    }
    released_.notify_all();
}

int RecordingProcessor::measured() const {
    const std::lock_guard lock(mutex_);
    return measured_;
}

int RecordingProcessor::started() const {
    const std::lock_guard lock(mutex_);
    return started_;
}

PreviewResult GatedPreviewDecoder::DecodeEmbedded(const std::string& path, int minSide) {
    return inner_.DecodeEmbedded(path, minSide);
}

PreviewResult GatedPreviewDecoder::Decode(const std::string& path, int maxSide) {
    {
        std::unique_lock lock(mutex_);
        ++started_;
        maxSides_.push_back(maxSide);
        released_.wait(lock, [&] { return held_.count(path) == 0; });
    }
    return inner_.Decode(path, maxSide);
}

void GatedPreviewDecoder::Hold(const std::string& path) {
    const std::lock_guard lock(mutex_);
    held_.insert(path);
}

void GatedPreviewDecoder::Release(const std::string& path) {
    {
        const std::lock_guard lock(mutex_);
        held_.erase(path);
    }
    released_.notify_all();
}

int GatedPreviewDecoder::started() const {
    const std::lock_guard lock(mutex_);
    return started_;
}

std::vector<int> GatedPreviewDecoder::maxSides() const {
    const std::lock_guard lock(mutex_);
    return maxSides_;
}

}  // namespace vellumo::test
