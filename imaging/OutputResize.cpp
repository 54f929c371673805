#include "imaging/OutputResize.h"

#include <algorithm>
#include <cmath>

namespace vellumo {

namespace {

double Scale(Size cut, const ResizeRule& rule) {
    switch (rule.mode) {
        case ResizeMode::Width:
            return rule.width / cut.width;
        case ResizeMode::Height:
            return rule.height / cut.height;
        case ResizeMode::Fit:
        case ResizeMode::Exact:
            return std::min(rule.width / cut.width, rule.height / cut.height);
        case ResizeMode::None:
            break;
    }
    return 1.0;
}

double Side(double side, double scale) {
    return std::max(1.0, std::round(side * scale));
}

std::string Whole(double value) {
    return std::to_string(static_cast<long long>(value));
}

}  // namespace

std::optional<ResizeMode> ResizeModeNamed(std::string_view name) {
    const auto found = std::find(kResizeModeNames.begin(), kResizeModeNames.end(), name);
    if (found == kResizeModeNames.end()) {
        return std::nullopt;
    }
    return static_cast<ResizeMode>(found - kResizeModeNames.begin());
}

std::string_view ResizeModeName(ResizeMode mode) {
    return kResizeModeNames.at(static_cast<std::size_t>(mode));
}

Size ResizedSize(Size cut, const ResizeRule& rule) {
    if (rule.mode == ResizeMode::None || !(cut.width >= 1.0) || !(cut.height >= 1.0)) {
        return cut;
    }
    const double scale = Scale(cut, rule);
    if (scale > 1.0 && !rule.enlarge) {
        return cut;
    }
    if (rule.mode == ResizeMode::Exact) {
        return {static_cast<double>(rule.width), static_cast<double>(rule.height)};
    }
    return {Side(cut.width, scale), Side(cut.height, scale)};
}

Sentence ResizeNote(Size cut, const ResizeRule& rule) {
    if (rule.mode == ResizeMode::None || rule.enlarge || !(cut.width >= 1.0) ||
        !(cut.height >= 1.0) || Scale(cut, rule) <= 1.0) {
        return {};
    }
    return {VELLUMO_TEXT("Engine", "not enlarged: the crop is %1 × %2"),
            {Whole(cut.width), Whole(cut.height)}};
}

}  // namespace vellumo
