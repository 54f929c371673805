// A crop of a WebP that is made smaller is decoded by libwebp cropped and
// scaled: as good as the full decode cut and resized (and as `vips
// thumbnail`), in the same place, for every orientation, with alpha, and
// left to the usual decode when libwebp cannot read the file this way.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "imaging/ImageTools.h"
#include "imaging/VipsRuntime.h"
#include "imaging/WebpDecodePlan.h"
#include "tests/support/CutQuality.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ExpectAsGoodAsThumbnail;
using test::ExpectInPlace;
using test::OutputOf;
using test::Planned;
using test::Psnr;
using test::Reference;
using test::UprightSize;
using test::WriteFineDetail;

TEST(WebpDecodePlanTest, EvenCutIsScaledToLeaveTheResizeItsFactor) {
    const std::optional<WebpDecodePlan> plan =
        PlanWebpDecode({6000, 4000}, 1, {1000, 0, 4000, 4000}, {1080, 1080}, 2.5);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->stored, (PixelBox{1000, 0, 4000, 4000}));
    EXPECT_EQ(plan->cropped, plan->stored);
    EXPECT_EQ(plan->scaledWidth, 2700);
    EXPECT_EQ(plan->scaledHeight, 2700);
    EXPECT_EQ(plan->kept, (PixelBox{0, 0, 2700, 2700}));
}

TEST(WebpDecodePlanTest, ScaledNoLargerThanTheCut) {
    const std::optional<WebpDecodePlan> plan =
        PlanWebpDecode({6000, 4000}, 1, {1000, 0, 4000, 4000}, {1800, 1000}, 2.5);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->scaledWidth, 4000);
    EXPECT_EQ(plan->scaledHeight, 2500);
}

// libwebp 1.2.4 moves an odd crop origin to the even one before it: the
// plan asks for the even one itself, at full size, and keeps the cut.
TEST(WebpDecodePlanTest, OddCutIsDecodedFromAnEvenOriginAtFullSize) {
    const std::optional<WebpDecodePlan> plan =
        PlanWebpDecode({6000, 4000}, 1, {1001, 3, 3999, 3990}, {1080, 1080}, 2.5);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->cropped, (PixelBox{1000, 2, 4000, 3991}));
    EXPECT_EQ(plan->scaledWidth, 4000);
    EXPECT_EQ(plan->scaledHeight, 3991);
    EXPECT_EQ(plan->kept, (PixelBox{1, 1, 3999, 3990}));
}

// A photo stored turned a quarter left (orientation 6): the upright cut is
// another band of the stored picture, and the output's sides swap.
TEST(WebpDecodePlanTest, SidewaysCutIsPlannedAsStored) {
    const std::optional<WebpDecodePlan> plan =
        PlanWebpDecode({4000, 6000}, 6, {1000, 0, 4000, 2000}, {1000, 500}, 2.0);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->stored, (PixelBox{0, 1000, 2000, 4000}));
    EXPECT_EQ(plan->scaledWidth, 1000);
    EXPECT_EQ(plan->scaledHeight, 2000);
}

TEST(WebpDecodePlanTest, PicturesTooSmallToGainHaveNoPlan) {
    EXPECT_FALSE(PlanWebpDecode({999, 1000}, 1, {0, 0, 900, 900}, {100, 100}));
}

class WebpCutResizedDetailTest : public ::testing::TestWithParam<int> {};

// Every orientation: the file records it (its upright size is turned for 5
// to 8), and the planned cut is as good as the full decode's and in place.
TEST_P(WebpCutResizedDetailTest, AsGoodAsThumbnailAndInPlace) {
    const test::TempDir dir;
    const std::string path = WriteFineDetail(dir, GetParam(), "webp");
    const Size upright = UprightSize(path);
    EXPECT_EQ(upright.width, GetParam() >= 5 ? 1600 : 2400);
    ExpectAsGoodAsThumbnail(path);
}

INSTANTIATE_TEST_SUITE_P(EveryOrientation, WebpCutResizedDetailTest, ::testing::Range(1, 9));

// A real photo written as WebP, and an off-centre cut of it at an odd
// origin, which is decoded at full size and cut after.
TEST(WebpCutResizedTest, RealPhotoAsGoodAsThumbnailAndOddCutInPlace) {
    VELLUMO_REQUIRE_TESTDATA();
    const test::TempDir dir;
    const std::string path = test::WriteWebpOf(dir, "large/sky.jpg", "sky.webp");
    ExpectAsGoodAsThumbnail(path);
    const Size upright = UprightSize(path);
    const Rect cut{std::floor(upright.width * 0.1) + 1, std::floor(upright.height * 0.35) + 1,
                   std::floor(upright.width * 0.55), std::floor(upright.height * 0.6)};
    EXPECT_TRUE(ExpectInPlace(path, cut, OutputOf(cut)));
}

