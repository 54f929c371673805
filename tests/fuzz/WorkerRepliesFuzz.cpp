// The engine's side: replies from a worker that may have been taken over.
// Invariant: a reply that decodes encodes to a frame that decodes to a
// reply encoding the same way (nothing is read that cannot be told again),
// and a preview's picture is exactly the size it says.

#include "tests/fuzz/FuzzCheck.h"
#include "tests/fuzz/FuzzMessage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo::workerprotocol;
    const std::optional<Reply> reply = DecodeReply(vellumo::fuzz::MessageOf(data, size));
    if (!reply) {
        return 0;
    }
    if (const auto* preview = std::get_if<PreviewReply>(&*reply); preview && preview->preview) {
        const vellumo::Preview& picture = *preview->preview;
        vellumo::fuzz::Check(!picture.picture.IsEmpty(), "a preview's picture has pixels");
    }
    const Message encoded = Encode(*reply);
    const std::optional<Reply> again = DecodeReply(encoded);
    vellumo::fuzz::Check(again.has_value(), "an encoded reply decodes");
    const Message encodedAgain = Encode(*again);
    vellumo::fuzz::Check(encodedAgain.json == encoded.json && encodedAgain.binary == encoded.binary,
                         "a reply decodes as itself");
    return 0;
}
