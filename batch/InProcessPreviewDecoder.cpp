#include "batch/PreviewDecoder.h"
#include "imaging/FaceDetection.h"
#include "imaging/ImageTools.h"
#include "imaging/Trim.h"

namespace vellumo {

PreviewResult PreviewDecoder::DecodeLooking(const std::string& path, int maxSide,
                                            const PreviewLooks& /*looks*/) {
    return Decode(path, maxSide);
}

PreviewResult PreviewDecoder::DecodeEmbedded(const std::string& /*path*/, int /*minSide*/) {
    return PreviewResult::Failure("the file has no embedded thumbnail");
}

PreviewResult InProcessPreviewDecoder::DecodeEmbedded(const std::string& path, int minSide) {
    return ImageTools::LoadEmbeddedThumbnail(path, minSide);
}

PreviewResult InProcessPreviewDecoder::Decode(const std::string& path, int maxSide) {
    return ImageTools::LoadPreview(path, maxSide);
}

// The faces are found on the picture itself, as the job finds them on the
// picture of the same size; the trim measures the full decoded image, as the
// job's trim does, so that the window's sizes are the ones written.
PreviewResult InProcessPreviewDecoder::DecodeLooking(const std::string& path, int maxSide,
                                                     const PreviewLooks& looks) {
    PreviewResult result = ImageTools::LoadPreview(path, maxSide);
    if (!result || looks == PreviewLooks{}) {
        return result;
    }
    Preview preview = *result;
    if (looks.faces) {
        preview.faces = FindFaces(preview.picture, preview.fullSize);
    }
    if (looks.trimTolerance) {
        const LoadResult image = ImageTools::LoadImage(path);
        if (!image) {
            return PreviewResult::Failure(image.reason(), image.stage());
        }
        preview.trim =
            TrimLook{*looks.trimTolerance, ImageTools::FindContent(*image, *looks.trimTolerance)};
    }
    return PreviewResult::Success(std::move(preview));
}

}  // namespace vellumo