TEST(WebpCutResizedTest, AlphaIsKept) {
    const test::TempDir dir;
    const std::string path = dir.File("alpha.webp");
    const vips::VImage rgb = test::PhotoLikeImage(1600, 1000);
    const vips::VImage alpha =
        (vips::VImage::xyz(1600, 1000)[0] / 1600.0 * 255.0).cast(VIPS_FORMAT_UCHAR);
    rgb.bandjoin(alpha).webpsave(path.c_str(), vips::VImage::option()->set("Q", 95));
    const Rect cut{300, 0, 1000, 1000};
    const vips::VImage planned = Planned(path, cut, {270, 270});
    const vips::VImage reference = Reference(path, cut, {270, 270});
    ASSERT_EQ(planned.bands(), 4);
    // The alpha ramp from 300 to 1300 of 1600 columns, averaged.
    EXPECT_NEAR(planned[3].avg(), reference[3].avg(), 0.5);
    EXPECT_NEAR(planned[3].avg(), 800.0 / 1600.0 * 255.0, 2.0);
    EXPECT_GE(Psnr(planned, reference), 40.0);
}

// The colour profile of the file goes with the picture, as libvips keeps it.
TEST(WebpCutResizedTest, ColourProfileIsKept) {
    vipsruntime::EnsureStarted();
    const test::TempDir dir;
    const std::string path = dir.File("profiled.webp");
    VipsBlob* profile = vips::VImage::profile_load("p3");
    std::size_t length = 0;
    const auto* bytes = static_cast<const unsigned char*>(vips_blob_get(profile, &length));
    const std::vector<unsigned char> expected(bytes, bytes + length);
    vips::VImage picture = test::PhotoLikeImage(1600, 1000).copy();
    vips_image_set_blob_copy(picture.get_image(), VIPS_META_ICC_NAME, bytes, length);
    picture.webpsave(path.c_str());
    const vips::VImage planned = Planned(path, {300, 0, 1000, 1000}, {270, 270});
    ASSERT_NE(planned.get_typeof(VIPS_META_ICC_NAME), 0u);
    std::size_t kept = 0;
    const auto* keptBytes =
        static_cast<const unsigned char*>(planned.get_blob(VIPS_META_ICC_NAME, &kept));
    EXPECT_EQ(std::vector<unsigned char>(keptBytes, keptBytes + kept), expected);
    vips_area_unref(VIPS_AREA(profile));
}

TEST(WebpCutResizedTest, FilesItCannotReadAreLeftToTheUsualDecode) {
    const test::TempDir dir;
    const std::string whole = dir.File("whole.webp");
    test::PhotoLikeImage(1600, 1200).webpsave(whole.c_str());
    ASSERT_TRUE(ImageTools::LoadCutResized(whole, {0, 0, 1200, 1200}, {200, 200}));
    // Truncated: libwebp refuses it whole.
    std::string reason;
    const std::string cut = dir.File("cut.webp");
    {
        FILE* in = std::fopen(whole.c_str(), "rb");
        ASSERT_NE(in, nullptr);
        std::vector<char> bytes(1 << 22);
        const std::size_t n = std::fread(bytes.data(), 1, bytes.size(), in);
        std::fclose(in);
        FILE* out = std::fopen(cut.c_str(), "wb");
        ASSERT_NE(out, nullptr);
        std::fwrite(bytes.data(), 1, n / 2, out);
        std::fclose(out);
    }
    EXPECT_FALSE(ImageTools::LoadCutResized(cut, {0, 0, 1200, 1200}, {200, 200}));
    // Animated: two frames one above the other.
    const std::string animated = dir.File("animated.webp");
    vips::VImage frames = test::PhotoLikeImage(1600, 2400).copy();
    frames.set("page-height", 1200);
    frames.webpsave(animated.c_str());
    EXPECT_FALSE(ImageTools::LoadCutResized(animated, {0, 0, 1200, 1200}, {200, 200}));
}

// The bound, measured for libwebp's scaling as for libjpeg's (printed).
TEST(WebpCutResizedTest, MinimumReductionMeasured) {
    VELLUMO_REQUIRE_TESTDATA();
    const test::TempDir dir;
    const std::string sky = test::WriteWebpOf(dir, "large/sky.jpg", "sky.webp");
    for (const std::string& path : {sky, WriteFineDetail(dir, 1, "webp")}) {
        test::PrintReductionsMeasured(path);
    }
}

}  // namespace
}  // namespace vellumo
