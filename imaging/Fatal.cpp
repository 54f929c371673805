#include "imaging/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace vellumo {

void Fatal(std::string_view what) {
    std::fprintf(stderr, "vellumo: fatal: %.*s\n", static_cast<int>(what.size()), what.data());
    std::fflush(stderr);
    std::abort();
}

}  // namespace vellumo
