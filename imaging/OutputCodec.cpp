#include "imaging/OutputCodec.h"

#include <cmath>

namespace vellumo {

std::optional<OutputCodec> OutputCodecForFormat(long format) {
    switch (format) {
        case 0:
        case 1:
        case 2:
            return OutputCodec::Jpeg;
        case 3:
        case 4:
            return OutputCodec::Jpeg2000;
        case 5:
            return OutputCodec::Png;
        case 6:
        case 7:
            return OutputCodec::Tiff;
        case 8:
            return OutputCodec::Gif;
        case 9:
            return OutputCodec::Bmp;
        default:
            return std::nullopt;
    }
}

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

}  // namespace vellumo
