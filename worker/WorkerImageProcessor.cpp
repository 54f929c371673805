#include "worker/WorkerImageProcessor.h"

#include <filesystem>

#include "imaging/AtomicFile.h"

namespace vellumo {

WorkerImageProcessor::WorkerImageProcessor(WorkerLimits limits) : workers_(limits) {}

void WorkerImageProcessor::CancelAll() {
    workers_.TerminateLent();
}

ImageOutcome WorkerImageProcessor::Process(const ImageTask& task) {
    const WorkerPool::Loan worker = workers_.Borrow();
    const WorkerProcess::Reply reply =
        worker->Exchange(workerprotocol::ImageRequest(task, workers_.limits().maxPixels));
    if (worker->Pid() != 0) {
        lastPid_.store(worker->Pid());
    }
    if (reply.message) {
        if (auto outcome = workerprotocol::OutcomeFrom(*reply.message)) {
            return *outcome;
        }
    }
    if (reply.deadWorker != 0) {
        std::filesystem::path folder = std::filesystem::path(task.output).parent_path();
        atomicfile::RemoveLeftovers(folder.empty() ? "." : folder.string(), reply.deadWorker);
    }
    ImageOutcome failed;
    failed.reason =
        "cannot decode: " +
        (reply.failure.empty() ? std::string("the image worker answered nonsense") : reply.failure);
    return failed;
}

WorkerPreviewDecoder::WorkerPreviewDecoder(WorkerLimits limits) : workers_(limits) {}

PreviewResult WorkerPreviewDecoder::Decode(const std::string& path, int maxSide) {
    const WorkerPool::Loan worker = workers_.Borrow();
    const WorkerProcess::Reply reply = worker->Exchange(
        workerprotocol::PreviewRequest(path, maxSide, workers_.limits().maxPixels));
    if (reply.message) {
        return workerprotocol::PreviewFrom(*reply.message);
    }
    return PreviewResult::Failure(reply.failure);
}

}  // namespace vellumo
