// Encoding an image into one of the output formats, written atomically.

#include <cmath>

#include "imaging/AtomicFile.h"
#include "imaging/EncodeRender.h"
#include "imaging/Fatal.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/MetadataCarry.h"
#include "imaging/OutputCodec.h"
#include "imaging/SizeFitting.h"
#include "imaging/SourceTap.h"
#include "imaging/VipsEncode.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// libvips counts pixels in `int`.
constexpr double kBeyondPixelLibrary = 2147483648.0;

}  // namespace

namespace {

// The metadata an encoder writes itself, put on the pixels it encodes; the
// orientation is the upright pixels'.
void PutEncoderMetadata(vips::VImage& rendered, const metadatacarry::EncoderMetadata& metadata) {
    if (!metadata.exif.empty()) {
        vips_image_set_blob_copy(rendered.get_image(), VIPS_META_EXIF_NAME, metadata.exif.data(),
                                 metadata.exif.size());
    }
    if (!metadata.xmp.empty()) {
        vips_image_set_blob_copy(rendered.get_image(), VIPS_META_XMP_NAME, metadata.xmp.data(),
                                 metadata.xmp.size());
    }
    rendered.set(VIPS_META_ORIENTATION, 1);
}

SaveResult Save(const Image& image, const std::string& path, OutputFormat format, double quality,
                const std::string* metadataSource, const ByteLimit& limit) {
    const double width = image.Width();
    const double height = image.Height();
    if (!std::isfinite(width) || !std::isfinite(height)) {
        return SaveResult::Failed("the image has no finite size", FailureStage::Encode);
    }
    if (width < 1.0 || height < 1.0) {
        return SaveResult::Failed("the image is smaller than one pixel", FailureStage::Encode);
    }
    const OutputCodec codec = InfoOf(format).codec;
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        // Only sizes beyond what the pixel library can hold come without
        // pixels; any other image of a whole pixel or more has them.
        if (width >= kBeyondPixelLibrary || height >= kBeyondPixelLibrary) {
            return SaveResult::Failed("the image is too large to write", FailureStage::Encode);
        }
        Fatal("an image of at least one whole pixel has no pixels");
    }

    vipsruntime::EnsureStarted();
    vips::VImage rendered;
    {
        vipsruntime::FailureScope scope;
        try {
            rendered = encoderender::ForCodec(*pixels, codec);
            if (metadataSource != nullptr && EmbedsMetadataWhenEncoding(codec)) {
                if (const auto metadata = metadatacarry::ForEncoder(
                        *metadataSource, rendered.width(), rendered.height())) {
                    PutEncoderMetadata(rendered, *metadata);
                }
            }
        } catch (const vips::VError& error) {
            // Preparing the encoder's pixels may read the source already.
            if (sourcetap::DecoderFailed(*pixels)) {
                return SaveResult::Failed(scope.Reason(error, sourcetap::DecoderWarning(*pixels)),
                                          FailureStage::Decode);
            }
            return SaveResult::Failed(scope.Reason(error), FailureStage::Encode);
        }
    }
    // Under a byte limit, nothing is written until an encoding fits; the
    // temporary file of a failed save is removed.
    std::optional<SizeFit> fit;
    SaveResult result = atomicfile::Replace(path, [&](const std::string& tempPath) {
        if (limit.maxBytes == 0) {
            return vipsencode::WriteFile(rendered, codec, quality, tempPath);
        }
        SaveResult written =
            sizefitting::WriteFileWithin(rendered, codec, quality, limit, tempPath);
        fit = written.fit;
        return written;
    });
    result.fit = fit;
    return result;
}

}  // namespace

SaveResult ImageTools::TrySaveImage(const Image& image, const std::string& path,
                                    OutputFormat format, double quality, const ByteLimit& limit) {
    return Save(image, path, format, quality, nullptr, limit);
}

SaveResult ImageTools::TrySaveImageWithMetadata(const Image& image, const std::string& path,
                                                OutputFormat format, double quality,
                                                const std::string& metadataSource,
                                                const ByteLimit& limit) {
    return Save(image, path, format, quality, &metadataSource, limit);
}

bool ImageTools::SaveImage(const Image& image, const std::string& path, OutputFormat format,
                           double quality) {
    return TrySaveImage(image, path, format, quality).saved;
}

}  // namespace vellumo
