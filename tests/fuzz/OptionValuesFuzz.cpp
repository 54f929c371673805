// The command line's values: ratios (--auto W:H), rectangles (--pixels and
// --percents X,Y,W,H), sides (--resize) and qualities; the first byte
// chooses the parser.
// Invariant: whatever the command line accepts, a profile accepts too (the
// settings it gives can be saved and loaded): finite numbers within the
// bounds profiles keep; ratios positive; sides from 0 to the largest.

#include <cmath>

#include "batch/Profile.h"
#include "cli/OptionValues.h"
#include "imaging/OutputResize.h"
#include "tests/fuzz/FuzzCheck.h"

namespace {

using namespace vellumo;

void CheckRectangle(const std::string& text) {
    const auto rect = cli::ParseRectangle(text);
    if (!rect) {
        return;
    }
    CropSettings settings;
    settings.mode = CropMode::Pixels;
    std::tie(settings.pixelsOriginX, settings.pixelsOriginY, settings.pixelsWidth,
             settings.pixelsHeight) = std::tuple((*rect)[0], (*rect)[1], (*rect)[2], (*rect)[3]);
    std::tie(settings.percentsOriginX, settings.percentsOriginY, settings.percentsWidth,
             settings.percentsHeight) = std::tuple((*rect)[0], (*rect)[1], (*rect)[2], (*rect)[3]);
    const Loaded<CropSettings> again = SettingsFromProfileText(ProfileText(settings), {});
    fuzz::Check(again.has_value(), "an accepted rectangle can be kept in a profile");
}

void CheckRatio(const std::string& text) {
    const auto ratio = cli::ParseRatio(text);
    if (!ratio) {
        return;
    }
    fuzz::Check(std::isfinite(ratio->width) && std::isfinite(ratio->height) && ratio->width > 0 &&
                    ratio->height > 0,
                "a ratio of two positive finite numbers");
    CropSettings settings;
    settings.mode = CropMode::Auto;
    settings.autoCropRatio = RatioChoice::Custom;
    settings.customRatio = *ratio;
    const Loaded<CropSettings> again = SettingsFromProfileText(ProfileText(settings), {});
    fuzz::Check(again.has_value(), "an accepted ratio can be kept in a profile");
}

void CheckSide(const std::string& text) {
    const auto side = cli::ParseSide(text);
    fuzz::Check(!side || (*side >= 0 && *side <= kLargestResizeSide), "a side within bounds");
    fuzz::Check(!side || *side != 0 || text.empty(), "only an empty side is 0");
}

void CheckQuality(const std::string& text) {
    if (!cli::QualityProblem(text).empty()) {
        return;
    }
    const float quality = std::stof(text);
    fuzz::Check(quality >= 0 && quality <= 100, "a quality from 0 to 100");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string text = fuzz::Text(data + 1, size - 1);
    switch (data[0] % 4) {
        case 0:
            CheckRectangle(text);
            break;
        case 1:
            CheckRatio(text);
            break;
        case 2:
            CheckSide(text);
            break;
        default:
            CheckQuality(text);
            break;
    }
    return 0;
}
