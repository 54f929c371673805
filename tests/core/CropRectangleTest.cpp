// The rule that turns the crop settings and an image into a rectangle.

#include <gtest/gtest.h>

#include "batch/CropRectangle.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::MakeSizedImage;

CropSettings Percents(float x, float y, float w, float h) {
    CropSettings s;
    s.mode = CropMode::Percents;
    s.percentsOriginX = x;
    s.percentsOriginY = y;
    s.percentsWidth = w;
    s.percentsHeight = h;
    return s;
}

TEST(ResolveCropRectangle, PercentsOfTheImagesSides) {
    EXPECT_EQ(ResolveCropRectangle(Percents(20, 20, 60, 60), MakeSizedImage(1000, 500)),
              (Rect{200, 100, 600, 300}));
}

TEST(ResolveCropRectangle, PercentsAboveOneHundredPassThrough) {
    EXPECT_EQ(ResolveCropRectangle(Percents(0, 0, 150, 100), MakeSizedImage(1000, 500)),
              (Rect{0, 0, 1500, 500}));
}

TEST(ResolveCropRectangle, PercentsAreComputedInSinglePrecision) {
    // 33.3 % of 1001: multiplied, then divided by 100, all in float.
    const Rect r = ResolveCropRectangle(Percents(33.3f, 0, 1, 1), MakeSizedImage(1001, 10));
    const float expected = 33.3f * 1001.0f / 100.0f;
    EXPECT_EQ(r.x, static_cast<double>(expected));
    EXPECT_NE(r.x, 33.3 * 1001.0 / 100.0);  // the double result differs
}

TEST(ResolveCropRectangle, DefaultPixelRectangleIsEmpty) {
    EXPECT_EQ(ResolveCropRectangle(CropSettings{}, MakeSizedImage(800, 600)), (Rect{0, 0, 0, 0}));
}

TEST(ResolveCropRectangle, PixelFieldsAreTakenAsTheyAre) {
    CropSettings s;
    s.pixelsOriginX = -10.5f;
    s.pixelsOriginY = 7.25f;
    s.pixelsWidth = 5000;
    s.pixelsHeight = 0.1f;
    EXPECT_EQ(ResolveCropRectangle(s, MakeSizedImage(800, 600)),
              (Rect{-10.5, 7.25, 5000, static_cast<double>(0.1f)}));
}

TEST(ResolveCropRectangle, AutoCropIgnoresTheFields) {
    CropSettings s = Percents(1, 2, 3, 4);
    s.mode = CropMode::Auto;
    s.autoCropRatio = RatioChoice::Ratio16x9;
    EXPECT_EQ(ResolveCropRectangle(s, MakeSizedImage(1000, 1000)), (Rect{0, 218.75, 1000, 562.5}));
}

TEST(ResolveCropRectangle, NoModeGivesTheEmptyRectangle) {
    CropSettings none = Percents(20, 20, 60, 60);
    none.mode = CropMode::None;
    EXPECT_EQ(ResolveCropRectangle(none, MakeSizedImage(100, 100)), (Rect{}));
}

// The window's two pairs of radio buttons, as the rule reads them: the first
// match wins.
TEST(CropModeOfRadios, FollowsTheRadioPairsInOrder) {
    EXPECT_EQ(CropModeOfRadios(true, false, false, true), CropMode::Auto);
    // Choosing the pixel radio while auto-crop is on changes only the
    // second level: still auto.
    EXPECT_EQ(CropModeOfRadios(true, false, true, false), CropMode::Auto);
    EXPECT_EQ(CropModeOfRadios(true, true, true, false), CropMode::Auto);
    EXPECT_EQ(CropModeOfRadios(false, false, true, false), CropMode::None);
    EXPECT_EQ(CropModeOfRadios(false, true, true, false), CropMode::Pixels);
    EXPECT_EQ(CropModeOfRadios(false, true, true, true), CropMode::Pixels);
    EXPECT_EQ(CropModeOfRadios(false, true, false, true), CropMode::Percents);
    EXPECT_EQ(CropModeOfRadios(false, true, false, false), CropMode::None);
}

}  // namespace
}  // namespace vellumo

