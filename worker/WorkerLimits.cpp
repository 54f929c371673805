#include "worker/WorkerLimits.h"

#include <unistd.h>

#include <algorithm>

namespace vellumo {

std::uint64_t WorkerAddressSpace(const WorkerLimits& limits) {
    if (limits.addressSpaceBytes != 0) {
        return limits.addressSpaceBytes;
    }
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGE_SIZE);
    constexpr std::uint64_t kGigabyte = 1024ull * 1024 * 1024;
    const std::uint64_t memory =
        pages > 0 && pageSize > 0 ? static_cast<std::uint64_t>(pages) * pageSize : 8 * kGigabyte;
    return std::clamp<std::uint64_t>(memory / 2, 2 * kGigabyte, 16 * kGigabyte);
}

}  // namespace vellumo
