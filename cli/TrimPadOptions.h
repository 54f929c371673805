#pragma once

// The command line's trim and pad options: --trim, --trim-tolerance,
// --trim-margin, --pad and --background.

#include <optional>
#include <string>

#include "batch/CropSettings.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vellumo::cli {

struct TrimPadGroup {
    bool trim = false;
    std::string tolerance, margin, pad, background;
    CLI::Option *trimOption = nullptr, *toleranceOption = nullptr, *marginOption = nullptr,
                *padOption = nullptr, *backgroundOption = nullptr;
};

void AddTrimAndPad(CLI::App& app, TrimPadGroup& g);

// The options given, over the settings (from a profile or the defaults).
// `cropRectangleGiven`: --auto, --pixels or --percents was given; without
// one, trimming or padding crops nothing else (CropMode::None), unless the
// settings auto-crop. Then the combinations are checked: trimming works on
// the whole image or the auto-crop, padding on the whole image or what the
// trim leaves, and a transparent fill needs a format with alpha. A problem
// is one line naming the option.
std::optional<std::string> ApplyTrimAndPad(const TrimPadGroup& g, bool cropRectangleGiven,
                                           CropSettings& s);

}  // namespace vellumo::cli
