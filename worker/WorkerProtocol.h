#pragma once

// Inside the core only: the messages between the engine and its worker
// process, over one local stream socket. A message is a frame:
//
//   u32 JSON length | u32 binary length | JSON text | binary bytes
//
// (lengths little-endian). Every JSON object has a "type". The worker greets
// with {"type": "hello", "version": 1}; requests are "image" (an ImageTask)
// and "preview" (path, maxSide); while it works the worker may send
// "decoding" notes (the bytes the image will take); each request ends with
// one reply, "outcome" or "preview" (whose picture travels as the binary
// part).

#include <optional>
#include <string>

#include "batch/ImageTask.h"
#include "imaging/Preview.h"

namespace vellumo::workerprotocol {

inline constexpr int kVersion = 1;

struct Message {
    std::string json;
    std::string binary;
};

// Whole frames over a blocking socket. False when the other side is gone.
bool Send(int socket, const Message& message);
// Waits at most `timeoutMilliseconds` (negative: forever) for a frame.
enum class ReceiveStatus { Received, TimedOut, Closed };
ReceiveStatus Receive(int socket, Message& message, int timeoutMilliseconds);

// The "type" of a message ("" when it has none).
std::string TypeOf(const Message& message);

Message Hello();
std::optional<int> HelloVersion(const Message& message);

Message ImageRequest(const ImageTask& task, std::uint64_t maxPixels);
std::optional<ImageTask> TaskFrom(const Message& message, std::uint64_t& maxPixels);

Message PreviewRequest(const std::string& path, int maxSide, std::uint64_t maxPixels);
bool PreviewRequestFrom(const Message& message, std::string& path, int& maxSide,
                        std::uint64_t& maxPixels);

// A request (for an image or a preview) marked to be decoded by the other
// decoders only, because the first one crashed a worker on the same file.
Message WithOnlySecondDecoder(Message request);
bool OnlySecondDecoder(const Message& request);

Message DecodingNote(std::uint64_t bytes);
std::uint64_t DecodingBytes(const Message& message);

Message OutcomeReply(const ImageOutcome& outcome);
std::optional<ImageOutcome> OutcomeFrom(const Message& message);

Message PreviewReply(const PreviewResult& preview);
PreviewResult PreviewFrom(const Message& message);

}  // namespace vellumo::workerprotocol
