// The worker's side: requests from the engine. The engine is trusted, but
// the worker must fail a request it cannot read, not crash on it.
// Invariant: a request that decodes encodes to one decoding to itself.

#include "tests/fuzz/FuzzCheck.h"
#include "tests/fuzz/FuzzMessage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo::workerprotocol;
    const std::optional<Request> request = DecodeRequest(vellumo::fuzz::MessageOf(data, size));
    if (!request) {
        return 0;
    }
    const Message encoded = Encode(*request);
    const std::optional<Request> again = DecodeRequest(encoded);
    vellumo::fuzz::Check(again.has_value(), "an encoded request decodes");
    vellumo::fuzz::Check(Encode(*again).json == encoded.json, "a request decodes as itself");
    return 0;
}
