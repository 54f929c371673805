// Crop geometry. The expressions are written exactly as the reference gives
// them, term by term and in the same order of evaluation, so that results
// agree to the last bit (the core is built without FMA contraction).

#include <algorithm>
#include <cmath>

#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

Rect FullHeight(double H, double x, double width) {
    return {x, 0.0, width, H};
}
Rect FullWidth(double W, double y, double height) {
    return {0.0, y, W, height};
}

}  // namespace

Rect ImageTools::AutoCropRectangle(const Image& image, ClassicRatio ratio) {
    const double W = image.Width();
    const double H = image.Height();
    const float r = static_cast<float>(W / H);
    const bool landscape = r >= 1.0f;

    switch (ratio) {
        case ClassicRatio::Square:
            if (landscape) {
                return {(W - H) * 0.5, 0.0, H, H};
            }
            return {0.0, (H - W) * 0.5, W, W};

        case ClassicRatio::FourThree:  // 3:4 for portrait
            if (landscape) {
                const double T = H * 4.0 / 3.0;
                if (W >= T) {
                    return FullHeight(H, W * 0.5 + H * 4.0 / -6.0, H * 4.0 / 3.0);
                }
                return FullWidth(W, H * 0.5 + W * 3.0 * -0.125, W * 3.0 * 0.25);
            } else {
                const double T = H * 3.0 * 0.25;
                if (W >= T) {
                    return FullHeight(H, W * 0.5 + H * 3.0 * -0.125, H * 3.0 * 0.25);
                }
                return FullWidth(W, H * 0.5 + W * 4.0 / -6.0, W * 4.0 / 3.0);
            }

        case ClassicRatio::ThreeTwo:  // 2:3 for portrait
            if (landscape) {
                const double T = H * 3.0 * 0.5;
                if (W >= T) {
                    return FullHeight(H, W * 0.5 + H * 3.0 * -0.25, H * 3.0 * 0.5);
                }
                return FullWidth(W, H * 0.5 - W / 3.0, (W + W) / 3.0);
            } else {
                const double T = (H + H) / 3.0;
                if (W >= T) {
                    return FullHeight(H, W * 0.5 + H * -2.0 / 6.0, (H + H) / 3.0);
                }
                return FullWidth(W, H * 0.5 + W * 3.0 * -0.25, W * 3.0 * 0.5);
            }

        case ClassicRatio::SixteenNine:  // 9:16 for portrait
            if (landscape) {
                const double T = H * 16.0 / 9.0;
                if (W >= T) {
                    return FullHeight(H, W * 0.5 + H * 16.0 / -18.0, H * 16.0 / 9.0);
                }
                return FullWidth(W, H * 0.5 + W * 9.0 * -0.03125, W * 9.0 * 0.0625);
            } else {
                const double T = H * 9.0 * 0.0625;
                if (W >= T) {
                    return FullHeight(H, W * 0.5 + H * 9.0 * -0.03125, H * 9.0 * 0.0625);
                }
                return FullWidth(W, H * 0.5 + W * 16.0 / -18.0, W * 16.0 / 9.0);
            }
    }
    return {};  // not reached: every ratio returns above
}

Rect ImageTools::CropPixelArea(Size image, Rect cut) {
    const double imageColumns = image.width;
    const double imageRows = image.height;
    const double originX = cut.x;
    const double originY = cut.y;
    const double columns = cut.width;
    const double rows = cut.height;
    const double cutColumns = std::min(columns, imageColumns);
    const double cutRows = std::min(rows, imageRows);
    const auto roundedOrigin = [](double origin) {
        return origin >= 0 ? static_cast<double>(std::llround(origin)) : 0.0;
    };
    return {std::min(roundedOrigin(originX), imageColumns - cutColumns),
            std::min(roundedOrigin(originY), imageRows - cutRows), cutColumns, cutRows};
}

Size ImageTools::VisibleSize(const Image& image, Rect request) {
    const double W = image.Width();
    const double H = image.Height();
    const double x = request.x;
    const double y = request.y;
    const double right = x + request.width;
    const double top = y + request.height;

    // Visible extent along one axis for each combination of a fitting or
    // overflowing far end; the near end is the origin or the image's edge.
    // Every case is tested explicitly, so a NaN anywhere matches none.
    const bool rightFits = right <= W;
    const bool rightOver = right > W;
    const bool topFits = top <= H;
    const bool topOver = top > H;

    auto chain = [&](double left, double bottom) -> Size {
        if (rightFits && topFits)
            return {right - left, top - bottom};
        if (rightFits && topOver)
            return {right - left, H - bottom};
        if (rightOver && topFits)
            return {W - left, top - bottom};
        if (rightOver && topOver)
            return {W - left, H - bottom};
        return {0.0, 0.0};
    };

    if (x >= 0 && y >= 0)
        return chain(x, y);
    if (x <= 0 && y >= 0)
        return chain(0.0, y);
    if (x >= 0 && y <= 0)
        return chain(x, 0.0);
    if (x <= 0 && y <= 0)
        return chain(0.0, 0.0);
    return {0.0, 0.0};
}

}  // namespace vellumo
