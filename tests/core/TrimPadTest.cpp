// Trimming uniform borders and padding instead of cutting, in the core:
// rectangles measured on drawn images and on scans, compared with
// ImageMagick's own -trim box; padded pixels compared with ImageMagick's
// -gravity ... -extent; the rule's sizes; the settings' round trip.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <optional>

#include "batch/CropPlan.h"
#include "batch/CropRectangle.h"
#include "batch/Profile.h"
#include "imaging/ImageTools.h"
#include "imaging/Padding.h"
#include "imaging/Trim.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::RunCommand;
using test::ShellQuote;

// ImageMagick's trim box for the file (first page) at `tolerance` percent,
// turned to a lower-left rectangle; nothing when it finds only background.
std::optional<Rect> MagickTrimBox(const std::string& path, double tolerance) {
    const test::CommandResult result =
        RunCommand("convert " + ShellQuote(path + "[0]") + " -fuzz " + std::to_string(tolerance) +
                   "% -format '%@ %h' info: 2>/dev/null");
    int w = 0, h = 0, x = 0, y = 0, rows = 0;
    EXPECT_EQ(std::sscanf(result.out.c_str(), "%dx%d+%d+%d %d", &w, &h, &x, &y, &rows), 5)
        << result.out;
    if (w == 0 || h == 0) {
        return std::nullopt;
    }
    return Rect{static_cast<double>(x), static_cast<double>(rows - y - h), static_cast<double>(w),
                static_cast<double>(h)};
}

Image Decoded(const std::string& path) {
    const LoadResult loaded = ImageTools::LoadImage(path);
    EXPECT_TRUE(loaded) << path << ": " << loaded.failure().reason;
    return loaded ? *loaded : Image();
}

void Draw(const std::string& path, const std::string& commands) {
    ASSERT_EQ(RunCommand("convert " + commands + " " + ShellQuote(path)).exitCode, 0) << commands;
}

class TrimTest : public ::testing::Test {
  protected:
    test::TempDir dir_;
    std::string Path(const std::string& name) const { return dir_.File(name); }

    // Our rectangle equals ImageMagick's at every tolerance given.
    void ExpectSameAsMagick(const std::string& path, std::initializer_list<double> tolerances) {
        const Image image = Decoded(path);
        for (const double tolerance : tolerances) {
            const std::optional<Rect> ours = ImageTools::FindContent(image, tolerance);
            const std::optional<Rect> theirs = MagickTrimBox(path, tolerance);
            ASSERT_EQ(ours.has_value(), theirs.has_value()) << path << " at " << tolerance << "%";
            if (ours) {
                EXPECT_EQ(*ours, *theirs)
                    << path << " at " << tolerance << "%: ours " << ours->x << "," << ours->y << " "
                    << ours->width << "x" << ours->height << ", ImageMagick's " << theirs->x << ","
                    << theirs->y << " " << theirs->width << "x" << theirs->height;
            }
        }
    }
};

TEST_F(TrimTest, WhiteBorderGivesTheDrawnRectangleExactly) {
    const std::string path = Path("white.png");
    Draw(path, "-size 200x120 xc:white -fill '#336699' -draw 'rectangle 30,10 149,99'");
    // Columns 30..149, rows 10..99 from the top: 120 x 90, lower edge 20 up.
    EXPECT_EQ(ImageTools::FindContent(Decoded(path), 0), (Rect{30, 20, 120, 90}));
    ExpectSameAsMagick(path, {0, 1, 10, 50});
}

TEST_F(TrimTest, BlackBorderAndNearBlackNoiseFollowTheTolerance) {
    const std::string path = Path("black.png");
    // A dark grey speck at the left: content at 0 %, background from 20 %.
    Draw(path,
         "-size 160x100 xc:black -fill '#202020' -draw 'point 3,50' -fill orange "
         "-draw 'rectangle 40,30 99,69'");
    EXPECT_EQ(ImageTools::FindContent(Decoded(path), 0), (Rect{3, 30, 97, 40}));
    EXPECT_EQ(ImageTools::FindContent(Decoded(path), 20), (Rect{40, 30, 60, 40}));
    ExpectSameAsMagick(path, {0, 5, 12, 12.5, 13, 20, 80});
}

