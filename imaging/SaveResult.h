#pragma once

#include <string>
#include <utility>

namespace vellumo {

// What writing a file gave: saved, or the reason a person can read why not
// ("permission denied", "no space left on device", "the folder does not
// exist", or the decoder's reason when the image turned out damaged while it
// was being written).
struct SaveResult {
    bool saved = false;
    std::string reason;  // empty when saved

    static SaveResult Saved() { return {true, {}}; }
    static SaveResult Failed(std::string why) { return {false, std::move(why)}; }
};

}  // namespace vellumo
