#include "imaging/TiffRgba.h"

#include <cstdint>
#include <memory>

#include "imaging/TiffHandle.h"

namespace vellumo::tiffrgba {

namespace {

// More pixels than this are left to fail: the whole page is held at four
// bytes a pixel (1 GB here), where the other decoders stream.
constexpr std::uint64_t kMostPixels = 1ull << 28;

}  // namespace

vips::VImage Read(const std::string& path, int page) {
    std::string error;
    const tiffhandle::Tiff tiff = tiffhandle::Open(path, &error);
    if (!tiff) {
        throw vips::VError("libtiff cannot open the file: " + error);
    }
    if (page > 0 && TIFFSetDirectory(tiff.get(), static_cast<tdir_t>(page)) == 0) {
        throw vips::VError("the TIFF file has no page " + std::to_string(page + 1));
    }
    char reason[1024] = {};
    if (TIFFRGBAImageOK(tiff.get(), reason) == 0) {
        throw vips::VError(std::string("libtiff: ") + reason);
    }
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height);
    const std::uint64_t pixels = static_cast<std::uint64_t>(width) * height;
    if (pixels == 0 || pixels > kMostPixels) {
        throw vips::VError("the TIFF page is too large for libtiff's RGBA reader");
    }
    // Handed to the image when decoded, freed here otherwise.
    const std::size_t bytes = pixels * sizeof(std::uint32_t);
    std::unique_ptr<void, decltype(&g_free)> raster(g_try_malloc(bytes), &g_free);
    if (!raster) {
        throw vips::VError("not enough memory for the TIFF page");
    }
    if (TIFFReadRGBAImageOriented(tiff.get(), width, height,
                                  static_cast<std::uint32_t*>(raster.get()), ORIENTATION_TOPLEFT,
                                  /*stop on error=*/1) == 0) {
        throw vips::VError("libtiff cannot decode the TIFF page: " + error);
    }
    std::uint16_t extraSamples = 0;
    std::uint16_t* kinds = nullptr;
    TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_EXTRASAMPLES, &extraSamples, &kinds);
    // Each pixel is R, G, B, A in memory order (libtiff packs ABGR into a
    // little-endian word); the alpha is opaque when the file has none.
    vips::VImage image =
        vips::VImage::new_from_memory_steal(raster.release(), bytes, static_cast<int>(width),
                                            static_cast<int>(height), 4, VIPS_FORMAT_UCHAR);
    if (extraSamples == 0) {
        image = image.extract_band(0, vips::VImage::option()->set("n", 3));
    }
    return image.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

}  // namespace vellumo::tiffrgba