namespace vellumo {
namespace {

CropSettings Pixels(float x, float y, float w, float h) {
    CropSettings s;
    s.pixelsOriginX = x;
    s.pixelsOriginY = y;
    s.pixelsWidth = w;
    s.pixelsHeight = h;
    return s;
}

TEST(ResolveCrop, ARectangleOnTheImageIsCutAsItIs) {
    const ResolvedCrop crop = ResolveCrop(Pixels(10, 20, 30.9f, 40), test::MakeSizedImage(100, 68));
    EXPECT_EQ(crop.extent, CropExtent::Inside);
    EXPECT_EQ(crop.outputSize, (Size{30, 40}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "");
}

TEST(ResolveCrop, ARectangleBeyondTheImageLeavesItWhole) {
    const ResolvedCrop crop =
        ResolveCrop(Pixels(100, 100, 300, 200), test::MakeSizedImage(100, 68));
    EXPECT_EQ(crop.extent, CropExtent::WholeOutside);
    EXPECT_EQ(crop.outputSize, (Size{100, 68}));
    EXPECT_EQ(crop.cut, (Rect{0, 0, 100, 68}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)),
              "Whole image: the rectangle lies outside this image");
}

TEST(ResolveCrop, TheEmptyDefaultRectangleLeavesTheImageWhole) {
    const ResolvedCrop crop = ResolveCrop(CropSettings{}, test::MakeSizedImage(640, 480));
    EXPECT_EQ(crop.extent, CropExtent::WholeEmpty);
    EXPECT_EQ(crop.outputSize, (Size{640, 480}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "Whole image: the rectangle is empty");
}

TEST(ResolveCrop, LessThanAPixelOnTheImageLeavesItWhole) {
    const ResolvedCrop crop = ResolveCrop(Pixels(99.5f, 0, 10, 10), test::MakeSizedImage(100, 68));
    EXPECT_EQ(crop.extent, CropExtent::WholeSliver);
    EXPECT_EQ(crop.outputSize, (Size{100, 68}));
}

TEST(ResolveCrop, APartlyOutsideRectangleIsClippedAndSaysToWhat) {
    const ResolvedCrop crop = ResolveCrop(Pixels(-20, 10, 100, 100), test::MakeSizedImage(100, 68));
    EXPECT_EQ(crop.extent, CropExtent::Clipped);
    EXPECT_EQ(crop.outputSize, (Size{80, 58}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "Clipped to 80 \u00d7 58");
}

TEST(ResolveCrop, NoUnitChosenLeavesTheImageWhole) {
    CropSettings s;
    s.mode = CropMode::None;
    const ResolvedCrop crop = ResolveCrop(s, test::MakeSizedImage(100, 68));
    EXPECT_EQ(crop.extent, CropExtent::WholeNoMode);
    EXPECT_EQ(crop.outputSize, (Size{100, 68}));
}

TEST(ResolveCrop, PaddingWithoutACropModeKeepsTheWholeImageWithoutAWarning) {
    CropSettings s;
    s.mode = CropMode::None;
    s.pad.on = true;
    s.pad.ratio = AspectRatio{1, 1};
    const ResolvedCrop crop = ResolveCrop(s, test::MakeSizedImage(100, 68));
    EXPECT_EQ(crop.extent, CropExtent::WholeNoMode);
    EXPECT_EQ(crop.outputSize, (Size{100, 100}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "");
}

TEST(ResolveCrop, AWholePercentRectangleOnAHugeImageIsNotClipped) {
    const ResolvedCrop crop =
        ResolveCrop(Percents(0, 0, 100, 100), test::MakeSizedImage(300007, 200003));
    EXPECT_EQ(crop.extent, CropExtent::Inside);
    EXPECT_EQ(crop.outputSize, (Size{300007, 200003}));
}

TEST(ResolveCrop, AutoCropIsAlwaysInside) {
    CropSettings s;
    s.mode = CropMode::Auto;
    s.autoCropRatio = RatioChoice::Ratio16x9;
    const ResolvedCrop crop = ResolveCrop(s, test::MakeSizedImage(1000, 1000));
    EXPECT_EQ(crop.extent, CropExtent::Inside);
    EXPECT_EQ(crop.outputSize, (Size{1000, 562}));
}

TEST(Notes, FirstPageAndJoining) {
    EXPECT_TRUE(FirstPageNote(1).empty());
    EXPECT_EQ(FirstPageNote(12).pattern, "first frame only (of %1)");
    EXPECT_EQ(FirstPageNote(12).English(), "first frame only (of 12)");
    Sentences notes;
    Append(notes, Sentence{"a", {}});
    Append(notes, Sentence{});
    EXPECT_EQ(EnglishLine(notes), "a");
    Append(notes, Sentences{Sentence{}, Sentence{"%1 × %2", {"3", "4"}}});
    EXPECT_EQ(EnglishLine(notes), "a; 3 × 4");
}

TEST(Notes, PatternsAreFilledInOnePass) {
    EXPECT_EQ(FillPattern("%2 of %1", {"a", "b"}), "b of a");
    // A value holding a placeholder stays as it is; a number without a value
    // stays as written.
    EXPECT_EQ(FillPattern("%1 and %2", {"%2", "x"}), "%2 and x");
    EXPECT_EQ(FillPattern("%1 at 100%3", {"5"}), "5 at 100%3");
    EXPECT_EQ(FillPattern("100%", {}), "100%");
}

}  // namespace
}  // namespace vellumo
