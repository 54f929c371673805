#include "imaging/PixelConvert.h"

namespace vellumo::pixelconvert {

vips::VImage ToSrgb8(const vips::VImage& image, bool withAlpha) {
    vips::VImage out = image;
    const VipsInterpretation interpretation = out.interpretation();
    if (interpretation == VIPS_INTERPRETATION_CMYK) {
        // The embedded profile when there is one, else a generic CMYK one.
        out = out.icc_transform("srgb", vips::VImage::option()
                                            ->set("input_profile", "cmyk")
                                            ->set("embedded", true)
                                            ->set("depth", 8));
    } else if (interpretation == VIPS_INTERPRETATION_MULTIBAND && out.bands() <= 2) {
        out = out.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
    }
    if (out.interpretation() != VIPS_INTERPRETATION_sRGB || out.format() != VIPS_FORMAT_UCHAR) {
        out = out.colourspace(VIPS_INTERPRETATION_sRGB);
    }
    if (out.format() != VIPS_FORMAT_UCHAR) {
        out = out.cast(VIPS_FORMAT_UCHAR);
    }
    const bool hasAlpha = out.bands() == 4 || out.bands() == 2;
    if (out.bands() > 4) {
        out = out.extract_band(0, vips::VImage::option()->set("n", 4));
    }
    if (hasAlpha && !withAlpha) {
        out = out.extract_band(0, vips::VImage::option()->set("n", 3));
    } else if (!hasAlpha && withAlpha) {
        out = out.bandjoin_const({255.0});
    }
    return out.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

}  // namespace vellumo::pixelconvert
