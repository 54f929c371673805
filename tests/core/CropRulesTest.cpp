// The crop rules beyond the centre: any ratio, the orientation rule, nine
// anchors, smart placement and the output size. Numbers are exact; y is
// measured from the image's lower edge, so "top" is y = H - height.

#include <gtest/gtest.h>

#include <map>

#include "batch/CropRectangle.h"
#include "imaging/ImageTools.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

CropSettings Auto(RatioChoice ratio, bool match = true, CropAnchor anchor = CropAnchor::Centre) {
    CropSettings s;
    s.mode = CropMode::Auto;
    s.autoCropRatio = ratio;
    s.matchOrientation = match;
    s.anchor = anchor;
    return s;
}

CropSettings Custom(AspectRatio ratio, bool match, CropAnchor anchor = CropAnchor::Centre) {
    CropSettings s = Auto(RatioChoice::Custom, match, anchor);
    s.customRatio = ratio;
    return s;
}

// One image, one ratio: the rectangle's size, and the three places on each
// axis the anchors choose from (left, centre, right; bottom, centre, top).
struct AnchorCase {
    const char* name;
    Size image;
    CropSettings settings;
    Size rect;
    std::array<double, 3> xs;
    std::array<double, 3> ys;
};

// Which of the three places each anchor takes on each axis.
const std::map<CropAnchor, std::pair<int, int>> kPlaces = {
    {CropAnchor::Centre, {1, 1}},      {CropAnchor::Top, {1, 2}},
    {CropAnchor::Bottom, {1, 0}},      {CropAnchor::Left, {0, 1}},
    {CropAnchor::Right, {2, 1}},       {CropAnchor::TopLeft, {0, 2}},
    {CropAnchor::TopRight, {2, 2}},    {CropAnchor::BottomLeft, {0, 0}},
    {CropAnchor::BottomRight, {2, 0}},
};

TEST(CropRules, EachAnchorOnLandscapePortraitAndSquareInBothOrientationModes) {
    const AnchorCase cases[] = {
        // 16:9 turned to each image: the original four ratios' own arithmetic.
        {"landscape 16:9 matched",
         {1200, 800},
         Auto(RatioChoice::Ratio16x9),
         {1200, 675},
         {0, 0, 0},
         {0, 62.5, 125}},
        {"portrait 16:9 matched",
         {800, 1200},
         Auto(RatioChoice::Ratio16x9),
         {675, 1200},
         {0, 62.5, 125},
         {0, 0, 0}},
        {"square 16:9 matched",
         {1000, 1000},
         Auto(RatioChoice::Ratio16x9),
         {1000, 562.5},
         {0, 0, 0},
         {0, 218.75, 437.5}},
        // As given: 16:9 stays wide on the portrait image.
        {"landscape 16:9 as given",
         {1200, 800},
         Auto(RatioChoice::Ratio16x9, false),
         {1200, 675},
         {0, 0, 0},
         {0, 62.5, 125}},
        {"portrait 16:9 as given",
         {800, 1200},
         Auto(RatioChoice::Ratio16x9, false),
         {800, 450},
         {0, 0, 0},
         {0, 375, 750}},
        {"square 16:9 as given",
         {1000, 1000},
         Auto(RatioChoice::Ratio16x9, false),
         {1000, 562.5},
         {0, 0, 0},
         {0, 218.75, 437.5}},
        // A portrait ratio typed by the person: matched, it is turned on a
        // landscape image; as given, it stays tall everywhere.
        {"landscape 4:5 matched",
         {1200, 800},
         Custom({4, 5}, true),
         {1000, 800},
         {0, 100, 200},
         {0, 0, 0}},
        {"landscape 4:5 as given",
         {1200, 800},
         Custom({4, 5}, false),
         {640, 800},
         {0, 280, 560},
         {0, 0, 0}},
        {"portrait 4:5 matched",
         {800, 1200},
         Custom({4, 5}, true),
         {800, 1000},
         {0, 0, 0},
         {0, 100, 200}},
        {"portrait 4:5 as given",
         {800, 1200},
         Custom({4, 5}, false),
         {800, 1000},
         {0, 0, 0},
         {0, 100, 200}},
        {"square 4:5 matched",
         {1000, 1000},
         Custom({4, 5}, true),
         {1000, 800},
         {0, 0, 0},
         {0, 100, 200}},
        {"square 4:5 as given",
         {1000, 1000},
         Custom({4, 5}, false),
         {800, 1000},
         {0, 100, 200},
         {0, 0, 0}},
    };
    for (const AnchorCase& c : cases) {
        for (const auto& [anchor, place] : kPlaces) {
            CropSettings s = c.settings;
            s.anchor = anchor;
            const Rect rect = ResolveCropRectangle(s, Image::OfSize(c.image.width, c.image.height));
            const Rect expected{c.xs[place.first], c.ys[place.second], c.rect.width, c.rect.height};
            EXPECT_EQ(rect, expected) << c.name << ", " << CropAnchorName(anchor);
        }
    }
}

