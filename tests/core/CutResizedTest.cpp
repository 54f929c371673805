// A crop that is made smaller is decoded straight from the JPEG at a reduced
// scale, only under the cut: its pixels must stay as good as the full
// decode's, cut and resized with Lanczos3 (at least as good as
// `vips thumbnail` makes the same job, less 0.3 dB), and in the same place
// (within half an output pixel), for every orientation.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "imaging/ImageTools.h"
#include "imaging/JpegDecodePlan.h"
#include "tests/support/CutQuality.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ExpectAsGoodAsThumbnail;
using test::ExpectInPlace;
using test::ExpectOffCentreInPlace;
using test::OutputOf;
using test::TestDataPath;
using test::UprightSize;
using test::WriteFineDetail;

TEST(CutResizedTest, StoredBoxOfEveryOrientationHoldsTheUprightCut) {
    const vips::VImage stored = test::CoordinateImage(60, 40);
    const PixelBox upright{7, 5, 20, 13};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        vips::VImage tagged = stored.copy();
        tagged.set(VIPS_META_ORIENTATION, orientation);
        const vips::VImage turned = tagged.autorot();
        const Size uprightSize{static_cast<double>(turned.width()),
                               static_cast<double>(turned.height())};
        const PixelBox box = StoredBox(upright, uprightSize, orientation);
        vips::VImage cut = stored.extract_area(box.left, box.top, box.width, box.height).copy();
        cut.set(VIPS_META_ORIENTATION, orientation);
        const vips::VImage expected =
            turned.extract_area(upright.left, upright.top, upright.width, upright.height);
        EXPECT_EQ(test::RawBytes(cut.autorot()), test::RawBytes(expected))
            << "orientation " << orientation;
    }
}

TEST(CutResizedTest, ScaleIsTheSmallestThatLeavesTheResizeItsFactor) {
    // 4000 -> 1080: 3/8 leaves 1500, a reduction of 1.39; 2/8 would leave 1000.
    EXPECT_EQ(ScaleEighths({4000, 4000}, {1080, 1080}, 1.25), 3);
    EXPECT_EQ(ScaleEighths({4000, 4000}, {1080, 1080}, 1.5), 4);
    EXPECT_EQ(ScaleEighths({4000, 4000}, {1080, 1080}, 2.0), 5);
    EXPECT_EQ(ScaleEighths({6000, 3375}, {1920, 1080}, 1.25), 4);
    EXPECT_EQ(ScaleEighths({4000, 4000}, {300, 300}, 1.25), 1);
    EXPECT_EQ(ScaleEighths({1200, 1200}, {1080, 1080}, 1.25), 8);
}

TEST(CutResizedTest, DecodedBoxIsTheCutScaledExactly) {
    // A 6000 x 4000 photo stored sideways (orientation 6): the upright
    // picture is 4000 x 6000, and its centred square is rows 1000 to 5000
    // of it, which are columns 1000 to 5000 of the stored picture.
    const std::optional<JpegDecodePlan> plan =
        PlanJpegDecode({6000, 4000}, 6, {0, 1000, 4000, 4000}, {1080, 1080}, 1.25);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->eighths, 3);
    EXPECT_EQ(plan->stored, (PixelBox{1000, 0, 4000, 4000}));
    EXPECT_EQ(plan->decoded, (PixelBox{375, 0, 1500, 1500}));
    // Its lower-left 1000-pixel square: the last 1000 stored columns (the
    // upright bottom) of the last 1000 stored rows (the upright left); at 6/8.
    const std::optional<JpegDecodePlan> corner =
        PlanJpegDecode({6000, 4000}, 6, {0, 5000, 1000, 1000}, {300, 300}, 2.5);
    ASSERT_TRUE(corner);
    EXPECT_EQ(corner->eighths, 6);
    EXPECT_EQ(corner->stored, (PixelBox{5000, 3000, 1000, 1000}));
    EXPECT_EQ(corner->decoded, (PixelBox{3750, 2250, 750, 750}));
}

