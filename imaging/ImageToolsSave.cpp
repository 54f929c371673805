// Encoding an image into one of the output formats, written atomically.

#include <cmath>

#include "imaging/AtomicFile.h"
#include "imaging/EncodeRender.h"
#include "imaging/Fatal.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/OutputCodec.h"
#include "imaging/VipsEncode.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// libvips counts pixels in `int`.
constexpr double kBeyondPixelLibrary = 2147483648.0;

}  // namespace

SaveResult ImageTools::TrySaveImage(const Image& image, const std::string& path, long format,
                                    double quality) {
    const double width = image.Width();
    const double height = image.Height();
    if (!std::isfinite(width) || !std::isfinite(height)) {
        return SaveResult::Failed("the image has no finite size");
    }
    if (width < 1.0 || height < 1.0) {
        return SaveResult::Failed("the image is smaller than one pixel");
    }
    const std::optional<OutputCodec> codec = OutputCodecForFormat(format);
    if (!codec) {
        return SaveResult::Failed("there is no output format " + std::to_string(format));
    }
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        // Only sizes beyond what the pixel library can hold come without
        // pixels; any other image of a whole pixel or more has them.
        if (width >= kBeyondPixelLibrary || height >= kBeyondPixelLibrary) {
            return SaveResult::Failed("the image is too large to write");
        }
        Fatal("an image of at least one whole pixel has no pixels");
    }

    vipsruntime::EnsureStarted();
    vips::VImage rendered;
    {
        vipsruntime::FailureScope scope;
        try {
            rendered = encoderender::ForCodec(*pixels, *codec);
        } catch (const vips::VError& error) {
            return SaveResult::Failed(scope.Reason(error));
        }
    }
    return atomicfile::Replace(path, [&](const std::string& tempPath) {
        return vipsencode::WriteFile(rendered, *codec, quality, tempPath);
    });
}

bool ImageTools::SaveImage(const Image& image, const std::string& path, long format,
                           double quality) {
    return TrySaveImage(image, path, format, quality).saved;
}

}  // namespace vellumo
