// The crop rules from the command line: anchors, any ratio and the output
// size, each output compared with what ImageMagick makes of the original.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ShellQuote;

class CropRulesCliTest : public CliTest {
  protected:
    // The image's crop written as PNG; the run's JSON object for it.
    nlohmann::json CropOne(const std::string& source, const std::string& rule) {
        const CliRun run = Cli(rule + " --format PNG --json --output " + ShellQuote(Out()) +
                               " --name out " + ShellQuote(source));
        EXPECT_EQ(run.exitCode, 0) << run.err << run.out;
        EXPECT_EQ(run.objects.size(), 1u) << run.out;
        if (run.objects.empty()) {
            return {};
        }
        output_ = run.objects[0]["output"].get<std::string>();
        return run.objects[0];
    }
    // Where the last crop was written.
    std::string Output() const { return output_; }

  private:
    std::string output_;
};

TEST_F(CropRulesCliTest, FourToFiveAnchoredTopLeftOnAPortraitPhoto) {
    const std::string source = dir.File("portrait.png");
    test::CoordinateImage(400, 700).pngsave(source.c_str());
    const nlohmann::json image = CropOne(source, "--auto 4:5 --anchor top-left");
    EXPECT_EQ(image["size"], nlohmann::json::array({400, 500}));
    EXPECT_EQ(test::MagickIdentifySize(Output()).width, 400);
    EXPECT_EQ(test::MagickPixels(Output(), "", "rgb", 8),
              test::MagickPixels(source, "-crop 400x500+0+0 +repage", "rgb", 8));
}

TEST_F(CropRulesCliTest, SixteenToNineAnchoredBottomRightOnAPortraitPhoto) {
    const std::string source = dir.File("portrait.png");
    test::CoordinateImage(450, 1000).pngsave(source.c_str());
    // Matched to the portrait image: 9:16, the full width, at the bottom.
    CropOne(source, "--auto 16:9 --anchor bottom-right");
    EXPECT_EQ(test::MagickPixels(Output(), "", "rgb", 8),
              test::MagickPixels(source, "-crop 450x800+0+200 +repage", "rgb", 8));
    // As given: a wide strip of 253 rows at the bottom.
    CropOne(source, "--auto 16:9 --orientation as-given --anchor bottom-right --overwrite all");
    EXPECT_EQ(test::MagickPixels(Output(), "", "rgb", 8),
              test::MagickPixels(source, "-crop 450x253+0+747 +repage", "rgb", 8));
}

TEST_F(CropRulesCliTest, AnyRatioAndEveryCornerOnALandscapePhoto) {
    const std::string source = dir.File("landscape.png");
    test::CoordinateImage(900, 500).pngsave(source.c_str());
    const struct {
        const char* anchor;
        const char* crop;
    } cases[] = {
        {"top-left", "500x500+0+0"},    {"top", "500x500+200+0"},    {"right", "500x500+400+0"},
        {"bottom-left", "500x500+0+0"}, {"centre", "500x500+200+0"}, {"center", "500x500+200+0"},
    };
    for (const auto& c : cases) {
        CropOne(source, std::string("--auto 1:1 --overwrite all --anchor ") + c.anchor);
        EXPECT_EQ(test::MagickPixels(Output(), "", "rgb", 8),
                  test::MagickPixels(source, std::string("-crop ") + c.crop + " +repage", "rgb", 8))
            << c.anchor;
    }
    // 2:1 as given, at the top: 900 x 450, the top rows.
    CropOne(source, "--auto 2:1 --orientation as-given --anchor top --overwrite all");
    EXPECT_EQ(test::MagickPixels(Output(), "", "rgb", 8),
              test::MagickPixels(source, "-crop 900x450+0+0 +repage", "rgb", 8));
}

// Mean and largest difference of two equally long sample lists.
std::pair<double, int> Difference(const std::vector<unsigned char>& a,
                                  const std::vector<unsigned char>& b) {
    double sum = 0;
    int largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const int d = std::abs(static_cast<int>(a[i]) - static_cast<int>(b[i]));
        sum += d;
        largest = std::max(largest, d);
    }
    return {a.empty() ? 0.0 : sum / static_cast<double>(a.size()), largest};
}

TEST_F(CropRulesCliTest, ASquareResizedExactlyMatchesImageMagicksLanczos) {
    const std::string source = dir.File("photo.png");
    test::PhotoLikeImage(1200, 800).pngsave(source.c_str());
    const nlohmann::json image = CropOne(source, "--auto 1:1 --resize 500x500 --resize-mode exact");
    EXPECT_EQ(image["size"], nlohmann::json::array({500, 500}));
    const auto size = test::MagickIdentifySize(Output());
    EXPECT_EQ(size.width, 500);
    EXPECT_EQ(size.height, 500);
    const auto ours = test::MagickPixels(Output(), "", "rgb", 8);
    const auto theirs = test::MagickPixels(
        source, "-crop 800x800+200+0 +repage -filter Lanczos -resize 500x500!", "rgb", 8);
    ASSERT_EQ(ours.size(), theirs.size());
    const auto [mean, largest] = Difference(ours, theirs);
    EXPECT_LT(mean, 1.5);
    EXPECT_LE(largest, 40);
}

