#pragma once

// A fuzzer's bytes as one worker protocol message: the JSON part up to the
// first NUL byte (JSON text never holds one), the binary part after it.

#include <cstddef>
#include <cstdint>

#include "worker/WorkerProtocol.h"

namespace vellumo::fuzz {

inline workerprotocol::Message MessageOf(const std::uint8_t* data, std::size_t size) {
    const auto* text = reinterpret_cast<const char*>(data);
    std::size_t json = 0;
    while (json < size && text[json] != '\0') {
        ++json;
    }
    workerprotocol::Message message{std::string(text, json), {}};
    if (json < size) {
        message.binary.assign(text + json + 1, size - json - 1);
    }
    return message;
}

}  // namespace vellumo::fuzz
