#include "tests/support/TestImages.h"

#include <stdexcept>

#include "imaging/ImageAccess.h"
#include "imaging/VipsRuntime.h"

namespace vellumo::test {

vips::VImage CoordinateImage(int width, int height) {
    vipsruntime::EnsureStarted();
    const vips::VImage xy = vips::VImage::xyz(width, height);
    const vips::VImage x = xy[0];
    const vips::VImage y = xy[1];
    const vips::VImage r = x & 255;
    const vips::VImage g = y & 255;
    const vips::VImage b = ((x >> 8) & 15) | (((y >> 8) & 15) << 4);
    return r.bandjoin(g)
        .bandjoin(b)
        .cast(VIPS_FORMAT_UCHAR)
        .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB))
        .copy_memory();
}

Rgb CoordinatePixel(int x, int y) {
    return {static_cast<std::uint8_t>(x & 255), static_cast<std::uint8_t>(y & 255),
            static_cast<std::uint8_t>(((x >> 8) & 15) | (((y >> 8) & 15) << 4))};
}

vips::VImage PhotoLikeImage(int width, int height) {
    vipsruntime::EnsureStarted();
    const vips::VImage xy = vips::VImage::xyz(width, height);
    const vips::VImage fx = xy[0] / static_cast<double>(width);
    const vips::VImage fy = xy[1] / static_cast<double>(height);
    const vips::VImage noise =
        vips::VImage::gaussnoise(width, height, vips::VImage::option()->set("sigma", 12.0));
    const vips::VImage waves = ((xy[0] / 37.0).sin() + (xy[1] / 23.0).cos()) * 20.0;
    const vips::VImage r = fx * 180.0 + 40.0 + waves + noise;
    const vips::VImage g = fy * 160.0 + 50.0 - waves * 0.5 + noise;
    const vips::VImage b = (fx + fy) * 90.0 + 30.0 + noise * 0.5;
    return r.bandjoin(g)
        .bandjoin(b)
        .cast(VIPS_FORMAT_UCHAR)
        .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

Image MakeImage(const vips::VImage& pixels) {
    return ImageAccess::Make(pixels, pixels.width(), pixels.height());
}

Image MakeSizedImage(double width, double height) {
    return ImageAccess::MakeWithoutPixels(width, height);
}

vips::VImage OffCentreSubject() {
    vips::VImage background =
        vips::VImage::black(1200, 800, vips::VImage::option()->set("bands", 3)) + 90;
    vips::VImage noise = vips::VImage::gaussnoise(
        200, 200, vips::VImage::option()->set("sigma", 80)->set("mean", 128));
    vips::VImage patch = vips::VImage::bandjoin(
        {noise, noise.rot180() * 0.5 + 100, noise.flip(VIPS_DIRECTION_HORIZONTAL)});
    return background.insert(patch, 950, 300).cast(VIPS_FORMAT_UCHAR);
}

vips::VImage PixelsOf(const Image& image) {
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        throw std::runtime_error("the image has no pixels");
    }
    return pixels->copy_memory();
}

bool ReadsWhole(const std::optional<Image>& image) {
    if (!image) {
        return false;
    }
    try {
        PixelsOf(*image);
        return true;
    } catch (const vips::VError&) {
        return false;
    }
}

std::vector<unsigned char> RawBytes(const vips::VImage& image) {
    std::size_t size = 0;
    void* data = image.write_to_memory(&size);
    std::vector<unsigned char> bytes(static_cast<unsigned char*>(data),
                                     static_cast<unsigned char*>(data) + size);
    g_free(data);
    return bytes;
}

}  // namespace vellumo::test
