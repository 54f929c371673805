// Auto-crop rectangles and cropped sizes, to the bit.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "batch/CropSettings.h"
#include "imaging/ImageTools.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::MakeSizedImage;

constexpr ClassicRatio k1x1 = ClassicRatio::Square, k4x3 = ClassicRatio::FourThree,
                       k3x2 = ClassicRatio::ThreeTwo, k16x9 = ClassicRatio::SixteenNine;

Rect AutoCrop(double w, double h, ClassicRatio ratio) {
    return ImageTools::AutoCropRectangle(MakeSizedImage(w, h), ratio);
}

Size Cropped(double W, double H, double x, double y, double w, double h) {
    return ImageTools::VisibleSize(MakeSizedImage(W, H), {x, y, w, h});
}

TEST(AutoCropRectangle, SixteenByNineOfASquareIsCentredAndUnrounded) {
    EXPECT_EQ(AutoCrop(1000, 1000, k16x9), (Rect{0, 218.75, 1000, 562.5}));
}

TEST(AutoCropRectangle, SquareImageIsLandscapeForFourByThree) {
    // T = 4H/3 > W, so the full width is kept and the height is 0.75 W.
    const double side = 999;
    const Rect r = AutoCrop(side, side, k4x3);
    EXPECT_EQ(r, (Rect{0, side * 0.5 - side * 0.375, side, 0.75 * side}));
}

TEST(AutoCropRectangle, TieTakesTheFullHeightBranch) {
    EXPECT_EQ(AutoCrop(4000, 3000, k4x3), (Rect{0, 0, 4000, 3000}));
}

TEST(AutoCropRectangle, PortraitTurnsTheRatio) {
    EXPECT_EQ(AutoCrop(3000, 4000, k4x3), (Rect{0, 0, 3000, 4000}));
    EXPECT_EQ(AutoCrop(600, 1000, k3x2), (Rect{0, 50, 600, 900}));
    EXPECT_EQ(AutoCrop(1080, 1920, k16x9), (Rect{0, 0, 1080, 1920}));
    EXPECT_EQ(AutoCrop(3000, 4000, k1x1), (Rect{0, 500, 3000, 3000}));
}

TEST(AutoCropRectangle, LandscapeCasesOfEveryRatio) {
    EXPECT_EQ(AutoCrop(1920, 1080, k16x9), (Rect{0, 0, 1920, 1080}));
    EXPECT_EQ(AutoCrop(1000, 600, k3x2), (Rect{50, 0, 900, 600}));
    EXPECT_EQ(AutoCrop(4000, 2000, k4x3),
              (Rect{4000 * 0.5 + 2000 * 4.0 / -6.0, 0, 2000 * 4.0 / 3.0, 2000}));
    EXPECT_EQ(AutoCrop(4000, 3000, k1x1), (Rect{500, 0, 3000, 3000}));
}

TEST(AutoCropRectangle, FractionalResultsFollowTheReferenceArithmetic) {
    // Values whose rounding depends on the order of the operations.
    volatile double W = 1001, H = 777;
    const Rect r43 = AutoCrop(W, H, k4x3);  // W < T: keeps the width
    EXPECT_EQ(r43.y, H * 0.5 + W * 3.0 * -0.125);
    EXPECT_EQ(r43.height, W * 3.0 * 0.25);
    volatile double H2 = 700;
    const Rect r43h = AutoCrop(W, H2, k4x3);  // W >= T: keeps the height
    EXPECT_EQ(r43h.x, W * 0.5 + H2 * 4.0 / -6.0);
    EXPECT_EQ(r43h.width, H2 * 4.0 / 3.0);
    const Rect r32 = AutoCrop(W, H, k3x2);  // W < T: keeps the width
    EXPECT_EQ(r32.y, H * 0.5 - W / 3.0);
    EXPECT_EQ(r32.height, (W + W) / 3.0);
    const Rect r169p = AutoCrop(H, W, k16x9);  // portrait, W >= T
    EXPECT_EQ(r169p.x, H * 0.5 + W * 9.0 * -0.03125);
    EXPECT_EQ(r169p.width, W * 9.0 * 0.0625);
    const Rect r32p = AutoCrop(777, 1300, k3x2);  // portrait, W < T
    EXPECT_EQ(r32p.x, 0);
    EXPECT_EQ(r32p.width, 777);
    EXPECT_EQ(r32p.y, 1300 * 0.5 + 777 * 3.0 * -0.25);
    EXPECT_EQ(r32p.height, 777 * 3.0 * 0.5);
}

