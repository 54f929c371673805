#pragma once

// Inside the core only: the messages between the engine and its worker
// process, over one local stream socket. A message is a frame:
//
//   u32 JSON length | u32 binary length | JSON text | binary bytes
//
// (lengths little-endian). Every JSON object has a "type". The worker greets
// with {"type": "hello", "version": 1, "sandbox": [its layers]}; each
// request is preceded by the open files it comes with (GivenFiles.h); the
// outcome of an image carries the output's bytes as its binary part, for
// the engine to write (the worker writes no file). Requests are "image" (an ImageTask)
// and "preview" (path, maxSide); while it works the worker may send
// "decoding" notes (the bytes the image will take); each request ends with
// one reply, "outcome" or "preview" (whose picture travels as the binary
// part).

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "batch/ImageTask.h"
#include "imaging/Preview.h"
#include "worker/SandboxStatus.h"

namespace vellumo::workerprotocol {

// 2: a task says its kind and output target by name; an outcome carries its
// failure (stage and reason) instead of a reason alone. 3: the "name-facts"
// task, whose outcome carries the photo's facts. 4: a preview may be asked
// to look for faces and a trim's content (PreviewLooks), and its reply
// carries what was found. 5: a preview may ask for the file's embedded
// thumbnail only.
inline constexpr int kVersion = 5;

struct Message {
    std::string json;
    std::string binary;
};

// Whole frames over a blocking socket. False when the other side is gone.
bool Send(int socket, const Message& message);
// Waits at most `timeoutMilliseconds` (negative: forever) for a frame.
enum class ReceiveStatus { Received, TimedOut, Closed };
ReceiveStatus Receive(int socket, Message& message, int timeoutMilliseconds);

// The messages, one struct each, each with one serialisation (to_json and
// from_json in WorkerProtocol.cpp). A request marked onlySecondDecoder is
// decoded by the other decoders only, because the first one crashed a
// worker on the same file.
// The greeting says how the worker locked itself down (SandboxStatus.h).
struct Hello {
    static constexpr char kType[] = "hello";
    int version = kVersion;
    SandboxStatus sandbox;
};
struct ImageRequest {
    static constexpr char kType[] = "image";
    ImageTask task;
    std::uint64_t maxPixels = 0;
    bool onlySecondDecoder = false;
};
struct PreviewRequest {
    static constexpr char kType[] = "preview";
    std::string path;
    int maxSide = 0;
    std::uint64_t maxPixels = 0;
    bool onlySecondDecoder = false;
    PreviewLooks looks{};
    // The file's embedded thumbnail, at least maxSide on its longer side,
    // instead of a decoded picture (ImageTools::LoadEmbeddedThumbnail).
    bool embedded = false;
};
// The bytes the image being decoded will take.
struct DecodingNote {
    static constexpr char kType[] = "decoding";
    std::uint64_t bytes = 0;
};
struct OutcomeReply {
    static constexpr char kType[] = "outcome";
    ImageOutcome outcome;
};
// The picture travels as the frame's binary part; the faces and the trim's
// content, when they were asked for, in the JSON.
struct PreviewReply {
    static constexpr char kType[] = "preview";
    PreviewResult preview;
};

using Request = std::variant<ImageRequest, PreviewRequest>;                   // engine to worker
using Reply = std::variant<Hello, DecodingNote, OutcomeReply, PreviewReply>;  // worker to engine

Message Encode(const Request& request);
Message Encode(const Reply& reply);

// Each frame parsed once, in full: nothing when it holds no message of that
// direction (not JSON, another type, a field missing or of another kind, a
// damaged picture). Never throws.
std::optional<Request> DecodeRequest(const Message& message);
std::optional<Reply> DecodeReply(const Message& message);

}  // namespace vellumo::workerprotocol
