#include "batch/PreviewDecoder.h"
#include "imaging/ImageTools.h"

namespace vellumo {

PreviewResult InProcessPreviewDecoder::Decode(const std::string& path, int maxSide) {
    return ImageTools::LoadPreview(path, maxSide);
}

}  // namespace vellumo
