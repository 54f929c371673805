#include "imaging/OutputCodec.h"

#include <cmath>

namespace vellumo {

int QualityFactor(double quality) {
    if (!(quality > 0.0)) {
        return 1;
    }
    if (quality >= 1.0) {
        return 100;
    }
    const long factor = std::lround(quality * 100.0);
    return factor < 1 ? 1 : static_cast<int>(factor);
}

bool Jpeg2000Lossless(double quality) {
    return quality >= 1.0;
}

bool LosslessAtFullQuality(OutputCodec codec) {
    return codec == OutputCodec::WebP || codec == OutputCodec::JpegXl;
}

bool EmbedsMetadataWhenEncoding(OutputCodec codec) {
    return codec == OutputCodec::Avif || codec == OutputCodec::Heic;
}

}  // namespace vellumo
