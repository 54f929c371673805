// Crop plans come from other people's files.
// Invariant: a plan that loads saves back to an equivalent plan (its text
// loads again and gives the same text), and no planned rectangle has a
// negative size or a value beyond kLargestPlannedPixels.

#include <cmath>

#include "batch/CropPlan.h"
#include "tests/fuzz/FuzzCheck.h"

namespace {

bool Sane(const vellumo::Rect& r) {
    using vellumo::kLargestPlannedPixels;
    for (const double value : {r.x, r.y, r.width, r.height, r.x + r.width, r.y + r.height}) {
        if (!std::isfinite(value) || std::abs(value) > kLargestPlannedPixels) {
            return false;
        }
    }
    return r.width >= 0 && r.height >= 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo;
    const Loaded<CropPlan> plan = CropPlanFromText(fuzz::Text(data, size), {}, "/plans");
    if (!plan) {
        return 0;
    }
    for (const PlannedImage& image : plan->images) {
        fuzz::Check(!image.rect || Sane(*image.rect), "planned rectangles are within bounds");
    }
    const std::string saved = CropPlanText(*plan);
    const Loaded<CropPlan> again = CropPlanFromText(saved, {}, "/plans");
    fuzz::Check(again.has_value(), "a saved plan loads");
    fuzz::Check(CropPlanText(*again) == saved, "a saved plan loads as itself");
    return 0;
}
