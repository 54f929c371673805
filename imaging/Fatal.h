#pragma once

#include <string_view>

namespace vellumo {

// Stops the process for a condition the program does not expect (a broken
// invariant, a missing control, an index outside a list). Writes one line
// naming what went wrong to standard error, then aborts.
[[noreturn]] void Fatal(std::string_view what);

}  // namespace vellumo
