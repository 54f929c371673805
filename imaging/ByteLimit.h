#pragma once

// A limit on an output file's size in bytes, and what meeting it took.

#include <cstdint>
#include <string>

namespace vellumo {

struct ByteLimit {
    std::uint64_t maxBytes = 0;  // 0: no limit
    // When even the lowest quality does not fit, the picture is also made
    // smaller, step by step, until it does.
    bool scaleDown = false;
};

// How the file was made to fit.
struct SizeFit {
    int quality = 0;     // the quality factor chosen, 1 to 100
    double scale = 1.0;  // below 1: the picture was made smaller by this much
    long width = 0;      // the pixels written
    long height = 0;
    std::uint64_t bytes = 0;  // the encoded size measured
    int encodes = 0;          // how many encodings were tried
};

// "512000 bytes": exact, as a limit is checked.
std::string ByteCountText(std::uint64_t bytes);

}  // namespace vellumo