TEST(AutoCropRectangle, NearlySquareCountsAsLandscapeByTheSinglePrecisionTest) {
    // W / H is below 1 in double precision but rounds to 1.0f.
    const double W = 100000000, H = 100000001;
    ASSERT_LT(W / H, 1.0);
    const Rect r = AutoCrop(W, H, k1x1);
    EXPECT_EQ(r, (Rect{-0.5, 0, H, H}));
    EXPECT_LT(r.x, 0.0);
}

// Only the four ratios have this arithmetic: no other choice of the list,
// nor Custom, names one of them.
TEST(AutoCropRectangle, OnlyTheFourRatiosHaveTheirOwnArithmetic) {
    EXPECT_EQ(ClassicRatioOf(RatioChoice::Ratio1x1), k1x1);
    EXPECT_EQ(ClassicRatioOf(RatioChoice::Ratio4x3), k4x3);
    EXPECT_EQ(ClassicRatioOf(RatioChoice::Ratio3x2), k3x2);
    EXPECT_EQ(ClassicRatioOf(RatioChoice::Ratio16x9), k16x9);
    for (const RatioChoice other :
         {RatioChoice::Ratio5x4, RatioChoice::Ratio7x5, RatioChoice::Ratio2x1,
          RatioChoice::Ratio1_91x1, RatioChoice::Ratio21x9, RatioChoice::Custom}) {
        EXPECT_FALSE(ClassicRatioOf(other).has_value()) << PositionOfRatioChoice(other);
    }
}

TEST(CroppedImageSize, ClipsAtTheLeftEdge) {
    EXPECT_EQ(Cropped(1000, 1000, -10, 20, 100, 50), (Size{90, 50}));
}

TEST(CroppedImageSize, ClipsAtTheRightAndTopEdges) {
    EXPECT_EQ(Cropped(1000, 1000, 950, 980, 100, 50), (Size{50, 20}));
}

TEST(CroppedImageSize, IsNotClampedAtZero) {
    EXPECT_EQ(Cropped(1000, 1000, 1200, 0, 100, 50), (Size{-200, 50}));
}

TEST(CroppedImageSize, ZeroHeightInsideTheImageStaysZero) {
    EXPECT_EQ(Cropped(1000, 1000, 10, 10, 100, 0), (Size{100, 0}));
}

TEST(CroppedImageSize, BothOriginsNegativeAndBothEndsOverflowing) {
    EXPECT_EQ(Cropped(1000, 500, -10, -20, 2000, 2000), (Size{1000, 500}));
    EXPECT_EQ(Cropped(1000, 500, -10, -20, 100, 50), (Size{90, 30}));
}

TEST(CroppedImageSize, WidthIsTheRightEndMinusTheLeftEnd) {
    // (x + w) - x, not w: these differ in the last bit.
    volatile double x = 0.1, w = 0.2;
    const Size s = Cropped(10, 10, x, 1, w, 1);
    EXPECT_EQ(s.width, (x + w) - x);
}

TEST(CroppedImageSize, NotANumberGivesZero) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Cropped(1000, 1000, nan, 0, 10, 10), (Size{0, 0}));
    EXPECT_EQ(Cropped(1000, 1000, 0, 0, nan, 10), (Size{0, 0}));
    EXPECT_EQ(Cropped(nan, 1000, 0, 0, 10, 10), (Size{0, 0}));
    EXPECT_EQ(Cropped(1000, nan, 0, 0, 10, 10), (Size{0, 0}));
}

TEST(CroppedImageSize, InsideTheImageIsTheRequest) {
    EXPECT_EQ(Cropped(1000, 500, 200, 100, 600, 300), (Size{600, 300}));
}

}  // namespace
}  // namespace vellumo
