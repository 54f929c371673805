// Photos load upright, as every photo viewer shows them, and crops measure
// the upright picture.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::TestDataPath;

// The largest difference between two byte sequences of equal length.
int MaxDifference(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b) {
    int worst = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        worst = std::max(worst, std::abs(int(a[i]) - int(b[i])));
    }
    return worst;
}

class OrientationTest : public ::testing::TestWithParam<int> {};

TEST_P(OrientationTest, LoadsUprightLikeImageMagicksAutoOrient) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string path =
        TestDataPath("orientation/Landscape_" + std::to_string(GetParam()) + ".jpg");
    const LoadResult loaded = ImageTools::LoadImage(path);
    ASSERT_TRUE(loaded) << loaded.reason();
    // Every one of these files shows the same 1800 x 1200 landscape upright.
    EXPECT_EQ(loaded->Width(), 1800);
    EXPECT_EQ(loaded->Height(), 1200);

    const std::vector<unsigned char> ours = test::RawBytes(test::PixelsOf(*loaded));
    const std::vector<unsigned char> magick = test::MagickPixels(path, "-auto-orient", "rgb", 8);
    ASSERT_EQ(ours.size(), magick.size());
    // Both use libjpeg-turbo; allow for a different IDCT or upsampling.
    EXPECT_LE(MaxDifference(ours, magick), 3);
}

TEST_P(OrientationTest, CropOfAPixelRectangleCutsTheUprightRegion) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string path =
        TestDataPath("orientation/Landscape_" + std::to_string(GetParam()) + ".jpg");
    const LoadResult loaded = ImageTools::LoadImage(path);
    ASSERT_TRUE(loaded) << loaded.reason();
    // 400 x 300 whose lower-left corner is 100 right and 200 up from the
    // upright picture's lower-left corner: top row 1200 - 200 - 300 = 700.
    const Image cut = ImageTools::CropImage(*loaded, {100, 200, 400, 300});
    ASSERT_EQ(cut.Width(), 400);
    ASSERT_EQ(cut.Height(), 300);
    const std::vector<unsigned char> ours = test::RawBytes(test::PixelsOf(cut));
    const std::vector<unsigned char> magick =
        test::MagickPixels(path, "-auto-orient +repage -crop 400x300+100+700 +repage", "rgb", 8);
    ASSERT_EQ(ours.size(), magick.size());
    EXPECT_LE(MaxDifference(ours, magick), 3);
}

INSTANTIATE_TEST_SUITE_P(ExifOrientations, OrientationTest, ::testing::Range(0, 9),
                         [](const auto& info) {
                             return "Orientation" + std::to_string(info.param);
                         });

TEST(Orientation, PortraitPhotoIsTallAfterLoading) {
    VELLUMO_REQUIRE_TESTDATA();
    const LoadResult loaded = ImageTools::LoadImage(TestDataPath("orientation/Portrait_6.jpg"));
    ASSERT_TRUE(loaded) << loaded.reason();
    const test::MagickSize stored =
        test::MagickIdentifySize(TestDataPath("orientation/Portrait_6.jpg"));
    // Stored on its side, shown upright.
    EXPECT_EQ(loaded->Width(), stored.height);
    EXPECT_EQ(loaded->Height(), stored.width);
    EXPECT_LT(loaded->Width(), loaded->Height());
}

TEST(Orientation, TiffOrientationTagIsApplied) {
    VELLUMO_REQUIRE_TESTDATA();
    for (int orientation : {2, 4, 6, 8}) {
        const std::string path =
            TestDataPath("orientation/g4_orientation_" + std::to_string(orientation) + ".tif");
        const LoadResult loaded = ImageTools::LoadImage(path);
        ASSERT_TRUE(loaded) << loaded.reason();
        const std::vector<unsigned char> ours = test::RawBytes(test::PixelsOf(*loaded));
        const std::vector<unsigned char> magick =
            test::MagickPixels(path, "-auto-orient", "gray", 8);
        EXPECT_EQ(ours, magick) << path;
    }
}

}  // namespace
}  // namespace vellumo
