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
#include "worker/GivenFiles.h"
#include "worker/RequestFiles.h"
#include "worker/WorkerProtocol.h"

#ifdef VELLUMO_SANDBOX_PROBES
#include "worker/SandboxProbe.h"
#endif

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

// The reply to one request, worked out here, on the files the engine handed
// with it; an image's output is written into the file the engine made for it.
workerprotocol::Message Answer(int socket, const workerprotocol::Request& request,
                               GivenFiles& given, InProcessImageProcessor& processor,
                               InProcessPreviewDecoder& previews) {
    const RequestFiles files(given);
    if (const auto* image = std::get_if<workerprotocol::ImageRequest>(&request)) {
        const ImageTask task = files.Redirect(image->task);
        ImageOutcome outcome;
        const Checked checked = CheckPixels(socket, task.source, image->maxPixels);
        if (checked.refusal) {
            outcome.failure = Failure::At(FailureStage::Decode, *checked.refusal);
        } else {
            outcome = processor.Process(task, checked.header);
        }
        return workerprotocol::Encode(workerprotocol::OutcomeReply{std::move(outcome)});
    }
    const auto& preview = std::get<workerprotocol::PreviewRequest>(request);
    const std::string source = files.Source(preview.path);
    if (auto refusal = CheckPixels(socket, source, preview.maxPixels).refusal) {
        return workerprotocol::Encode(
            workerprotocol::PreviewReply{PreviewResult::Failure(*refusal)});
    }
    return workerprotocol::Encode(workerprotocol::PreviewReply{
        preview.embedded ? previews.DecodeEmbedded(source, preview.maxSide)
                         : previews.DecodeLooking(source, preview.maxSide, preview.looks)});
}

bool OnlySecondDecoder(const workerprotocol::Request& request) {
    return std::visit([](const auto& r) { return r.onlySecondDecoder; }, request);
}

}  // namespace

int RunWorker(int socket, const SandboxStatus& sandbox) {
    KeepMemoryBetweenImages();
    if (!workerprotocol::Send(socket, workerprotocol::Encode(workerprotocol::Hello{
                                          workerprotocol::kVersion, sandbox}))) {
        return 1;
    }
    InProcessImageProcessor processor;
    InProcessPreviewDecoder previews;
    for (;;) {
        workerprotocol::Message frame;
        GivenFiles given;
        WaitForRequest(socket);
        if (!ReceiveGivenFiles(socket, given) ||
            workerprotocol::Receive(socket, frame, -1) != workerprotocol::ReceiveStatus::Received) {
            // The engine is gone. Leave at once: a decoder that corrupted the
            // heap on some file could crash this process on the way out.
            std::_Exit(0);
        }
#ifdef VELLUMO_SANDBOX_PROBES
        if (sandboxprobe::IsProbe(frame)) {
            CloseGivenFiles(given);
            if (!workerprotocol::Send(socket, sandboxprobe::Run(frame))) {
                return 0;
            }
            continue;
        }
#endif
        const std::optional<workerprotocol::Request> request = workerprotocol::DecodeRequest(frame);
        if (!request) {
            return 2;  // not a request this worker knows
        }
        // A file whose first decoder crashed a worker comes back marked.
        vipsload::UseOnlySecondDecoder(OnlySecondDecoder(*request));
        if (!workerprotocol::Send(socket, Answer(socket, *request, given, processor, previews))) {
            return 0;
        }
    }
}

}  // namespace vellumo
