#pragma once

#include <atomic>
#include <limits>
#include <memory>
#include <mutex>
#include <vector>

#include "batch/ImageProcessor.h"
#include "batch/PreviewDecoder.h"
#include "worker/WorkerLimits.h"
#include "worker/WorkerPool.h"
#include "worker/WorkerProcess.h"

namespace vellumo {

// Each image's work done in a separate, long-lived worker process under
// limits: a crash, an exhausted memory or a timeout fails that image alone,
// with a reason, and the next image gets a fresh worker. What a dead worker
// left half-written (its temporary file) is removed. Threads that process
// images at the same time each borrow a worker of their own.
class WorkerImageProcessor final : public ImageProcessor {
  public:
    explicit WorkerImageProcessor(WorkerLimits limits = {});
    ImageOutcome Process(const ImageTask& task) override;
    // Stops every worker that is at work; each removes its temporary file.
    void CancelAll() override;
    // As many as there are threads: each borrows a worker.
    int ImagesAtOnce() const override { return std::numeric_limits<int>::max(); }

    // The process id of the worker that last began an image, or 0.
    long WorkerPid() const { return lastPid_.load(); }
    // How many worker processes exist.
    std::size_t WorkerCount() const { return workers_.size(); }

  private:
    WorkerPool workers_;
    std::atomic<long> lastPid_{0};
};

// Previews decoded in worker processes of their own, likewise. Threads that
// decode at the same time each get a worker of their own.
class WorkerPreviewDecoder final : public PreviewDecoder {
  public:
    explicit WorkerPreviewDecoder(WorkerLimits limits = {});
    PreviewResult Decode(const std::string& path, int maxSide) override;
    PreviewResult DecodeLooking(const std::string& path, int maxSide,
                                const PreviewLooks& looks) override;
    PreviewResult DecodeEmbedded(const std::string& path, int minSide) override;

    // How many worker processes the previews have started.
    std::size_t WorkerCount() const { return workers_.size(); }

  private:
    // Asks a worker, and asks again with the second decoder when the first
    // crashed on the file.
    PreviewResult Exchange(workerprotocol::PreviewRequest request);

    WorkerPool workers_;
};

}  // namespace vellumo
