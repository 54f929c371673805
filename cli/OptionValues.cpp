#include "cli/OptionValues.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <exception>

#include "batch/CropSettings.h"
#include "batch/Profile.h"
#include "imaging/OutputResize.h"

namespace vellumo::cli {

namespace {

// A ratio's side, the whole text: a decimal within the bounds a profile
// keeps (so that settings from the command line can be saved as one).
std::optional<double> RatioSide(const std::string& text) {
    try {
        std::size_t used = 0;
        const double value = std::stod(text, &used);
        if (used == text.size() && value >= kSmallestRatioSide && value <= kLargestRatioSide) {
            return value;
        }
    } catch (const std::exception&) {
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::array<float, 4>> ParseRectangle(const std::string& text) {
    std::array<float, 4> values{};
    std::size_t start = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t comma = text.find(',', start);
        if ((i < 3) == (comma == std::string::npos)) {
            return std::nullopt;
        }
        const std::string part =
            text.substr(start, comma == std::string::npos ? comma : comma - start);
        try {
            std::size_t used = 0;
            values[i] = std::stof(part, &used);
            // NaN and infinities are numbers to stof, not to a profile.
            if (used != part.size() || !(std::abs(values[i]) <= kLargestRectangleField)) {
                return std::nullopt;
            }
        } catch (const std::exception&) {
            return std::nullopt;
        }
        start = comma + 1;
    }
    return values;
}

std::optional<AspectRatio> ParseRatio(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) {
        return std::nullopt;
    }
    const auto width = RatioSide(text.substr(0, colon));
    const auto height = RatioSide(text.substr(colon + 1));
    if (!width || !height) {
        return std::nullopt;
    }
    return AspectRatio{*width, *height};
}

std::optional<int> ParseSide(const std::string& text) {
    if (text.empty()) {
        return 0;
    }
    if (!std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); }) ||
        text.size() > 5) {
        return std::nullopt;
    }
    const int side = std::stoi(text);
    if (side < 1 || side > kLargestResizeSide) {
        return std::nullopt;
    }
    return side;
}

std::optional<float> ParseShare(const std::string& text) {
    const bool plain = !text.empty() && text.size() <= 12 &&
                       std::all_of(text.begin(), text.end(),
                                   [](unsigned char c) { return std::isdigit(c) || c == '.'; });
    if (!plain || std::count(text.begin(), text.end(), '.') > 1 || text.front() == '.') {
        return std::nullopt;
    }
    const float share = std::stof(text);
    if (!(share >= 1.0f) || !(share <= 99.0f)) {
        return std::nullopt;
    }
    return share;
}

std::string QualityProblem(const std::string& text) {
    try {
        const float value = std::stof(text);
        if (value >= 0.0f && value <= 100.0f) {
            return {};
        }
    } catch (const std::exception&) {
    }
    return "must be a number from 0 to 100, got " + text;
}

std::string AnchorNameList() {
    std::string list;
    for (std::size_t i = 0; i < kCropAnchorNames.size(); ++i) {
        list += i == 0 ? "" : i + 1 == kCropAnchorNames.size() ? " or " : ", ";
        list += kCropAnchorNames[i];
    }
    return list;
}

std::optional<std::uint64_t> ByteCountOf(const std::string& text) {
    std::size_t end = 0;
    while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])) != 0) {
        ++end;
    }
    if (end == 0 || end > 15) {
        return std::nullopt;
    }
    std::string unit = text.substr(end);
    for (char& c : unit) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    if (!unit.empty() && unit.back() == 'B') {
        unit.pop_back();
    }
    const std::uint64_t number = std::stoull(text.substr(0, end));
    const std::uint64_t factor = unit.empty() ? 1 : unit == "K" ? 1000 : unit == "M" ? 1000000 : 0;
    if (factor == 0 || number == 0) {
        return std::nullopt;
    }
    return number * factor;
}

}  // namespace vellumo::cli