TEST(CutResizedTest, ScaleIsOneAtWhichTheCutsEdgesAreWholePixels) {
    // 1404 x 1004 from (240, 296) to 319 x 228: 5/8 is the least scale that
    // leaves a reduction of 2.5, but 1404 * 5 / 8 is 877.5; at 6/8 every
    // edge is whole.
    const std::optional<JpegDecodePlan> plan =
        PlanJpegDecode({2400, 1600}, 1, {240, 296, 1404, 1004}, {319, 228}, 2.5);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->eighths, 6);
    EXPECT_EQ(plan->decoded, (PixelBox{180, 222, 1053, 753}));
    // A left edge at an odd column is whole at no scale below 8/8: the cut
    // is decoded at full size, still only its rows and columns.
    const std::optional<JpegDecodePlan> odd =
        PlanJpegDecode({2400, 1600}, 1, {241, 296, 1404, 1004}, {319, 228}, 2.5);
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->eighths, 8);
    EXPECT_EQ(odd->decoded, (PixelBox{241, 296, 1404, 1004}));
    // Nor is a right edge at the last column of a side whose scaled size
    // libjpeg rounds up (2404 * 6 / 8 = 1803, 2402 * 6 / 8 = 1801.5).
    EXPECT_EQ(PlanJpegDecode({2404, 1600}, 1, {1000, 296, 1404, 1004}, {319, 228}, 2.5)->eighths,
              6);
    EXPECT_EQ(PlanJpegDecode({2402, 1600}, 1, {998, 296, 1404, 1004}, {319, 228}, 2.5)->eighths, 8);
}

TEST(CutResizedTest, PicturesTooSmallToGainHaveNoPlan) {
    // 999 x 1000 pixels: a cut whose edges are whole at every scale.
    EXPECT_FALSE(PlanJpegDecode({999, 1000}, 1, {0, 0, 800, 800}, {100, 100}, 2.5));
    EXPECT_TRUE(PlanJpegDecode({1000, 1000}, 1, {0, 0, 800, 800}, {100, 100}, 2.5));
}

class CutResizedPhotoTest : public ::testing::TestWithParam<std::string> {};

TEST_P(CutResizedPhotoTest, AsGoodAsThumbnailAndInPlace) {
    VELLUMO_REQUIRE_TESTDATA();
    ExpectAsGoodAsThumbnail(TestDataPath(GetParam()));
}

TEST_P(CutResizedPhotoTest, OffCentreCutAsGoodAsFullDecode) {
    VELLUMO_REQUIRE_TESTDATA();
    ExpectOffCentreInPlace(TestDataPath(GetParam()));
}

// The same cut with its edges moved to every fourth pixel, whole at 6/8:
// planned, and as good as the full decode.
TEST_P(CutResizedPhotoTest, OffCentreCutOnWholeScaledPixelsIsPlanned) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string path = TestDataPath(GetParam());
    const Size upright = UprightSize(path);
    const auto fourth = [](double side) { return std::floor(side / 4) * 4; };
    const Rect cut{fourth(upright.width * 0.1), fourth(upright.height * 0.35),
                   fourth(upright.width * 0.55), fourth(upright.height * 0.6)};
    EXPECT_TRUE(ExpectInPlace(path, cut, OutputOf(cut)));
}

INSTANTIATE_TEST_SUITE_P(
    RealPhotos, CutResizedPhotoTest,
    ::testing::Values("orientation/Landscape_1.jpg", "orientation/Landscape_2.jpg",
                      "orientation/Landscape_3.jpg", "orientation/Landscape_4.jpg",
                      "orientation/Landscape_5.jpg", "orientation/Landscape_6.jpg",
                      "orientation/Landscape_7.jpg", "orientation/Landscape_8.jpg",
                      "orientation/Portrait_6.jpg", "orientation/Apple iPhone 5.jpg",
                      "orientation/Canon PowerShot A85.jpg", "large/sky.jpg", "jpeg/jolla.jpg"));

// A 322 x 466 photo made 87 pixels wide is decoded whole: it is too small
// for a plan to gain anything, and at 6/8 (the least scale leaving 2.5) it
// lost 3.5 dB.
TEST(CutResizedTest, SmallPhotoIsDecodedWhole) {
    VELLUMO_REQUIRE_TESTDATA();
    ExpectAsGoodAsThumbnail(TestDataPath("jpeg/no_exif.jpg"), false);
    ExpectOffCentreInPlace(TestDataPath("jpeg/no_exif.jpg"));
}

