#include "imaging/WebpRegionDecode.h"

#include <webp/decode.h>

namespace vellumo::webpregion {

namespace {

// A picture of `width` x `height` pixels of `bands` bytes in memory, for
// libwebp to write into.
vips::VImage Canvas(int width, int height, int bands) {
    VipsImage* image = vips_image_new_memory();
    vips_image_init_fields(image, width, height, bands, VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
                           VIPS_INTERPRETATION_sRGB, 1.0, 1.0);
    if (vips_image_write_prepare(image) != 0) {
        g_object_unref(image);
        throw vips::VError();
    }
    return vips::VImage(image);
}

void Configure(WebPDecoderConfig& config, const WebpDecodePlan& plan, vips::VImage& canvas) {
    config.options.use_cropping = 1;
    config.options.crop_left = plan.cropped.left;
    config.options.crop_top = plan.cropped.top;
    config.options.crop_width = plan.cropped.width;
    config.options.crop_height = plan.cropped.height;
    if (plan.scaledWidth != plan.cropped.width || plan.scaledHeight != plan.cropped.height) {
        config.options.use_scaling = 1;
        config.options.scaled_width = plan.scaledWidth;
        config.options.scaled_height = plan.scaledHeight;
    }
    VipsImage* image = canvas.get_image();
    config.output.colorspace = canvas.bands() == 4 ? MODE_RGBA : MODE_RGB;
    config.output.is_external_memory = 1;
    config.output.u.RGBA.rgba = VIPS_IMAGE_ADDR(image, 0, 0);
    config.output.u.RGBA.stride = static_cast<int>(VIPS_IMAGE_SIZEOF_LINE(image));
    config.output.u.RGBA.size = static_cast<std::size_t>(VIPS_IMAGE_SIZEOF_IMAGE(image));
}

}  // namespace

std::optional<vips::VImage> Decode(const std::vector<unsigned char>& file, Size storedSize,
                                   const WebpDecodePlan& plan) {
    WebPDecoderConfig config;
    if (WebPInitDecoderConfig(&config) == 0 ||
        WebPGetFeatures(file.data(), file.size(), &config.input) != VP8_STATUS_OK) {
        return std::nullopt;
    }
    const WebPBitstreamFeatures& features = config.input;
    if (features.has_animation != 0 || features.width != static_cast<int>(storedSize.width) ||
        features.height != static_cast<int>(storedSize.height)) {
        return std::nullopt;
    }
    vips::VImage canvas = Canvas(plan.scaledWidth, plan.scaledHeight, features.has_alpha ? 4 : 3);
    Configure(config, plan, canvas);
    const VP8StatusCode status = WebPDecode(file.data(), file.size(), &config);
    WebPFreeDecBuffer(&config.output);  // external memory: frees nothing of the canvas
    if (status != VP8_STATUS_OK) {
        return std::nullopt;
    }
    if (plan.kept == PixelBox{0, 0, plan.scaledWidth, plan.scaledHeight}) {
        return canvas;
    }
    return canvas.extract_area(plan.kept.left, plan.kept.top, plan.kept.width, plan.kept.height);
}

}  // namespace vellumo::webpregion
