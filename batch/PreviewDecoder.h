#pragma once

#include <string>

#include "imaging/Preview.h"

namespace vellumo {

// Decodes the picture the window shows for a file (see
// ImageTools::LoadPreview). Never throws; a file that cannot be shown is a
// failure with a reason.
class PreviewDecoder {
  public:
    virtual ~PreviewDecoder() = default;
    virtual PreviewResult Decode(const std::string& path, int maxSide) = 0;
    // The same, with what `looks` asks for found too. A decoder that cannot
    // look answers the picture alone.
    virtual PreviewResult DecodeLooking(const std::string& path, int maxSide,
                                        const PreviewLooks& looks);
    // The small picture stored in the file, when it has one of at least
    // `minSide` (ImageTools::LoadEmbeddedThumbnail); else a failure. A
    // decoder that cannot read it always fails.
    virtual PreviewResult DecodeEmbedded(const std::string& path, int minSide);
};

// Decodes right here, in the calling thread.
class InProcessPreviewDecoder final : public PreviewDecoder {
  public:
    PreviewResult Decode(const std::string& path, int maxSide) override;
    PreviewResult DecodeLooking(const std::string& path, int maxSide,
                                const PreviewLooks& looks) override;
    PreviewResult DecodeEmbedded(const std::string& path, int minSide) override;
};

}  // namespace vellumo
