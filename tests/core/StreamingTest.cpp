// Cropping a region of a huge file never holds the whole decoded image, nor,
// for a stripped TIFF read once, the rows above the region.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "imaging/ImageTools.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

double PeakResidentMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}

// Writes a 20000 x 20000 RGB file (1.2 GB decoded, a few MB on disk) whose
// pixel at column x, row y (from the top) is (x & 255, y & 255,
// (x ^ y) & 255), strip by strip, never held. `kind` is "png" or "tif".
std::string WriteHugePattern(const test::TempDir& dir, const std::string& kind) {
    std::string path = dir.File("huge." + kind);
    const vips::VImage xy = vips::VImage::xyz(20000, 20000);
    const vips::VImage pattern =
        ((xy[0] & 255).bandjoin(xy[1] & 255).bandjoin((xy[0] ^ xy[1]) & 255))
            .cast(VIPS_FORMAT_UCHAR)
            .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    if (kind == "png") {
        pattern.pngsave(path.c_str(), vips::VImage::option()->set("compression", 1));
    } else {
        pattern.tiffsave(path.c_str(), vips::VImage::option()->set(
                                           "compression", VIPS_FOREIGN_TIFF_COMPRESSION_DEFLATE));
    }
    return path;
}

class Streaming : public ::testing::TestWithParam<const char*> {};

TEST_P(Streaming, CropOfA400MegapixelFileHoldsOnlyTheRegion) {
    test::TempDir dir;
    const std::string path = WriteHugePattern(dir, GetParam());
    const double before = PeakResidentMegabytes();

    const LoadResult loaded = ImageTools::LoadImage(path);
    ASSERT_TRUE(loaded) << loaded.reason();
    EXPECT_EQ(loaded->Width(), 20000);
    const Image cut = ImageTools::CropImage(*loaded, {9500, 9500, 1000, 1000});
    const vips::VImage held = test::PixelsOf(cut);
    ASSERT_EQ(held.width(), 1000);
    ASSERT_EQ(held.height(), 1000);
    // Top row of the region: 20000 - 9500 - 1000 = 9500.
    const std::vector<double> corner = held.getpoint(0, 0);
    EXPECT_EQ(corner[0], 9500 & 255);
    EXPECT_EQ(corner[1], 9500 & 255);

    const double grown = PeakResidentMegabytes() - before;
    EXPECT_LT(grown, 400.0) << "peak memory grew by " << grown << " MB";
}

INSTANTIATE_TEST_SUITE_P(PngAndTiff, Streaming, ::testing::Values("png", "tif"));

// The crop job reads a stripped TIFF once, by the strips its crop covers.
TEST(StreamingTiffStrips, ACropAtTheBottomOfAHugePageHoldsOnlyTheStripsItCovers) {
    test::TempDir dir;
    const std::string path = WriteHugePattern(dir, "tif");
    const double before = PeakResidentMegabytes();

    const LoadResult once = ImageTools::OpenImage(path);
    ASSERT_TRUE(once) << once.reason();
    // The lowest 1,000 rows: libvips' own decoder passes the 19,000 above.
    const vips::VImage cut = test::PixelsOf(ImageTools::CropImage(*once, {0, 0, 20000, 1000}));
    ASSERT_EQ(cut.height(), 1000);
    const std::vector<double> corner = cut.getpoint(5, 0);
    EXPECT_EQ(corner[0], 5);
    EXPECT_EQ(corner[1], 19000 & 255);

    const double grown = PeakResidentMegabytes() - before;
    EXPECT_LT(grown, 200.0) << "peak memory grew by " << grown << " MB";
}

}  // namespace
}  // namespace vellumo
