#include "imaging/SizeFitting.h"

#include <sys/stat.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "imaging/SourceTap.h"
#include "imaging/VipsEncode.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

std::string ByteCountText(std::uint64_t bytes) {
    return std::to_string(bytes) + " bytes";
}

namespace sizefitting {

namespace {

// Each step down keeps this much of each side.
constexpr double kScaleStep = 0.8;
// No picture is made smaller than this many pixels on its shorter side.
constexpr int kSmallestSide = 8;

struct Trial {
    int quality = 0;
    std::vector<unsigned char> bytes;
};

// The highest factor from 1 to `ceiling` whose encoding (with the profile
// put back) fits in `maxBytes`, by bisection; `fit` counts the encodings
// and keeps the smallest size reached.
std::optional<Trial> HighestFitting(const vips::VImage& rendered, OutputCodec codec, int ceiling,
                                    std::uint64_t maxBytes, SizeFit& fit) {
    const std::uint64_t profile = vipsencode::ProfileBytes(rendered, codec);
    std::optional<Trial> best;
    int low = 1;
    int high = ceiling;
    while (low <= high) {
        const int middle = low + (high - low + 1) / 2;
        Trial trial{middle, vipsencode::EncodeToMemory(rendered, codec, middle / 100.0)};
        ++fit.encodes;
        const std::uint64_t size = trial.bytes.size() + profile;
        fit.bytes = fit.bytes == 0 ? size : std::min(fit.bytes, size);
        if (size <= maxBytes) {
            best = std::move(trial);
            low = middle + 1;
        } else {
            high = middle - 1;
        }
    }
    return best;
}

std::string TooLarge(const ByteLimit& limit, const SizeFit& fit) {
    std::string reason = "does not fit in " + ByteCountText(limit.maxBytes) +
                         ": the smallest encoding reached was " + ByteCountText(fit.bytes) +
                         " (quality 1";
    if (fit.scale < 1.0) {
        reason += ", " + std::to_string(fit.width) + " × " + std::to_string(fit.height);
    }
    return reason + ")";
}

SaveResult WriteOtherCodec(const vips::VImage& rendered, OutputCodec codec, double quality,
                           const ByteLimit& limit, const std::string& path) {
    SaveResult written = vipsencode::WriteFile(rendered, codec, quality, path);
    struct stat status {};
    if (written.saved && ::stat(path.c_str(), &status) == 0 &&
        static_cast<std::uint64_t>(status.st_size) > limit.maxBytes) {
        return SaveResult::Failed(
            "the file would be " + ByteCountText(static_cast<std::uint64_t>(status.st_size)) +
                ", over the limit of " + ByteCountText(limit.maxBytes) +
                " (only JPEG, WebP, AVIF, HEIC and JPEG XL are fitted to a size)",
            FailureStage::Encode);
    }
    return written;
}

// Throws vips::VError.
SaveResult Fit(const vips::VImage& rendered, OutputCodec codec, double quality,
               const ByteLimit& limit, const std::string& path) {
    SizeFit fit;
    // Each try encodes the same pixels again: they are decoded once, into
    // memory (the source is read in one pass, top to bottom).
    const vips::VImage pixels = rendered.copy_memory();
    vips::VImage picture = pixels;
    const int ceiling = QualityFactor(quality);
    for (;;) {
        fit.width = picture.width();
        fit.height = picture.height();
        if (std::optional<Trial> best =
                HighestFitting(picture, codec, ceiling, limit.maxBytes, fit)) {
            fit.quality = best->quality;
            fit.bytes = best->bytes.size() + vipsencode::ProfileBytes(picture, codec);
            SaveResult written = vipsencode::WriteEncoded(picture, codec, best->bytes, path);
            written.fit = fit;
            return written;
        }
        const double next = fit.scale * kScaleStep;
        if (!limit.scaleDown || std::min(pixels.width(), pixels.height()) * next < kSmallestSide) {
            return SaveResult::Failed(TooLarge(limit, fit), FailureStage::Encode);
        }
        fit.scale = next;
        fit.bytes = 0;
        picture = pixels.resize(next);
    }
}

}  // namespace

SaveResult WriteFileWithin(const vips::VImage& rendered, OutputCodec codec, double quality,
                           const ByteLimit& limit, const std::string& path) {
    if (!vipsencode::EncodesIntoMemory(codec)) {
        return WriteOtherCodec(rendered, codec, quality, limit, path);
    }
    vipsruntime::FailureScope scope;
    try {
        return Fit(rendered, codec, quality, limit, path);
    } catch (const vips::VError& error) {
        // The pixels are decoded as they are encoded, as in WriteFile.
        if (sourcetap::DecoderFailed(rendered)) {
            return SaveResult::Failed(scope.Reason(error, sourcetap::DecoderWarning(rendered)),
                                      FailureStage::Decode);
        }
        return SaveResult::Failed(scope.Reason(error), FailureStage::Encode);
    }
}

}  // namespace sizefitting

}  // namespace vellumo