TEST_F(TrimTest, TransparentBorderIsBackgroundWhateverItsHiddenColour) {
    const std::string path = Path("transparent.png");
    // Transparent pixels of two different hidden colours around a
    // half-transparent red square.
    Draw(path,
         "-size 120x80 xc:'rgba(0,0,255,0)' -fill 'rgba(0,255,0,0)' "
         "-draw 'rectangle 0,0 20,20' -fill 'rgba(255,0,0,0.5)' "
         "-draw 'rectangle 50,20 89,59'");
    ExpectSameAsMagick(path, {0, 1, 30, 60});
    EXPECT_EQ(ImageTools::FindContent(Decoded(path), 1), (Rect{50, 20, 40, 40}));
}

TEST_F(TrimTest, NoisyJpegBordersNeedTheTolerance) {
    const std::string path = Path("noisy.jpg");
    Draw(path,
         "-size 300x200 xc:'#f0f0f0' -attenuate 0.4 +noise Uniform -fill '#402010' "
         "-draw 'rectangle 80,50 219,149' -quality 85");
    ExpectSameAsMagick(path, {0, 5, 10, 15, 25});
    const std::optional<Rect> trimmed = ImageTools::FindContent(Decoded(path), 25);
    ASSERT_TRUE(trimmed);
    // JPEG's ringing reaches a few pixels past the drawn edges, no further.
    EXPECT_NEAR(trimmed->width, 140, 8);
    EXPECT_NEAR(trimmed->height, 100, 8);
}

TEST_F(TrimTest, SixteenBitAndGreyImagesCompareAsImageMagickDoes) {
    const std::string grey = Path("grey.png");
    Draw(grey,
         "-size 90x70 xc:'gray(200)' -fill 'gray(180)' -draw 'rectangle 20,10 59,49' "
         "-colorspace Gray");
    ExpectSameAsMagick(grey, {0, 5, 7.5, 8, 20});
    const std::string deep = Path("deep.png");
    Draw(deep,
         "-size 90x70 xc:'rgb(50%,50%,50%)' -fill 'rgb(50.2%,50%,50%)' "
         "-draw 'rectangle 20,10 59,49' -depth 16");
    ExpectSameAsMagick(deep, {0, 0.1, 1});
}

TEST_F(TrimTest, AllBackgroundFindsNothing) {
    const std::string path = Path("plain.png");
    Draw(path, "-size 50x40 xc:'#abcdef'");
    EXPECT_FALSE(ImageTools::FindContent(Decoded(path), 0));
    ExpectSameAsMagick(path, {0});
}

TEST_F(TrimTest, ScansOfTheSharedTestDataAgreeWithImageMagick) {
    VELLUMO_REQUIRE_TESTDATA();
    for (const char* scan :
         {"tiff/Epson PerfectionV800.tiff", "tiff/cramps.tif", "tiff/pport_g4.tif"}) {
        ExpectSameAsMagick(test::TestDataPath(scan), {0, 10, 30});
    }
}

TEST(TrimMargin, WidensAndStaysOnTheImage) {
    EXPECT_EQ(WidenedByMargin({30, 20, 120, 90}, {200, 120}, 5), (Rect{25, 15, 130, 100}));
    EXPECT_EQ(WidenedByMargin({30, 20, 120, 90}, {200, 120}, 25), (Rect{5, 0, 170, 120}));
    EXPECT_EQ(WidenedByMargin({30, 20, 120, 90}, {200, 120}, 0), (Rect{30, 20, 120, 90}));
}

CropSettings Trimming(CropMode mode, int margin = 0) {
    CropSettings s;
    s.mode = mode;
    s.trim.on = true;
    s.trim.margin = margin;
    return s;
}

