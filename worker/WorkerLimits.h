#pragma once

#include <chrono>
#include <cstdint>

namespace vellumo {

// What a worker process may spend on one image. The defaults suit real
// photos and scans.
struct WorkerLimits {
    // Files declaring more pixels than this fail from their header, before
    // anything is decoded.
    std::uint64_t maxPixels = 1'000'000'000;
    // One image's work (or one preview) taking longer stops the worker.
    std::chrono::milliseconds timeout{std::chrono::seconds(120)};
    // The worker's address space; 0 means half the machine's memory, and
    // never more than 16 GB.
    std::uint64_t addressSpaceBytes = 0;
    // Work no one waits for (thumbnails made ahead): the worker runs at the
    // lowest CPU priority, so that it never takes a core from the window or
    // from work a person waits for.
    bool background = false;
    // Decode nothing in a worker whose sandbox misses a layer (Lockdown.h):
    // every image fails with the missing layers as the reason.
    bool requireSandbox = false;

    // The defaults, for work no one waits for.
    static WorkerLimits Background() {
        WorkerLimits limits;
        limits.background = true;
        return limits;
    }
};

// The address space a worker gets under `limits`.
std::uint64_t WorkerAddressSpace(const WorkerLimits& limits);

}  // namespace vellumo
