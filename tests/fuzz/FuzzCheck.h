#pragma once

// What every fuzz target shares: a broken invariant stops the run loudly
// (libFuzzer saves the input as a crash), and the fuzzer's bytes as text.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace vellumo::fuzz {

// Aborts with `what` when `holds` is false: libFuzzer reports the abort as a
// crash and keeps the input that caused it.
inline void Check(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "fuzz invariant broken: %s\n", what);
        std::abort();
    }
}

inline std::string Text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace vellumo::fuzz
