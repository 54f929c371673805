#include "worker/WorkerLoop.h"

#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>

#include "batch/ImageProcessor.h"
#include "batch/PreviewDecoder.h"
#include "imaging/ImageTools.h"
#include "worker/WorkerProtocol.h"

namespace vellumo {

namespace {

std::string Megapixels(std::uint64_t pixels) {
    std::ostringstream text;
    text << static_cast<double>(pixels) / 1e6;
    return text.str();
}

// Why a file is refused before decoding, or nothing. Tells the engine how
// much memory the decoded image takes (about four bytes a pixel), so that a
// worker that dies of it is reported as such.
std::optional<std::string> CheckPixels(int socket, const std::string& path,
                                       std::uint64_t maxPixels) {
    const std::optional<Size> size = ImageTools::ImagePixelSizeWithPath(path);
    if (!size) {
        return std::nullopt;  // the decoder itself will say why
    }
    const double pixels = size->width * size->height;
    if (pixels > static_cast<double>(maxPixels)) {
        return "the image declares " + std::to_string(static_cast<long long>(size->width)) + " x " +
               std::to_string(static_cast<long long>(size->height)) +
               " pixels, more than the limit of " + Megapixels(maxPixels) + " megapixels";
    }
    workerprotocol::Send(socket,
                         workerprotocol::DecodingNote(static_cast<std::uint64_t>(pixels) * 4));
    return std::nullopt;
}

}  // namespace

int RunWorker(int socket) {
    if (!workerprotocol::Send(socket, workerprotocol::Hello())) {
        return 1;
    }
    InProcessImageProcessor processor;
    InProcessPreviewDecoder previews;
    for (;;) {
        workerprotocol::Message request;
        if (workerprotocol::Receive(socket, request, -1) !=
            workerprotocol::ReceiveStatus::Received) {
            // The engine is gone. Leave at once: a decoder that corrupted the
            // heap on some file could crash this process on the way out.
            std::_Exit(0);
        }
        std::uint64_t maxPixels = 0;
        workerprotocol::Message reply;
        if (const auto task = workerprotocol::TaskFrom(request, maxPixels)) {
            ImageOutcome outcome;
            if (auto refusal = CheckPixels(socket, task->source, maxPixels)) {
                outcome.reason = "cannot decode: " + *refusal;
            } else {
                outcome = processor.Process(*task);
            }
            reply = workerprotocol::OutcomeReply(outcome);
        } else {
            std::string path;
            int maxSide = 0;
            if (!workerprotocol::PreviewRequestFrom(request, path, maxSide, maxPixels)) {
                return 2;  // not a request this worker knows
            }
            if (auto refusal = CheckPixels(socket, path, maxPixels)) {
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