TEST(TrimRule, CutsTheContentWithItsMarginAndWarnsWhenAllIsBackground) {
    const Image image = Image::OfSize(200, 120);
    const TrimFinding found{Rect{30, 20, 120, 90}};
    const ResolvedCrop crop =
        ResolveCrop(Trimming(CropMode::None, 4), image, nullptr, std::nullopt, &found);
    EXPECT_EQ(crop.cut, (Rect{26, 16, 128, 98}));
    EXPECT_EQ(crop.outputSize, (Size{128, 98}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(crop)), "");

    const TrimFinding nothing{std::nullopt};
    const ResolvedCrop whole =
        ResolveCrop(Trimming(CropMode::None), image, nullptr, std::nullopt, &nothing);
    EXPECT_EQ(whole.extent, CropExtent::WholeBackground);
    EXPECT_EQ(whole.cut, (Rect{0, 0, 200, 120}));
    EXPECT_EQ(EnglishLine(CropExtentNotes(whole)), "Whole image: nothing but background to trim");
}

TEST(TrimRule, TheRatioIsTakenWithinWhatTheTrimLeaves) {
    CropSettings s = Trimming(CropMode::Auto);
    s.autoCropRatio = RatioChoice::Ratio1x1;
    const TrimFinding found{Rect{30, 20, 120, 90}};
    const ResolvedCrop centred =
        ResolveCrop(s, Image::OfSize(200, 120), nullptr, std::nullopt, &found);
    EXPECT_EQ(centred.cut, (Rect{45, 20, 90, 90}));
    s.anchor = CropAnchor::Right;
    EXPECT_EQ(ResolveCrop(s, Image::OfSize(200, 120), nullptr, std::nullopt, &found).cut,
              (Rect{60, 20, 90, 90}));
    s.resize = {ResizeMode::Width, 45, 0, false};
    EXPECT_EQ(ResolveCrop(s, Image::OfSize(200, 120), nullptr, std::nullopt, &found).outputSize,
              (Size{45, 45}));
}

TEST(PadLayout, SmallestCanvasOfTheRatioAndTheAnchorsPlaces) {
    EXPECT_EQ(PadLayoutFor({51, 30}, {1, 1}, CropAnchor::Centre),
              (PadLayout{{51, 51}, {0, 11, 51, 30}}));  // 25 - 15 = 10 rows above
    EXPECT_EQ(PadLayoutFor({30, 51}, {1, 1}, CropAnchor::Centre),
              (PadLayout{{51, 51}, {10, 0, 30, 51}}));
    EXPECT_EQ(PadLayoutFor({100, 100}, {16, 9}, CropAnchor::Left),
              (PadLayout{{178, 100}, {0, 0, 100, 100}}));
    EXPECT_EQ(PadLayoutFor({100, 100}, {16, 9}, CropAnchor::BottomRight),
              (PadLayout{{178, 100}, {78, 0, 100, 100}}));
    EXPECT_EQ(PadLayoutFor({100, 50}, {2, 1}, CropAnchor::Top).canvas, (Size{100, 50}));
}

TEST(PadRule, OutputSizeIsTheCanvasResizedAndExactlyTheTargetWhenExact) {
    CropSettings s;
    s.mode = CropMode::None;
    s.pad.on = true;
    s.pad.ratio = {1, 1};
    const ResolvedCrop crop = ResolveCrop(s, Image::OfSize(300, 200));
    ASSERT_TRUE(crop.pad);
    EXPECT_EQ(crop.outputSize, (Size{300, 300}));
    s.resize = {ResizeMode::Exact, 640, 480, true};
    const ResolvedCrop exact = ResolveCrop(s, Image::OfSize(300, 200));
    EXPECT_EQ(exact.pad->canvas, (Size{300, 225}));
    EXPECT_EQ(exact.outputSize, (Size{640, 480}));
    EXPECT_EQ(exact.cut, (Rect{0, 0, 300, 200}));  // nothing is cut away
}

std::vector<unsigned char> RgbOf(const Image& image) {
    vips::VImage pixels = test::PixelsOf(image);
    return test::RawBytes(
        pixels.bands() > 3 ? pixels.extract_band(0, vips::VImage::option()->set("n", 3)) : pixels);
}