TEST(CropRules, TheFourRatiosCentredKeepTheirArithmeticToTheBit) {
    const Size sizes[] = {{4000, 3000}, {3000, 4000}, {1000, 1000}, {6000, 4000},  {1001, 999},
                          {333, 1777},  {1777, 333},  {2, 3},       {7919, 104729}};
    for (const Size size : sizes) {
        const Image image = Image::OfSize(size.width, size.height);
        for (const auto& [choice, classic] :
             {std::pair{RatioChoice::Ratio1x1, ClassicRatio::Square},
              std::pair{RatioChoice::Ratio4x3, ClassicRatio::FourThree},
              std::pair{RatioChoice::Ratio3x2, ClassicRatio::ThreeTwo},
              std::pair{RatioChoice::Ratio16x9, ClassicRatio::SixteenNine}}) {
            const Rect rule = ResolveCropRectangle(Auto(choice), image);
            const Rect original = ImageTools::AutoCropRectangle(image, classic);
            EXPECT_EQ(std::memcmp(&rule, &original, sizeof rule), 0)
                << size.width << " x " << size.height << " ratio " << PositionOfRatioChoice(choice);
        }
    }
}

TEST(CropRules, MoreRatiosFromTheList) {
    // "1.91:1" on a square: the full width, 1200 / 1.91 high, centred.
    const Rect link =
        ResolveCropRectangle(Auto(RatioChoice::Ratio1_91x1), Image::OfSize(1200, 1200));
    EXPECT_EQ(link.width, 1200.0);
    EXPECT_EQ(link.height, 1200.0 * 1.0 / 1.91);
    EXPECT_EQ(link.x, 0.0);
    EXPECT_EQ(link.y, (1200.0 - 1200.0 / 1.91) * 0.5);
    EXPECT_EQ(ResolveCrop(Auto(RatioChoice::Ratio1_91x1), Image::OfSize(1200, 1200)).outputSize,
              (Size{1200, 628}));
    EXPECT_EQ(ResolveCropRectangle(Auto(RatioChoice::Ratio5x4), Image::OfSize(6000, 4000)),
              (Rect{500, 0, 5000, 4000}));
    EXPECT_EQ(ResolveCropRectangle(Auto(RatioChoice::Ratio7x5), Image::OfSize(7000, 4000)),
              (Rect{700, 0, 5600, 4000}));
    EXPECT_EQ(ResolveCropRectangle(Auto(RatioChoice::Ratio2x1), Image::OfSize(3000, 4000)),
              (Rect{500, 0, 2000, 4000}));
    EXPECT_EQ(ResolveCropRectangle(Auto(RatioChoice::Ratio21x9), Image::OfSize(2100, 1800)),
              (Rect{0, 450, 2100, 900}));
    EXPECT_EQ(kAutoCropRatios[4].title, "5:4");
    EXPECT_EQ(kAutoCropRatios[8].title, "21:9");
}

TEST(CropRules, CustomFourToFiveMatchedOnALandscapePhotoIsFiveToFour) {
    const Image photo = Image::OfSize(6000, 4000);
    EXPECT_EQ(ResolveCropRectangle(Custom({4, 5}, true), photo), (Rect{500, 0, 5000, 4000}));
    EXPECT_EQ(ResolveCropRectangle(Custom({4, 5}, true, CropAnchor::Right), photo),
              (Rect{1000, 0, 5000, 4000}));
    EXPECT_EQ(ResolveCropRectangle(Custom({4, 5}, true, CropAnchor::TopLeft), photo),
              (Rect{0, 0, 5000, 4000}));
}

