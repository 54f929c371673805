#include "imaging/Trim.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "imaging/ImageAccess.h"
#include "imaging/PixelConvert.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

constexpr double kFullRange = 65535.0;
// ImageMagick never compares with a distance below this, even at 0 %.
constexpr double kSmallestFuzz = 0.70710678118654752;

// The samples as R, G, B and A in 16-bit units (an opaque alpha added where
// there is none), in doubles: ImageMagick's Q16 values for the same pixels.
vips::VImage SixteenBitRgba(const vips::VImage& in) {
    vips::VImage samples = in;
    const bool plain =
        samples.interpretation() != VIPS_INTERPRETATION_CMYK && samples.bands() <= 4 &&
        (samples.format() == VIPS_FORMAT_UCHAR || samples.format() == VIPS_FORMAT_USHORT);
    if (!plain) {
        samples = pixelconvert::ToSrgb8(samples, samples.has_alpha());
    }
    const double scale = samples.format() == VIPS_FORMAT_USHORT ? 1.0 : 257.0;
    samples = samples.cast(VIPS_FORMAT_DOUBLE) * scale;
    const int bands = samples.bands();
    // Grey is R = G = B, as ImageMagick reads it.
    if (bands <= 2) {
        const vips::VImage grey = samples[0];
        vips::VImage rgb = grey.bandjoin(grey).bandjoin(grey);
        samples = bands == 2 ? rgb.bandjoin(samples[1]) : rgb;
    }
    if (samples.bands() == 3) {
        samples = samples.bandjoin_const({kFullRange});
    }
    return samples;
}

// 255 where a pixel differs from `target` (R, G, B, A in 16-bit units) by
// more than `fuzz`, as ImageMagick's IsMagickColorSimilar measures it.
vips::VImage Differs(const vips::VImage& samples, const std::vector<double>& target, double fuzz,
                     bool alpha) {
    if (fuzz <= 0.0) {
        // Exactly the same samples; any two fully transparent pixels are the
        // same whatever colour they hide.
        if (alpha && target[3] == 0.0) {
            return samples[3] != 0.0;
        }
        return (samples != target).bandor();
    }
    const double limit = std::pow(std::max(fuzz, kSmallestFuzz), 2);
    const vips::VImage colour = samples.extract_band(0, vips::VImage::option()->set("n", 3)) -
                                std::vector<double>{target[0], target[1], target[2]};
    const vips::VImage colourSquares = (colour * colour).bandmean() * 3.0;
    if (!alpha) {
        return colourSquares > 3.0 * limit;
    }
    const vips::VImage alphaDifference = samples[3] - target[3];
    const vips::VImage alphaSquare = alphaDifference * alphaDifference;
    // A transparent corner or pixel counts only its alpha: colour under no
    // coverage is no colour.
    const vips::VImage scale = samples[3] * (target[3] / (kFullRange * kFullRange));
    const vips::VImage farColour = (alphaSquare * 3.0 + colourSquares * scale) > 3.0 * limit;
    return (alphaSquare > limit) | ((scale > 1e-12) & farColour);
}

// The first and last index whose count is above zero, the last taken only
// above index 0, as ImageMagick's bounding box takes it; -1 for none.
struct Span {
    int first = -1;
    int last = 0;
};

Span SpanOf(const std::vector<std::uint32_t>& counts, std::size_t band, std::size_t bands) {
    Span span;
    const std::size_t n = counts.size() / bands;
    for (std::size_t i = 0; i < n; ++i) {
        if (counts[i * bands + band] > 0) {
            if (span.first < 0) {
                span.first = static_cast<int>(i);
            }
            span.last = static_cast<int>(i);
        }
    }
    return span;
}

std::vector<std::uint32_t> Counts(const vips::VImage& projection) {
    const vips::VImage counts = projection.cast(VIPS_FORMAT_UINT);
    std::size_t bytes = 0;
    void* memory = counts.write_to_memory(&bytes);
    std::vector<std::uint32_t> values(bytes / sizeof(std::uint32_t));
    std::copy_n(static_cast<const std::uint32_t*>(memory), values.size(), values.begin());
    g_free(memory);
    return values;
}

}  // namespace

Rect WidenedByMargin(Rect area, Size image, int margin) {
    const double m = std::max(0, margin);
    const double left = std::max(0.0, area.x - m);
    const double bottom = std::max(0.0, area.y - m);
    const double right = std::min(image.width, area.x + area.width + m);
    const double top = std::min(image.height, area.y + area.height + m);
    return {left, bottom, right - left, top - bottom};
}

std::optional<Rect> ImageTools::FindContent(const Image& image, double tolerance) {
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        return std::nullopt;
    }
    vipsruntime::EnsureStarted();
    vipsruntime::FailureScope scope;
    try {
        const bool alpha = pixels->has_alpha();
        const vips::VImage samples = SixteenBitRgba(*pixels);
        const int W = samples.width();
        const int H = samples.height();
        const double fuzz = std::clamp(tolerance, 0.0, kLargestTrimTolerance) / 100.0 * kFullRange;
        const auto corner = [&](int x, int y) {
            return Differs(samples, samples.getpoint(x, y), fuzz, alpha);
        };
        // Bands: unlike the top-left, the top-right and the bottom-left corner.
        const vips::VImage masks =
            corner(0, 0).bandjoin(corner(W - 1, 0)).bandjoin(corner(0, H - 1));
        vips::VImage rows;
        const vips::VImage columns = (masks / 255).cast(VIPS_FORMAT_UCHAR).project(&rows);
        const std::vector<std::uint32_t> across = Counts(columns);
        const std::vector<std::uint32_t> down = Counts(rows);
        const Span left = SpanOf(across, 0, 3), right = SpanOf(across, 1, 3);
        const Span top = SpanOf(down, 0, 3), bottom = SpanOf(down, 2, 3);
        if (left.first < 0 || top.first < 0 || right.last <= 0 || bottom.last <= 0 ||
            right.last < left.first || bottom.last < top.first) {
            return std::nullopt;
        }
        const int width = right.last - left.first + 1;
        const int height = bottom.last - top.first + 1;
        return Rect{static_cast<double>(left.first), static_cast<double>(H - top.first - height),
                    static_cast<double>(width), static_cast<double>(height)};
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

}  // namespace vellumo
