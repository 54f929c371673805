// An integer crop of a lossless file is exactly ImageMagick's crop of the
// same region: every sample, at the file's own bit depth and channels.

#include <gtest/gtest.h>

#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

struct Region {
    int x, y, width, height;  // y from the bottom, as ImageTools measures
};

void ExpectCropMatchesMagick(const std::string& path, Region region) {
    const LoadResult loaded = ImageTools::LoadImage(path);
    ASSERT_TRUE(loaded) << path << ": " << loaded.reason();
    const int imageHeight = static_cast<int>(loaded->Height());
    const Image cut = ImageTools::CropImage(
        *loaded, {static_cast<double>(region.x), static_cast<double>(region.y),
                  static_cast<double>(region.width), static_cast<double>(region.height)});
    const vips::VImage pixels = test::PixelsOf(cut);
    ASSERT_EQ(pixels.width(), region.width) << path;
    ASSERT_EQ(pixels.height(), region.height) << path;

    static const char* const kMaps[] = {"", "gray", "graya", "rgb", "rgba"};
    ASSERT_GE(pixels.bands(), 1);
    ASSERT_LE(pixels.bands(), 4);
    const int depth = pixels.format() == VIPS_FORMAT_USHORT ? 16 : 8;
    ASSERT_TRUE(pixels.format() == VIPS_FORMAT_UCHAR || depth == 16) << path;
    const int top = imageHeight - region.y - region.height;
    const std::string crop = "-crop " + std::to_string(region.width) + "x" +
                             std::to_string(region.height) + "+" + std::to_string(region.x) + "+" +
                             std::to_string(top) + " +repage";
    const std::vector<unsigned char> magick =
        test::MagickPixels(path, crop, kMaps[pixels.bands()], depth);
    const std::vector<unsigned char> ours = test::RawBytes(pixels);
    ASSERT_EQ(ours.size(), magick.size()) << path << " (" << kMaps[pixels.bands()] << depth << ")";
    EXPECT_TRUE(ours == magick) << path << " differs from ImageMagick's crop";
}

class RealFileCrop : public ::testing::TestWithParam<const char*> {};

TEST_P(RealFileCrop, EqualsImageMagicksCrop) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string path = test::TestDataPath(GetParam());
    const test::MagickSize size = test::MagickIdentifySize(path);
    ASSERT_GT(size.width, 4) << path;
    // A region off every edge, with odd sizes.
    ExpectCropMatchesMagick(path, {1, 2, size.width / 2 + 1, size.height / 2 + 1});
    // The whole image.
    ExpectCropMatchesMagick(path, {0, 0, size.width, size.height});
}

INSTANTIATE_TEST_SUITE_P(
    LosslessFiles, RealFileCrop,
    ::testing::Values(
        // PNG: grey 1 and 8 bit, RGB, palette, grey+alpha 16, RGBA 16,
        // transparent colour, 16-bit RGB, interlaced RGBA.
        "png/basn0g01.png", "png/basn0g08.png", "png/basn2c08.png", "png/basn3p08.png",
        "png/basn4a16.png", "png/basn6a16.png", "png/tbrn2c08.png", "png/cs3n2c16.png",
        "png/photoshop-8x12-rgba32-interlaced.png", "png/oiio-logo-with-alpha.png",
        // TIFF: LZW RGB, 1-bit fax, RGBA, RGB. (Files with associated alpha
        // are left out: decoders round differently when they unpremultiply.)
        "tiff/quad-lzw.tif", "tiff/cramps.tif", "tiff/BSG1.tiff", "tiff/jello.tif",
        // BMP: 1, 4 and 8-bit palette, RLE, 16-bit, 24-bit, 32-bit with alpha.
        "bmp/pal1.bmp", "bmp/pal4.bmp", "bmp/pal8.bmp", "bmp/pal4rletrns.bmp",
        "bmp/rgb16-565pal.bmp", "bmp/rgb24lprof.bmp", "bmp/rgba32.bmp", "bmp/rgb32bf.bmp"),
    [](const auto& info) {
        std::string name = info.param;
        for (char& c : name) {
            if (!std::isalnum(static_cast<unsigned char>(c)))
                c = '_';
        }
        return name;
    });

TEST(GeneratedFileCrop, CoordinateImagesInEveryLosslessFormatMatch) {
    test::TempDir dir;
    const vips::VImage rgb = test::CoordinateImage(300, 200);
    const vips::VImage rgba =
        rgb.bandjoin((vips::VImage::xyz(300, 200)[0] & 255).cast(VIPS_FORMAT_UCHAR));
    rgb.pngsave(dir.File("rgb.png").c_str());
    rgba.pngsave(dir.File("rgba.png").c_str());
    rgb.tiffsave(dir.File("rgb.tif").c_str());
    rgba.tiffsave(dir.File("rgba.tif").c_str());
    rgb.cast(VIPS_FORMAT_USHORT)
        .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_RGB16))
        .pngsave(dir.File("rgb16.png").c_str());
    rgb.magicksave(dir.File("rgb.bmp").c_str(), vips::VImage::option()->set("format", "bmp3"));
    for (const char* name :
         {"rgb.png", "rgba.png", "rgb.tif", "rgba.tif", "rgb16.png", "rgb.bmp"}) {
        ExpectCropMatchesMagick(dir.File(name), {17, 23, 101, 77});
        ExpectCropMatchesMagick(dir.File(name), {0, 0, 300, 200});
    }
}

}  // namespace
}  // namespace vellumo