class CutResizedDetailTest : public ::testing::TestWithParam<int> {};

TEST_P(CutResizedDetailTest, AsGoodAsThumbnailAndInPlace) {
    const test::TempDir dir;
    const std::string path = WriteFineDetail(dir, GetParam());
    ExpectAsGoodAsThumbnail(path);
}

INSTANTIATE_TEST_SUITE_P(EveryOrientation, CutResizedDetailTest, ::testing::Range(1, 9));

// An off-centre cut whose edges are whole only at a larger scale than the
// least (ScaleIsOneAtWhichTheCutsEdgesAreWholePixels): planned at 6/8, as
// good as the full decode and in its place.
TEST(CutResizedTest, OffCentreDetailIsPlannedAtAScaleWithWholeEdges) {
    const test::TempDir dir;
    const std::string path = WriteFineDetail(dir, 1);
    // Stored rows 296 to 1300 of 1600, counted from the bottom.
    const Rect cut{240, 1600 - 296 - 1004, 1404, 1004};
    EXPECT_TRUE(ExpectInPlace(path, cut, {319, 228}));
}

// The bound itself, measured: how close each minimum reduction left to the
// resize comes to the reference (printed; kMinResizeFactor is the least
// that stays within the allowance everywhere).
TEST(CutResizedTest, MinimumReductionMeasured) {
    VELLUMO_REQUIRE_TESTDATA();
    const test::TempDir dir;
    const std::vector<std::string> paths = {TestDataPath("large/sky.jpg"),
                                            TestDataPath("orientation/Landscape_1.jpg"),
                                            WriteFineDetail(dir, 1)};
    for (const std::string& path : paths) {
        test::PrintReductionsMeasured(path);
    }
}

TEST(CutResizedTest, FilesItCannotReadAreLeftToTheUsualDecode) {
    VELLUMO_REQUIRE_TESTDATA();
    // CMYK, and a PNG.
    EXPECT_FALSE(ImageTools::LoadCutResized(TestDataPath("jpeg/pil_sample_cmyk.jpg"),
                                            {0, 0, 60, 60}, {20, 20}));
    const test::TempDir dir;
    const std::string png = dir.File("a.png");
    test::PhotoLikeImage(200, 100).pngsave(png.c_str());
    EXPECT_FALSE(ImageTools::LoadCutResized(png, {0, 0, 100, 100}, {20, 20}));
}

TEST(CutResizedTest, TruncatedFileIsLeftToTheUsualDecode) {
    const test::TempDir dir;
    const std::string whole = dir.File("whole.jpg");
    test::PhotoLikeImage(1600, 1200).jpegsave(whole.c_str());
    std::string bytes;
    {
        FILE* f = std::fopen(whole.c_str(), "rb");
        ASSERT_NE(f, nullptr);
        char buffer[4096];
        std::size_t n = 0;
        while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0) {
            bytes.append(buffer, n);
        }
        std::fclose(f);
    }
    const std::string cut = dir.File("cut.jpg");
    FILE* f = std::fopen(cut.c_str(), "wb");
    ASSERT_NE(f, nullptr);
    std::fwrite(bytes.data(), 1, bytes.size() / 2, f);
    std::fclose(f);
    // The rows below the middle are missing: a crop that needs them fails
    // when its pixels are read.
    EXPECT_FALSE(test::ReadsWhole(ImageTools::LoadCutResized(cut, {0, 0, 1200, 1200}, {200, 200})));
    EXPECT_TRUE(
        test::ReadsWhole(ImageTools::LoadCutResized(whole, {0, 0, 1200, 1200}, {200, 200})));
    // The rows above the middle are there: a crop of them (its origin at the
    // lower-left corner, 400 pixels under the top) is read whole.
    EXPECT_TRUE(test::ReadsWhole(ImageTools::LoadCutResized(cut, {0, 800, 400, 400}, {100, 100})));
}

}  // namespace
}  // namespace vellumo