TEST(CropRules, NoRatioGivesNoRectangle) {
    EXPECT_EQ(ResolveCropRectangle(Custom({0, 5}, true), Image::OfSize(600, 400)), Rect{});
}

// The window's box lists the nine ratios, then "Custom…"; a position outside
// it is no choice.
TEST(RatioChoice, PositionsOfTheBoxRoundTripAndNothingOutsideIt) {
    for (long position = 0; position <= 9; ++position) {
        const std::optional<RatioChoice> choice = RatioChoiceAtPosition(position);
        ASSERT_TRUE(choice.has_value()) << position;
        EXPECT_EQ(PositionOfRatioChoice(*choice), position);
    }
    EXPECT_EQ(RatioChoiceAtPosition(9), RatioChoice::Custom);
    EXPECT_FALSE(RatioChoiceAtPosition(10).has_value());
    EXPECT_FALSE(RatioChoiceAtPosition(42).has_value());
    EXPECT_FALSE(RatioChoiceAtPosition(-1).has_value());
    for (const AutoCropRatio& entry : kAutoCropRatios) {
        EXPECT_EQ(ListedRatioTitled(entry.title), entry.choice) << entry.title;
        EXPECT_EQ(ListedRatio(entry.choice), &entry) << entry.title;
    }
    EXPECT_EQ(ListedRatio(RatioChoice::Custom), nullptr);
    EXPECT_FALSE(ListedRatioTitled("4:5").has_value());
    EXPECT_FALSE(ListedRatioTitled("custom").has_value());
}

CropSettings Resized(CropSettings s, ResizeMode mode, int width, int height, bool enlarge = false) {
    s.resize = {mode, width, height, enlarge};
    return s;
}

TEST(CropRules, OutputSizeAfterTheResize) {
    const Image photo = Image::OfSize(6000, 4000);
    const CropSettings square = Auto(RatioChoice::Ratio1x1);  // 4000 x 4000
    EXPECT_EQ(ResolveCrop(Resized(square, ResizeMode::Width, 1000, 0), photo).outputSize,
              (Size{1000, 1000}));
    EXPECT_EQ(ResolveCrop(Resized(Auto(RatioChoice::Ratio4x3), ResizeMode::Width, 1000, 0), photo)
                  .outputSize,
              (Size{1000, 750}));
    EXPECT_EQ(ResolveCrop(Resized(Auto(RatioChoice::Ratio4x3), ResizeMode::Height, 0, 999), photo)
                  .outputSize,
              (Size{1332, 999}));
    EXPECT_EQ(ResolveCrop(Resized(Auto(RatioChoice::Ratio16x9), ResizeMode::Fit, 1200, 1200), photo)
                  .outputSize,
              (Size{1200, 675}));
    // Exactly: the crop takes the target's ratio (never turned), then its
    // size.
    const ResolvedCrop exact =
        ResolveCrop(Resized(Auto(RatioChoice::Ratio16x9), ResizeMode::Exact, 1080, 1350), photo);
    EXPECT_EQ(exact.rect, (Rect{1400, 0, 3200, 4000}));
    EXPECT_EQ(exact.cutSize, (Size{3200, 4000}));
    EXPECT_EQ(exact.outputSize, (Size{1080, 1350}));
    // Never larger than the crop unless asked, and then it says so.
    const ResolvedCrop small = ResolveCrop(Resized(square, ResizeMode::Fit, 5000, 5000), photo);
    EXPECT_EQ(small.outputSize, (Size{4000, 4000}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(small)), "not enlarged: the crop is 4000 \u00d7 4000");
    EXPECT_EQ(ResolveCrop(Resized(square, ResizeMode::Fit, 5000, 5000, true), photo).outputSize,
              (Size{5000, 5000}));
    EXPECT_EQ(ResolveCrop(Resized(square, ResizeMode::Exact, 5000, 5000), photo).outputSize,
              (Size{4000, 4000}));
    EXPECT_EQ(ResolveCrop(Resized(square, ResizeMode::Exact, 5000, 5000, true), photo).outputSize,
              (Size{5000, 5000}));
    // A pixel rectangle resized exactly: its largest centred part of the
    // target's ratio.
    CropSettings pixels;
    pixels.mode = CropMode::Pixels;
    pixels.pixelsOriginX = 100;
    pixels.pixelsOriginY = 200;
    pixels.pixelsWidth = 2000;
    pixels.pixelsHeight = 1000;
    const ResolvedCrop cut = ResolveCrop(Resized(pixels, ResizeMode::Exact, 500, 500), photo);
    EXPECT_EQ(cut.cut, (Rect{600, 200, 1000, 1000}));
    EXPECT_EQ(cut.outputSize, (Size{500, 500}));
}

