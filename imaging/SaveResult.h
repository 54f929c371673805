#pragma once

#include <optional>
#include <string>
#include <utility>

#include "imaging/ByteLimit.h"
#include "imaging/Failure.h"

namespace vellumo {

// What writing a file gave: saved, or the reason a person can read why not
// ("permission denied", "no space left on device", "the folder does not
// exist", or the decoder's reason when the image turned out damaged while it
// was being written).
struct SaveResult {
    bool saved = false;
    std::string reason;  // empty when saved
    // Where it failed: the file system (Write), the encoder (Encode), or the
    // source's pixels read while they were written (Decode).
    FailureStage stage = FailureStage::Write;
    // How a file written under a byte limit was made to fit.
    std::optional<SizeFit> fit;

    static SaveResult Saved() { return {true, {}, FailureStage::Write, std::nullopt}; }
    static SaveResult Failed(std::string why, FailureStage stage = FailureStage::Write) {
        return {false, std::move(why), stage, std::nullopt};
    }
};

}  // namespace vellumo