TEST_F(CropRulesCliTest, ResizeWidthHeightAndFitNeverEnlargeUnlessAsked) {
    const std::string source = dir.File("photo.png");
    test::PhotoLikeImage(600, 400).pngsave(source.c_str());
    const struct {
        const char* options;
        int width, height;
    } cases[] = {
        {"--resize 300x", 300, 200},
        {"--resize x100", 150, 100},
        {"--resize 200x200", 200, 133},
        {"--resize 1200x", 600, 400},
        {"--resize 1200x --enlarge", 1200, 800},
    };
    for (const auto& c : cases) {
        const nlohmann::json image =
            CropOne(source, std::string("--overwrite all --pixels 0,0,600,400 ") + c.options);
        EXPECT_EQ(image["size"], nlohmann::json::array({c.width, c.height})) << c.options;
        const auto size = test::MagickIdentifySize(Output());
        EXPECT_EQ(size.width, c.width) << c.options;
        EXPECT_EQ(size.height, c.height) << c.options;
    }
}

TEST_F(CropRulesCliTest, ADryRunShowsThePlacedRectangleAndTheFinalSize) {
    const std::string source = dir.File("photo.png");
    test::CoordinateImage(6000, 4000)
        .pngsave(source.c_str(), vips::VImage::option()->set("compression", 1));
    const CliRun run =
        Cli("--dry-run --json --auto 4:5 --anchor right --resize 1000x "
            "--output " +
            ShellQuote(Out()) + " " + ShellQuote(source));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["rect"], nlohmann::json::array({1000.0, 0.0, 5000.0, 4000.0}));
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json::array({1000, 800}));
    EXPECT_FALSE(std::filesystem::exists(Out()));
}

// A flat picture with one busy patch near its right edge (columns 950 to
// 1149, rows 300 to 499): attention places the square over it.
TEST_F(CropRulesCliTest, AttentionPlacesTheCropOverTheSubject) {
    const std::string source = dir.File("subject.png");
    const vips::VImage background =
        vips::VImage::black(1200, 800, vips::VImage::option()->set("bands", 3)) + 90;
    const vips::VImage noise = vips::VImage::gaussnoise(
        200, 200, vips::VImage::option()->set("sigma", 80)->set("mean", 128));
    background.insert(vips::VImage::bandjoin({noise, noise.rot180(), noise.fliphor()}), 950, 300)
        .cast(VIPS_FORMAT_UCHAR)
        .pngsave(source.c_str());
    const nlohmann::json image = CropOne(source, "--auto 1:1 --anchor attention");
    const double x = image["rect"][0].get<double>();
    EXPECT_GE(x, 350.0);
    EXPECT_TRUE(image["warning"].is_null()) << image;
    const int left = static_cast<int>(std::lround(x));
    EXPECT_EQ(test::MagickPixels(Output(), "", "rgb", 8),
              test::MagickPixels(source, "-crop 800x800+" + std::to_string(left) + "+0 +repage",
                                 "rgb", 8));
}

// A profile written before the crop rules existed crops as it did: centred,
// turned to each image, at the crop's own size; the bytes equal those of the
// same crop given as options.
TEST_F(CropRulesCliTest, AVersionOneProfileCropsAsBefore) {
    const std::string source = dir.File("portrait.png");
    test::CoordinateImage(400, 700).pngsave(source.c_str());
    const std::string profile = dir.File("old.vellumo");
    std::ofstream(profile) << R"json({"version": 1, "cropMode": "auto", "autoCropRatio": "3:2",
        "format": "PNG", "quality": 80, "nameTemplate": "[FileName]_cropped ([FileIndex])",
        "outputFolder": "", "keepMetadata": false})json";
    const nlohmann::json image = CropOne(source, "--profile " + ShellQuote(profile));
    const std::string fromProfile = test::ReadFileBytes(Output());
    // 2:3 on the portrait image: the full width, 600 rows, centred (50 above).
    EXPECT_EQ(image["size"], nlohmann::json::array({400, 600}));
    EXPECT_EQ(test::MagickPixels(Output(), "", "rgb", 8),
              test::MagickPixels(source, "-crop 400x600+0+50 +repage", "rgb", 8));
    CropOne(source, "--auto 3:2 --overwrite all");
    EXPECT_EQ(test::ReadFileBytes(Output()), fromProfile);
}

}  // namespace
}  // namespace vellumo