TEST_F(TrimTest, PaddedPixelsEqualImageMagicksExtentForEveryAnchor) {
    const std::string path = Path("picture.png");
    Draw(path, "-size 51x30 gradient:'#ff8000-#0040c0' -fill white -draw 'point 0,0' -depth 8");
    const Image image = Decoded(path);
    const std::pair<CropAnchor, const char*> gravities[] = {
        {CropAnchor::Centre, "center"},        {CropAnchor::Top, "north"},
        {CropAnchor::Bottom, "south"},         {CropAnchor::Left, "west"},
        {CropAnchor::Right, "east"},           {CropAnchor::TopLeft, "northwest"},
        {CropAnchor::TopRight, "northeast"},   {CropAnchor::BottomLeft, "southwest"},
        {CropAnchor::BottomRight, "southeast"}};
    PadRule rule;
    rule.on = true;
    rule.colour = *ColourNamed("#204060");
    for (const AspectRatio ratio : {AspectRatio{1, 1}, AspectRatio{3, 1}}) {
        for (const auto& [anchor, gravity] : gravities) {
            const PadLayout layout = PadLayoutFor({51, 30}, ratio, anchor);
            const Image padded = ImageTools::PadImage(image, layout, rule);
            const std::string size = std::to_string(static_cast<int>(layout.canvas.width)) + "x" +
                                     std::to_string(static_cast<int>(layout.canvas.height));
            const std::vector<unsigned char> theirs = test::MagickPixels(
                path, "-gravity " + std::string(gravity) + " -background '#204060' -extent " + size,
                "rgb", 8);
            EXPECT_EQ(RgbOf(padded), theirs) << gravity << " " << size;
        }
    }
}

// The mean colour of the rows above and below a picture padded to 1:1.
std::array<double, 3> MeanOfPadding(const Image& padded, int pictureRows) {
    const vips::VImage pixels = test::PixelsOf(padded);
    const int band = (pixels.height() - pictureRows) / 2;
    const vips::VImage top = pixels.extract_area(0, 0, pixels.width(), band);
    const vips::VImage bottom =
        pixels.extract_area(0, pixels.height() - band, pixels.width(), band);
    std::array<double, 3> mean{};
    for (int b = 0; b < 3; ++b) {
        mean[b] = (top[b].avg() + bottom[b].avg()) / 2;
    }
    return mean;
}

TEST_F(TrimTest, BlurFillIsOfTheImageNotTheFillColour) {
    const std::string path = Path("sky.png");
    // Sky blue above, grass green below: the padding over and under the
    // picture must take those colours.
    Draw(path,
         "-size 300x100 xc:'#3070e0' -fill '#30a040' -draw 'rectangle 0,50 299,99' "
         "-fill white -draw 'circle 150,50 170,60' -depth 8");
    PadRule rule;
    rule.on = true;
    rule.background = PadBackground::Blur;
    rule.colour = {255, 0, 255};
    const PadLayout layout = PadLayoutFor({300, 100}, {1, 1}, CropAnchor::Centre);
    const Image padded = ImageTools::PadImage(Decoded(path), layout, rule);
    const vips::VImage pixels = test::PixelsOf(padded);
    ASSERT_EQ(pixels.width(), 300);
    ASSERT_EQ(pixels.height(), 300);
    const vips::VImage above = pixels.extract_area(0, 0, 300, 100);
    const vips::VImage below = pixels.extract_area(0, 200, 300, 100);
    EXPECT_NEAR(above[0].avg(), 0x30, 20);
    EXPECT_NEAR(above[2].avg(), 0xe0, 30);
    EXPECT_NEAR(below[1].avg(), 0xa0, 30);
    EXPECT_NEAR(below[2].avg(), 0x40, 30);
    const std::array<double, 3> mean = MeanOfPadding(padded, 100);
    EXPECT_LT(mean[0], 128) << "the magenta fill colour was used";
    // The picture itself is untouched.
    EXPECT_EQ(test::RawBytes(pixels.extract_area(0, 100, 300, 100)),
              test::RawBytes(test::PixelsOf(Decoded(path))));
}