TEST(CropRules, ResizedSizeRoundsAndKeepsAtLeastAPixel) {
    EXPECT_EQ(ResizedSize({1000, 3}, {ResizeMode::Width, 100, 0, false}), (Size{100, 1}));
    EXPECT_EQ(ResizedSize({1000, 15}, {ResizeMode::Width, 100, 0, false}), (Size{100, 2}));
    EXPECT_EQ(ResizedSize({640, 480}, {ResizeMode::None, 1, 1, false}), (Size{640, 480}));
    EXPECT_EQ(ResizedSize({640, 480}, {ResizeMode::Height, 0, 480, false}), (Size{640, 480}));
}

TEST(CropRules, AnchorNames) {
    for (std::size_t i = 0; i < kCropAnchorNames.size(); ++i) {
        EXPECT_EQ(CropAnchorNamed(kCropAnchorNames[i]), static_cast<CropAnchor>(i));
    }
    EXPECT_EQ(CropAnchorNamed("center"), CropAnchor::Centre);
    EXPECT_EQ(CropAnchorNamed("middle"), std::nullopt);
}

TEST(CropRules, AttentionAndEntropyFindTheSubjectOffCentre) {
    test::TempDir dir;
    const std::string file = dir.File("subject.png");
    test::OffCentreSubject().pngsave(file.c_str());
    const PreviewResult picture = ImageTools::LoadPreview(file, kPlacementPictureSide);
    ASSERT_TRUE(picture) << picture.reason();
    const Image image = Image::OfSize(1200, 800);
    for (const CropAnchor anchor : {CropAnchor::Attention, CropAnchor::Entropy}) {
        const ResolvedCrop crop =
            ResolveCrop(Auto(RatioChoice::Ratio1x1, true, anchor), image, &picture->picture);
        EXPECT_TRUE(crop.placementNote.empty());
        // The 800 x 800 square holds the whole patch: it starts at or
        // right of column 350 (the centred square starts at 200).
        EXPECT_EQ(crop.rect.width, 800.0);
        EXPECT_GE(crop.rect.x, 350.0) << CropAnchorName(anchor);
        EXPECT_LE(crop.rect.x, 400.0) << CropAnchorName(anchor);
        EXPECT_EQ(crop.rect.y, 0.0);
    }
    // Tall crops move up or down the same way: a 2:1 strip over the patch.
    const ResolvedCrop strip =
        ResolveCrop(Custom({1200, 300}, false, CropAnchor::Attention), image, &picture->picture);
    const double topRow = 800 - strip.rect.y - strip.rect.height;
    EXPECT_LE(topRow, 300.0);
    EXPECT_GE(topRow + strip.rect.height, 500.0);
}

TEST(CropRules, ASmartAnchorWithoutAPictureIsCentredAndSaysSo) {
    const ResolvedCrop crop = ResolveCrop(Auto(RatioChoice::Ratio1x1, true, CropAnchor::Attention),
                                          Image::OfSize(1200, 800));
    EXPECT_EQ(crop.rect, (Rect{200, 0, 800, 800}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)),
              "attention placement could not be found; centred");
    EXPECT_TRUE(UsesPlacementPicture(Auto(RatioChoice::Ratio1x1, true, CropAnchor::Entropy)));
    EXPECT_FALSE(UsesPlacementPicture(Auto(RatioChoice::Ratio1x1, true, CropAnchor::Top)));
}

}  // namespace
}  // namespace vellumo
