#include "batch/CropSettings.h"

namespace vellumo {

std::optional<RatioChoice> ListedRatioTitled(std::string_view title) {
    for (const AutoCropRatio& entry : kAutoCropRatios) {
        if (entry.title == title) {
            return entry.choice;
        }
    }
    return std::nullopt;
}

std::optional<ClassicRatio> ClassicRatioOf(RatioChoice choice) {
    switch (choice) {
        case RatioChoice::Ratio1x1:
            return ClassicRatio::Square;
        case RatioChoice::Ratio4x3:
            return ClassicRatio::FourThree;
        case RatioChoice::Ratio3x2:
            return ClassicRatio::ThreeTwo;
        case RatioChoice::Ratio16x9:
            return ClassicRatio::SixteenNine;
        default:
            return std::nullopt;
    }
}

std::optional<RatioChoice> RatioChoiceAtPosition(long position) {
    if (position < 0 || position > static_cast<long>(RatioChoice::Custom)) {
        return std::nullopt;
    }
    return static_cast<RatioChoice>(position);
}

long PositionOfRatioChoice(RatioChoice choice) {
    return static_cast<long>(choice);
}

}  // namespace vellumo