TEST_F(TrimTest, EdgeAndTransparentFills) {
    const std::string path = Path("edge.png");
    Draw(path, "-size 40x20 xc:red -fill blue -draw 'rectangle 0,0 39,0' -depth 8");
    PadRule rule;
    rule.on = true;
    rule.background = PadBackground::Edge;
    const PadLayout layout = PadLayoutFor({40, 20}, {1, 1}, CropAnchor::Centre);
    const vips::VImage edge = test::PixelsOf(ImageTools::PadImage(Decoded(path), layout, rule));
    EXPECT_EQ(edge.getpoint(5, 0), (std::vector<double>{0, 0, 255}));   // the top row repeated
    EXPECT_EQ(edge.getpoint(5, 39), (std::vector<double>{255, 0, 0}));  // the bottom row
    rule.background = PadBackground::Transparent;
    const vips::VImage clear = test::PixelsOf(ImageTools::PadImage(Decoded(path), layout, rule));
    ASSERT_EQ(clear.bands(), 4);
    EXPECT_EQ(clear.getpoint(5, 0)[3], 0);
    EXPECT_EQ(clear.getpoint(5, 20)[3], 255);
}

TEST(PadColours, NamesHexAndTheFillsReadBack) {
    EXPECT_EQ(ColourNamed("White"), (RgbColour{255, 255, 255}));
    EXPECT_EQ(ColourNamed("#0a0"), (RgbColour{0, 170, 0}));
    EXPECT_EQ(ColourNamed("#102030"), (RgbColour{16, 32, 48}));
    EXPECT_FALSE(ColourNamed("#12345"));
    EXPECT_FALSE(ColourNamed("blurple"));
    PadRule rule;
    EXPECT_TRUE(ReadPadBackground("blur", rule));
    EXPECT_EQ(rule.background, PadBackground::Blur);
    EXPECT_EQ(PadBackgroundText(rule), "blur");
    EXPECT_TRUE(ReadPadBackground("grey", rule));
    EXPECT_EQ(PadBackgroundText(rule), "#808080");
    EXPECT_FALSE(ReadPadBackground("nonsense", rule));
}

TEST(TrimPadSettings, ProfileAndPlanRoundTrip) {
    CropSettings s;
    s.mode = CropMode::None;
    s.trim = {true, 12.5, 7};
    s.pad.on = true;
    s.pad.ratio = {4, 5};
    s.pad.background = PadBackground::Colour;
    s.pad.colour = {1, 2, 3};
    const Loaded<CropSettings> back = SettingsFromProfileText(ProfileText(s), CropSettings{});
    ASSERT_TRUE(back) << back.reason();
    EXPECT_EQ(back->trim, s.trim);
    EXPECT_EQ(back->pad, s.pad);

    // A fill that is no colour keeps no colour: the profile names the fill.
    s.pad.background = PadBackground::Transparent;
    s.pad.colour = RgbColour{};
    test::TempDir dir;
    const std::string planPath = dir.File("plan.json");
    const CropPlan plan = MakeCropPlan(s, {dir.File("a.png")}, {});
    ASSERT_TRUE(WriteCropPlan(planPath, plan).saved);
    const Loaded<CropPlan> read = ReadCropPlan(planPath, CropSettings{});
    ASSERT_TRUE(read) << read.reason();
    EXPECT_EQ(read->settings.trim, s.trim);
    EXPECT_EQ(read->settings.pad, s.pad);

    for (const char* bad :
         {R"({"version": 2, "trim": {"tolerance": 101}})",
          R"({"version": 2, "trim": {"margin": -1}})", R"({"version": 2, "trim": {"margin": 1.5}})",
          R"({"version": 2, "pad": {"background": "blurple"}})",
          R"({"version": 2, "pad": {"ratio": {"width": 0}}})"}) {
        EXPECT_FALSE(SettingsFromProfileText(bad, CropSettings{})) << bad;
    }
}

}  // namespace
}  // namespace vellumo
