#include "tests/gui/support/Workers.h"

namespace vellumo::test {

ImageOutcome RecordingProcessor::Process(const ImageTask& task) {
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
