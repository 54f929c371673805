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
// there is none), as 16-bit integers: ImageMagick's Q16 values for the same
// pixels.
vips::VImage SixteenBitRgba(const vips::VImage& in) {
    vips::VImage samples = in;
    const bool plain =
        samples.interpretation() != VIPS_INTERPRETATION_CMYK && samples.bands() <= 4 &&
        (samples.format() == VIPS_FORMAT_UCHAR || samples.format() == VIPS_FORMAT_USHORT);
    if (!plain) {
        samples = pixelconvert::ToSrgb8(samples, samples.has_alpha());
    }
    const double scale = samples.format() == VIPS_FORMAT_USHORT ? 1.0 : 257.0;
    samples = (samples.cast(VIPS_FORMAT_USHORT) * scale).cast(VIPS_FORMAT_USHORT);
    const int bands = samples.bands();
    // Grey is R = G = B, as ImageMagick reads it.
    if (bands <= 2) {
        const vips::VImage grey = samples[0];
        vips::VImage rgb = grey.bandjoin(grey).bandjoin(grey);
        samples = bands == 2 ? rgb.bandjoin(samples[1]) : rgb;
    }
    if (samples.bands() == 3) {
        samples = samples.bandjoin_const({kFullRange}).cast(VIPS_FORMAT_USHORT);
    }
    return samples;
}

using Sample = std::uint16_t;

// How ImageMagick's IsMagickColorSimilar tells a pixel from the corner's
// colour at a fuzz of `fuzz` (16-bit units): with no fuzz, by equal samples,
// any two fully transparent pixels being equal whatever colour they hide;
// else by the distance sqrt((dR^2 + dG^2 + dB^2) / 3), scaled by both
// alphas, on top of the alpha's own distance.
class Likeness {
  public:
    Likeness(const Sample* corner, double fuzz, bool alpha)
        : corner_(corner),
          exact_(fuzz <= 0.0),
          alpha_(alpha),
          limit_(std::pow(std::max(fuzz, kSmallestFuzz), 2)) {}

    bool Unlike(const Sample* p) const {
        if (exact_) {
            if (alpha_ && corner_[3] == 0) {
                return p[3] != 0;
            }
            return !std::equal(p, p + 4, corner_);
        }
        double distance = 0.0;
        double scale = 1.0;
        if (alpha_) {
            const double alpha = static_cast<double>(p[3]) - corner_[3];
            distance = alpha * alpha;
            if (distance > limit_) {
                return true;
            }
            scale = (p[3] / kFullRange) * (corner_[3] / kFullRange);
            if (scale <= kEpsilon) {
                return false;
            }
        }
        distance *= 3.0;
        for (int band = 0; band < 3; ++band) {
            const double d = static_cast<double>(p[band]) - corner_[band];
            distance += d * d * scale;
        }
        return distance > 3.0 * limit_;
    }

  private:
    static constexpr double kEpsilon = 1.0e-12;
    const Sample* corner_;
    bool exact_;
    bool alpha_;
    double limit_;
};

// A region's samples, read into memory (four a pixel, rows top first).
std::vector<Sample> SamplesOf(const vips::VImage& region) {
    std::size_t bytes = 0;
    void* memory = region.write_to_memory(&bytes);
    std::vector<Sample> values(bytes / sizeof(Sample));
    std::copy_n(static_cast<const Sample*>(memory), values.size(), values.begin());
    g_free(memory);
    return values;
}

// One side of the image, searched inward for the first column (or row)
// holding a pixel unlike the side's corner.
struct Side {
    bool columns;  // columns from the left or right, else rows
    bool fromEnd;  // from the right or the bottom
    int cornerX;
    int cornerY;
};

// Borders are usually narrow: strips from the side inward, each twice as
// deep as the last up to a bound, find the content after reading little of
// the image, and never more than all of it.
constexpr int kFirstStrip = 32;
constexpr int kDeepestStrip = 512;

// Whether any pixel of column (or row) `line` of a strip `columns` wide and
// `rows` high is unlike the corner.
bool LineUnlike(const std::vector<Sample>& strip, int columns, int rows, bool column, int line,
                const Likeness& likeness) {
    const int count = column ? rows : columns;
    for (int i = 0; i < count; ++i) {
        const std::size_t pixel = column ? static_cast<std::size_t>(i) * columns + line
                                         : static_cast<std::size_t>(line) * columns + i;
        if (likeness.Unlike(&strip[pixel * 4])) {
            return true;
        }
    }
    return false;
}

// The index (from the left or top) of the first column or row from the
// side's edge that holds a pixel unlike the corner; nothing when none does.
std::optional<int> FirstUnlike(const vips::VImage& samples, const Side& side, double fuzz,
                               bool alpha) {
    const std::vector<Sample> corner =
        SamplesOf(samples.extract_area(side.cornerX, side.cornerY, 1, 1));
    const Likeness likeness(corner.data(), fuzz, alpha);
    const int length = side.columns ? samples.width() : samples.height();
    int strip = kFirstStrip;
    for (int done = 0; done < length; done += strip, strip = std::min(2 * strip, kDeepestStrip)) {
        const int depth = std::min(strip, length - done);
        const int start = side.fromEnd ? length - done - depth : done;
        const int columns = side.columns ? depth : samples.width();
        const int rows = side.columns ? samples.height() : depth;
        const std::vector<Sample> area =
            SamplesOf(side.columns ? samples.extract_area(start, 0, columns, rows)
                                   : samples.extract_area(0, start, columns, rows));
        for (int i = 0; i < depth; ++i) {
            const int line = side.fromEnd ? depth - 1 - i : i;
            if (LineUnlike(area, columns, rows, side.columns, line, likeness)) {
                return start + line;
            }
        }
    }
    return std::nullopt;
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
        // As ImageMagick: the left and top edges against the top-left
        // corner, the right against the top-right, the bottom against the
        // bottom-left; the right and bottom edges never at index 0.
        const std::optional<int> left = FirstUnlike(samples, {true, false, 0, 0}, fuzz, alpha);
        const std::optional<int> top = FirstUnlike(samples, {false, false, 0, 0}, fuzz, alpha);
        const std::optional<int> right = FirstUnlike(samples, {true, true, W - 1, 0}, fuzz, alpha);
        const std::optional<int> bottom =
            FirstUnlike(samples, {false, true, 0, H - 1}, fuzz, alpha);
        if (!left || !top || !right || !bottom || *right <= 0 || *bottom <= 0 || *right < *left ||
            *bottom < *top) {
            return std::nullopt;
        }
        const int width = *right - *left + 1;
        const int height = *bottom - *top + 1;
        return Rect{static_cast<double>(*left), static_cast<double>(H - *top - height),
                    static_cast<double>(width), static_cast<double>(height)};
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

}  // namespace vellumo
