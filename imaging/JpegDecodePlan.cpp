#include "imaging/JpegDecodePlan.h"

namespace vellumo {

PixelBox StoredBox(const PixelBox& upright, Size uprightSize, int orientation) {
    const int w = static_cast<int>(uprightSize.width);
    const int h = static_cast<int>(uprightSize.height);
    const int right = w - upright.left - upright.width;   // columns right of the cut
    const int bottom = h - upright.top - upright.height;  // rows below it
    switch (orientation) {
        case 2:  // mirrored left to right
            return {right, upright.top, upright.width, upright.height};
        case 3:  // turned half round
            return {right, bottom, upright.width, upright.height};
        case 4:  // mirrored top to bottom
            return {upright.left, bottom, upright.width, upright.height};
        case 5:  // transposed: stored rows are upright columns
            return {upright.top, upright.left, upright.height, upright.width};
        case 6:  // stored turned a quarter left: its first row is the upright right column
            return {upright.top, right, upright.height, upright.width};
        case 7:  // transverse
            return {bottom, right, upright.height, upright.width};
        case 8:  // stored turned a quarter right: its first row is the upright left column
            return {bottom, upright.left, upright.height, upright.width};
        default:
            return upright;
    }
}

int ScaleEighths(Size cut, Size output, double minFactor) {
    for (int eighths = 1; eighths < 8; ++eighths) {
        const double scale = eighths / 8.0;
        if (cut.width * scale >= output.width * minFactor &&
            cut.height * scale >= output.height * minFactor) {
            return eighths;
        }
    }
    return 8;
}

bool OnWholeScaledPixels(int begin, int length, int eighths) {
    // begin * M and length * M multiples of 8 put the end, (begin + length)
    // * M / 8, on a whole pixel as well, at the picture's edge too.
    return static_cast<long long>(begin) * eighths % 8 == 0 &&
           static_cast<long long>(length) * eighths % 8 == 0;
}

std::optional<JpegDecodePlan> PlanJpegDecode(Size storedSize, int orientation,
                                             const PixelBox& upright, Size output,
                                             double minFactor) {
    if (storedSize.width * storedSize.height < kLeastPlannedPixels) {
        return std::nullopt;
    }
    JpegDecodePlan plan;
    plan.stored = StoredBox(upright, TurnedBy(storedSize, orientation), orientation);
    const PixelBox& box = plan.stored;
    const Size cut{static_cast<double>(upright.width), static_cast<double>(upright.height)};
    for (int eighths = ScaleEighths(cut, output, minFactor); eighths <= 8; ++eighths) {
        if (OnWholeScaledPixels(box.left, box.width, eighths) &&
            OnWholeScaledPixels(box.top, box.height, eighths)) {
            plan.eighths = eighths;
            plan.decoded = {box.left * eighths / 8, box.top * eighths / 8, box.width * eighths / 8,
                            box.height * eighths / 8};
            return plan;
        }
    }
    return std::nullopt;  // not reached: every edge is whole at 8/8
}

}  // namespace vellumo
