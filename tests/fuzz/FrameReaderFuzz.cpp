// The worker protocol's frame reader, fed what a taken-over worker could
// write into its socket, then end of stream.
// Invariants: a frame is received only when every byte it declares came;
// and the reader never allocates more than the bytes that actually came
// allow (twice them, as a string grows, plus one megabyte): a header alone
// declaring two 512 MB parts must not cost a gigabyte.

#include <sanitizer/allocator_interface.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cstring>

#include "tests/fuzz/FuzzCheck.h"
#include "worker/WorkerProtocol.h"

namespace {

constexpr std::size_t kAllowance = 1u << 20;

std::atomic<bool> watching{false};
std::atomic<std::size_t> largest{0};

void OnMalloc(const volatile void* /*pointer*/, std::size_t size) {
    if (watching.load(std::memory_order_relaxed)) {
        std::size_t seen = largest.load(std::memory_order_relaxed);
        while (size > seen && !largest.compare_exchange_weak(seen, size)) {
        }
    }
}

void OnFree(const volatile void* /*pointer*/) {}

std::uint32_t U32At(const std::uint8_t* at) {
    return at[0] | (at[1] << 8) | (at[2] << 16) | (static_cast<std::uint32_t>(at[3]) << 24);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    __sanitizer_install_malloc_and_free_hooks(OnMalloc, OnFree);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo::workerprotocol;
    int ends[2];
    vellumo::fuzz::Check(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0,
                         "a socket pair");
    // Inputs are far smaller than the socket's buffer: written whole at once.
    const bool whole = write(ends[0], data, size) == static_cast<ssize_t>(size);
    close(ends[0]);
    if (whole) {
        Message message;
        largest = 0;
        watching = true;
        const ReceiveStatus status = Receive(ends[1], message, 0);
        watching = false;
        vellumo::fuzz::Check(largest <= 2 * size + kAllowance,
                             "the reader allocates no more than what came allows");
        if (status == ReceiveStatus::Received) {
            vellumo::fuzz::Check(size >= 8 && message.json.size() == U32At(data) &&
                                     message.binary.size() == U32At(data + 4) &&
                                     8 + message.json.size() + message.binary.size() <= size,
                                 "a received frame is the frame declared, all of it there");
            vellumo::fuzz::Check(
                std::memcmp(message.json.data(), data + 8, message.json.size()) == 0,
                "the JSON part is the bytes sent");
        }
    }
    close(ends[1]);
    return 0;
}
