#include "imaging/EncodeRender.h"

#include <cstring>
#include <string>
#include <vector>

#include "imaging/PixelConvert.h"
#include "imaging/SourceTap.h"

namespace vellumo::encoderender {

namespace {

struct Needs {
    bool grey;   // the format stores one-channel grey
    bool alpha;  // the format stores an alpha channel
};

Needs NeedsOf(OutputCodec codec) {
    switch (codec) {
        case OutputCodec::Jpeg:
            return {true, false};
        case OutputCodec::Jpeg2000:
        case OutputCodec::Png:
        case OutputCodec::Tiff:
        case OutputCodec::JpegXl:
            return {true, true};
        case OutputCodec::Gif:
        case OutputCodec::Bmp:
        case OutputCodec::WebP:
        case OutputCodec::Avif:
        case OutputCodec::Heic:
            return {false, true};
    }
    return {false, false};
}

// As the pixel conversion counts bands: grey + alpha, RGB + alpha,
// CMYK + alpha.
bool HasAlpha(const vips::VImage& pixels) {
    const bool cmyk = pixels.interpretation() == VIPS_INTERPRETATION_CMYK;
    return pixels.bands() == 2 || (pixels.bands() == 4 && !cmyk) || (pixels.bands() == 5 && cmyk);
}

bool IsGrey(const vips::VImage& pixels, bool hasAlpha) {
    const VipsInterpretation interpretation = pixels.interpretation();
    return pixels.bands() - (hasAlpha ? 1 : 0) == 1 && interpretation != VIPS_INTERPRETATION_CMYK &&
           interpretation != VIPS_INTERPRETATION_LAB;
}

bool Stores16Bits(OutputCodec codec) {
    return codec == OutputCodec::Png || codec == OutputCodec::Tiff ||
           codec == OutputCodec::Jpeg2000 || codec == OutputCodec::JpegXl ||
           codec == OutputCodec::Avif;
}

// 16-bit samples of grey or RGB, which an output of 16 bits keeps as they
// are. CMYK, Lab and the like are converted, and go to 8 bits.
bool IsSixteenBitGreyOrRgb(const vips::VImage& pixels) {
    const VipsInterpretation interpretation = pixels.interpretation();
    return pixels.format() == VIPS_FORMAT_USHORT &&
           (interpretation == VIPS_INTERPRETATION_RGB16 ||
            interpretation == VIPS_INTERPRETATION_GREY16) &&
           pixels.bands() <= 4;
}

// The 16-bit samples unchanged, labelled as what they are; grey gets the
// colour channels only where the format has no grey.
vips::VImage Keep16(const vips::VImage& pixels, bool grey, bool hasAlpha) {
    vips::VImage out = pixels;
    const int colours = pixels.bands() - (hasAlpha ? 1 : 0);
    if (colours == 1 && !grey) {
        vips::VImage y = out.extract_band(0);
        vips::VImage rgb = y.bandjoin({y, y});
        out = hasAlpha ? rgb.bandjoin(out.extract_band(1)) : rgb;
    }
    return out.copy(vips::VImage::option()->set(
        "interpretation", grey ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_RGB16));
}

// 8-bit grey, with its alpha when it has one.
vips::VImage ToGrey8(const vips::VImage& pixels) {
    vips::VImage out = pixels;
    if (out.format() == VIPS_FORMAT_USHORT) {
        // 16-bit samples keep their top byte, alpha included.
        out = out.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_GREY16))
                  .colourspace(VIPS_INTERPRETATION_B_W);
    } else if (out.format() != VIPS_FORMAT_UCHAR) {
        out = out.cast(VIPS_FORMAT_UCHAR);
    }
    return out.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
}

// The colour space an ICC profile describes (bytes 16 to 19 of its header).
std::string ProfileColourSpace(const vips::VImage& pixels) {
    if (pixels.get_typeof(VIPS_META_ICC_NAME) == 0) {
        return {};
    }
    std::size_t size = 0;
    const void* data = pixels.get_blob(VIPS_META_ICC_NAME, &size);
    if (size < 20) {
        return {};
    }
    return std::string(static_cast<const char*>(data) + 16, 4);
}

// A copy whose only metadata is a profile matching its pixels (and the
// decoder's tap, which tells a damaged source from a failed write).
vips::VImage WithMatchingProfileOnly(const vips::VImage& pixels, bool grey) {
    const std::string space = ProfileColourSpace(pixels);
    const bool keepProfile = space == (grey ? "GRAY" : "RGB ");
    vips::VImage out = pixels.copy();
    gchar** fields = vips_image_get_fields(out.get_image());
    for (gchar** field = fields; *field != nullptr; ++field) {
        if ((keepProfile && std::strcmp(*field, VIPS_META_ICC_NAME) == 0) ||
            std::strcmp(*field, sourcetap::kTapField) == 0) {
            continue;
        }
        // The header's own fields (width, format, resolution...) are not
        // metadata and cannot be removed; the call leaves them alone.
        out.remove(*field);
    }
    g_strfreev(fields);
    return out;
}

}  // namespace

vips::VImage ForCodec(const vips::VImage& pixels, OutputCodec codec) {
    const Needs needs = NeedsOf(codec);
    const bool hasAlpha = HasAlpha(pixels);
    const bool grey = needs.grey && IsGrey(pixels, hasAlpha);
    if (Stores16Bits(codec) && IsSixteenBitGreyOrRgb(pixels)) {
        return WithMatchingProfileOnly(Keep16(pixels, grey, hasAlpha), grey);
    }
    vips::VImage out = grey ? ToGrey8(pixels) : pixelconvert::ToSrgb8(pixels, hasAlpha);
    if (hasAlpha && !needs.alpha) {
        const std::vector<double> white(grey ? 1 : 3, 255.0);
        out = out.flatten(vips::VImage::option()->set("background", white));
    }
    return WithMatchingProfileOnly(out, grey);
}

}  // namespace vellumo::encoderender
