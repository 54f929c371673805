#include "worker/WorkerImageProcessor.h"

#include <optional>

#include "imaging/FileKind.h"
#include "imaging/VipsLoad.h"
#include "worker/EngineFiles.h"

namespace vellumo {

WorkerImageProcessor::WorkerImageProcessor(WorkerLimits limits) : workers_(limits) {}

void WorkerImageProcessor::CancelAll() {
    workers_.TerminateLent();
}

namespace {

// A decoder that crashed on a file of a kind others read too gets one more
// try, in a fresh worker, with those others only.
bool WorthASecondDecoder(const WorkerProcess::Reply& reply, const std::string& path) {
    if (!reply.crashed) {
        return false;
    }
    const std::optional<FileKind> kind = SniffFile(path).kind;
    return kind && vipsload::HasSecondDecoder(*kind);
}

}  // namespace

ImageOutcome WorkerImageProcessor::Process(const ImageTask& task) {
    const WorkerPool::Loan worker = workers_.Borrow();
    const EngineFiles files(task);
    workerprotocol::ImageRequest request{task, workers_.limits().maxPixels};
    WorkerProcess::Reply reply = worker->Exchange(request, files.Given());
    if (WorthASecondDecoder(reply, task.source)) {
        request.onlySecondDecoder = true;
        files.Reset();
        reply = worker->Exchange(request, files.Given());
    }
    if (worker->Pid() != 0) {
        lastPid_.store(worker->Pid());
    }
    if (reply.message) {
        if (auto* answer = std::get_if<workerprotocol::OutcomeReply>(&*reply.message)) {
            files.Finish(task, answer->outcome);
            return std::move(answer->outcome);
        }
    }
    ImageOutcome failed;
    failed.failure = Failure::At(
        FailureStage::Decode,
        reply.failure.empty() ? std::string("the image worker answered nonsense") : reply.failure);
    return failed;
}

WorkerPreviewDecoder::WorkerPreviewDecoder(WorkerLimits limits) : workers_(limits) {}

PreviewResult WorkerPreviewDecoder::Decode(const std::string& path, int maxSide) {
    return DecodeLooking(path, maxSide, PreviewLooks{});
}

PreviewResult WorkerPreviewDecoder::DecodeLooking(const std::string& path, int maxSide,
                                                  const PreviewLooks& looks) {
    return Exchange(
        workerprotocol::PreviewRequest{path, maxSide, workers_.limits().maxPixels, false, looks});
}

PreviewResult WorkerPreviewDecoder::DecodeEmbedded(const std::string& path, int minSide) {
    // Only JPEG files carry an Exif thumbnail the worker reads: the others
    // are not sent (a round trip a file, before the file's own decode).
    if (SniffFile(path).kind != FileKind::Jpeg) {
        return PreviewResult::Failure("the file has no embedded thumbnail");
    }
    workerprotocol::PreviewRequest request{path, minSide, workers_.limits().maxPixels};
    request.embedded = true;
    return Exchange(request);
}

PreviewResult WorkerPreviewDecoder::Exchange(workerprotocol::PreviewRequest request) {
    const std::string& path = request.path;
    const WorkerPool::Loan worker = workers_.Borrow();
    const EngineFiles files(path);
    WorkerProcess::Reply reply = worker->Exchange(request, files.Given());
    // An Exif block that crashed the worker is read by no second decoder:
    // asking again would only crash a second worker.
    if (!request.embedded && WorthASecondDecoder(reply, path)) {
        request.onlySecondDecoder = true;
        reply = worker->Exchange(request, files.Given());
    }
    if (reply.message) {
        if (auto* answer = std::get_if<workerprotocol::PreviewReply>(&*reply.message)) {
            return std::move(answer->preview);
        }
        return PreviewResult::Failure("the image worker answered something else");
    }
    return PreviewResult::Failure(reply.failure);
}

}  // namespace vellumo
