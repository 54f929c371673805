#include "imaging/WebpDecodePlan.h"

#include <algorithm>
#include <cmath>

namespace vellumo {

std::optional<WebpDecodePlan> PlanWebpDecode(Size storedSize, int orientation,
                                             const PixelBox& upright, Size output,
                                             double minFactor) {
    if (storedSize.width * storedSize.height < kLeastPlannedPixels) {
        return std::nullopt;
    }
    const Size storedOutput = TurnedBy(output, orientation);
    WebpDecodePlan plan;
    plan.stored = StoredBox(upright, TurnedBy(storedSize, orientation), orientation);
    const PixelBox& box = plan.stored;
    const int oddLeft = box.left % 2;
    const int oddTop = box.top % 2;
    if (oddLeft == 0 && oddTop == 0) {
        plan.cropped = box;
        plan.scaledWidth =
            std::min(box.width, static_cast<int>(std::ceil(storedOutput.width * minFactor)));
        plan.scaledHeight =
            std::min(box.height, static_cast<int>(std::ceil(storedOutput.height * minFactor)));
        plan.kept = {0, 0, plan.scaledWidth, plan.scaledHeight};
        return plan;
    }
    plan.cropped = {box.left - oddLeft, box.top - oddTop, box.width + oddLeft, box.height + oddTop};
    plan.scaledWidth = plan.cropped.width;
    plan.scaledHeight = plan.cropped.height;
    plan.kept = {oddLeft, oddTop, box.width, box.height};
    return plan;
}

}  // namespace vellumo
