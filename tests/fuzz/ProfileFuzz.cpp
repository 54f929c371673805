// Profiles come from other people's files and from crop plans.
// Invariant: a profile that loads saves back to an equivalent profile: its
// text loads again and gives the same text.

#include "batch/Profile.h"
#include "tests/fuzz/FuzzCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo;
    const Loaded<CropSettings> loaded = SettingsFromProfileText(fuzz::Text(data, size), {});
    if (!loaded) {
        fuzz::Check(!loaded.reason().empty(), "a refused profile says why");
        return 0;
    }
    const std::string saved = ProfileText(*loaded);
    const Loaded<CropSettings> again = SettingsFromProfileText(saved, {});
    fuzz::Check(again.has_value(), "a saved profile loads");
    fuzz::Check(ProfileText(*again) == saved, "a saved profile loads as itself");
    return 0;
}
