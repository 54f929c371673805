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
    Checked checked{ImageTools::ImageHeaderWithPath(path), std::nullopt};
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
    workerprotocol::Send(socket,
                         workerprotocol::DecodingNote(static_cast<std::uint64_t>(pixels) * 4));
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

}  // namespace

int RunWorker(int socket) {
    KeepMemoryBetweenImages();
    if (!workerprotocol::Send(socket, workerprotocol::Hello())) {
        return 1;
    }
    InProcessImageProcessor processor;
    InProcessPreviewDecoder previews;
    for (;;) {
        workerprotocol::Message request;
        WaitForRequest(socket);
        if (workerprotocol::Receive(socket, request, -1) !=
            workerprotocol::ReceiveStatus::Received) {
            // The engine is gone. Leave at once: a decoder that corrupted the
            // heap on some file could crash this process on the way out.
            std::_Exit(0);
        }
        // A file whose first decoder crashed a worker comes back marked.
        vipsload::UseOnlySecondDecoder(workerprotocol::OnlySecondDecoder(request));
        std::uint64_t maxPixels = 0;
        workerprotocol::Message reply;
        if (const auto task = workerprotocol::TaskFrom(request, maxPixels)) {
            ImageOutcome outcome;
            const Checked checked = CheckPixels(socket, task->source, maxPixels);
            if (checked.refusal) {
                outcome.reason = "cannot decode: " + *checked.refusal;
            } else {
                outcome = processor.Process(*task, checked.header);
            }
            reply = workerprotocol::OutcomeReply(outcome);
        } else {
            std::string path;
            int maxSide = 0;
            if (!workerprotocol::PreviewRequestFrom(request, path, maxSide, maxPixels)) {
                return 2;  // not a request this worker knows
            }
            if (auto refusal = CheckPixels(socket, path, maxPixels).refusal) {
                reply = workerprotocol::PreviewReply(PreviewResult::Failure(*refusal));
            } else {
                reply = workerprotocol::PreviewReply(previews.Decode(path, maxSide));
            }
        }
        if (!workerprotocol::Send(socket, reply)) {
            return 0;
        }
    }
}

}  // namespace vellumo
