#include "worker/WorkerLoop.h"

#include <malloc.h>
#include <poll.h>

#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>

#include "batch/ImageProcessor.h"
#include "batch/PreviewDecoder.h"
#include "imaging/ImageTools.h"
#include "imaging/VipsLoad.h"
#include "worker/WorkerProtocol.h"

namespace vellumo {

namespace {

std::string Megapixels(std::uint64_t pixels) {
    std::ostringstream text;
    text << static_cast<double>(pixels) / 1e6;
    return text.str();
}

// The file's header, read before decoding, and why the file is refused, if
// it is.
struct Checked {
    std::optional<ImageHeader> header;
    std::optional<std::string> refusal;
};

// Tells the engine how much memory the decoded image takes (about four bytes
// a pixel), so that a worker that dies of it is reported as such.
Checked CheckPixels(int socket, const std::string& path, std::uint64_t maxPixels) {
    Checked checked{ImageTools::HeaderOfFile(path), std::nullopt};
    if (!checked.header) {
        return checked;  // the decoder itself will say why
    }
    const Size size = checked.header->pixelSize;
    const double pixels = size.width * size.height;
    if (pixels > static_cast<double>(maxPixels)) {
        checked.refusal =
            "the image declares " + std::to_string(static_cast<long long>(size.width)) + " x " +
            std::to_string(static_cast<long long>(size.height)) +
            " pixels, more than the limit of " + Megapixels(maxPixels) + " megapixels";
        return checked;
    }
    workerprotocol::Send(socket, workerprotocol::Encode(workerprotocol::DecodingNote{
                                     static_cast<std::uint64_t>(pixels) * 4}));
    return checked;
}

// A worker idle this long gives its kept memory back.
constexpr int kIdleMilliseconds = 1000;

// Memory freed after one image is kept for the next, instead of going back
// to the system and being faulted in again page by page (a tenth of each
// image's time went to that); it is given back once the worker is idle.
void KeepMemoryBetweenImages() {
    mallopt(M_MMAP_THRESHOLD, 512 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 1024 * 1024 * 1024);
}

// Waits for the engine's next request; gives memory back meanwhile if it
// is long in coming.
void WaitForRequest(int socket) {
    pollfd engine{socket, POLLIN, 0};
    if (poll(&engine, 1, kIdleMilliseconds) == 0) {
        malloc_trim(0);
    }
}

// The reply to one request, worked out here.
workerprotocol::Reply Answer(int socket, const workerprotocol::Request& request,
                             InProcessImageProcessor& processor,
                             InProcessPreviewDecoder& previews) {
    if (const auto* image = std::get_if<workerprotocol::ImageRequest>(&request)) {
        ImageOutcome outcome;
        const Checked checked = CheckPixels(socket, image->task.source, image->maxPixels);
        if (checked.refusal) {
            outcome.failure = Failure::At(FailureStage::Decode, *checked.refusal);
        } else {
            outcome = processor.Process(image->task, checked.header);
        }
        return workerprotocol::OutcomeReply{std::move(outcome)};
    }
    const auto& preview = std::get<workerprotocol::PreviewRequest>(request);
    if (auto refusal = CheckPixels(socket, preview.path, preview.maxPixels).refusal) {
        return workerprotocol::PreviewReply{PreviewResult::Failure(*refusal)};
    }
    return workerprotocol::PreviewReply{previews.Decode(preview.path, preview.maxSide)};
}

bool OnlySecondDecoder(const workerprotocol::Request& request) {
    return std::visit([](const auto& r) { return r.onlySecondDecoder; }, request);
}

}  // namespace

int RunWorker(int socket) {
    KeepMemoryBetweenImages();
    if (!workerprotocol::Send(socket, workerprotocol::Encode(workerprotocol::Hello{}))) {
        return 1;
    }
    InProcessImageProcessor processor;
    InProcessPreviewDecoder previews;
    for (;;) {
        workerprotocol::Message frame;
        WaitForRequest(socket);
        if (workerprotocol::Receive(socket, frame, -1) != workerprotocol::ReceiveStatus::Received) {
            // The engine is gone. Leave at once: a decoder that corrupted the
            // heap on some file could crash this process on the way out.
            std::_Exit(0);
        }
        const std::optional<workerprotocol::Request> request = workerprotocol::DecodeRequest(frame);
        if (!request) {
            return 2;  // not a request this worker knows
        }
        // A file whose first decoder crashed a worker comes back marked.
        vipsload::UseOnlySecondDecoder(OnlySecondDecoder(*request));
        const workerprotocol::Reply reply = Answer(socket, *request, processor, previews);
        if (!workerprotocol::Send(socket, workerprotocol::Encode(reply))) {
            return 0;
        }
    }
}

}  // namespace vellumo
