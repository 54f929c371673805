// The faces anchor and the head-and-shoulders portrait from the command
// line: what is written compared with ImageMagick's crop of the rectangle
// reported, the fallbacks, and bad shares.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ShellQuote;

class FacesCliTest : public CliTest {
  protected:
    CliRun CropOne(const std::string& source, const std::string& rule) {
        return Cli(rule + " --format PNG --json --output " + ShellQuote(Out()) + " --name out " +
                   ShellQuote(source));
    }
    // ImageMagick's crop of the reported rectangle [x, y, w, h] (lower-left
    // origin) of an image `height` rows high.
    std::vector<unsigned char> MagickCrop(const std::string& source, const nlohmann::json& rect,
                                          int height) {
        const auto whole = [&](int i) { return rect[i].get<double>(); };
        const long x = std::lround(whole(0));
        // The origin is rounded to the nearest pixel, the size truncated.
        const auto w = static_cast<long>(whole(2));
        const auto h = static_cast<long>(whole(3));
        const long top = height - std::lround(whole(1)) - h;
        return test::MagickPixels(source,
                                  "-crop " + std::to_string(w) + "x" + std::to_string(h) + "+" +
                                      std::to_string(x) + "+" + std::to_string(top) + " +repage",
                                  "rgb", 8);
    }
};

TEST_F(FacesCliTest, TheFacesAnchorWritesTheCropItReports) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("faces/2008_002079.jpg");
    const CliRun run = CropOne(source, "--auto 3:4 --orientation as-given --anchor faces");
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    ASSERT_EQ(run.objects.size(), 1u);
    const nlohmann::json& image = run.objects[0];
    EXPECT_TRUE(image["warning"].is_null()) << image;
    EXPECT_EQ(image["faces"].size(), 6u) << image;
    EXPECT_EQ(image["size"], nlohmann::json::array({281, 375}));
    EXPECT_EQ(test::MagickPixels(image["output"].get<std::string>(), "", "rgb", 8),
              MagickCrop(source, image["rect"], 375));
}

TEST_F(FacesCliTest, AFacelessImageIsPlacedByAttentionWithAWarning) {
    const std::string source = dir.File("faceless.png");
    test::CoordinateImage(600, 400).pngsave(source.c_str());
    const CliRun run = CropOne(source, "--auto 1:1 --anchor faces");
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["warning"], "no face found; placed by attention");
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json::array({400, 400}));
}

TEST_F(FacesCliTest, APortraitWithoutAFaceFailsAndWritesNothing) {
    const std::string source = dir.File("faceless.png");
    test::CoordinateImage(600, 400).pngsave(source.c_str());
    const CliRun run = CropOne(source, "--auto 3:4 --portrait-of-face");
    EXPECT_EQ(run.exitCode, 1) << run.err << run.out;
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["status"], "failed");
    EXPECT_EQ(run.objects[0]["reason"], "cannot crop: no face found for the portrait");
    EXPECT_TRUE(std::filesystem::is_empty(Out()) || !std::filesystem::exists(Out()));
}

TEST_F(FacesCliTest, APortraitOfTheLargestFace) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("faces/2008_001322.jpg");
    const CliRun run = CropOne(source, "--auto 3:4 --portrait-of-face --face-height 30");
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    const nlohmann::json& image = run.objects.at(0);
    const nlohmann::json& largest = image["faces"][0];
    // The face is 30 % of the height; 3:4.
    EXPECT_DOUBLE_EQ(image["rect"][3].get<double>(), largest[3].get<double>() / 0.3);
    EXPECT_EQ(test::MagickPixels(image["output"].get<std::string>(), "", "rgb", 8),
              MagickCrop(source, image["rect"], 375));
}

TEST_F(FacesCliTest, SharesOutsideOneToNinetyNineStopWithOneLine) {
    const std::string source = dir.File("a.png");
    test::CoordinateImage(60, 40).pngsave(source.c_str());
    const struct {
        std::string arguments;
        std::string option;
    } cases[] = {
        {"--portrait-of-face --face-height 0", "--face-height"},
        {"--portrait-of-face --face-height 100", "--face-height"},
        {"--portrait-of-face --face-height abc", "--face-height"},
        {"--portrait-of-face --eye-line 99.5", "--eye-line"},
        {"--portrait-of-face --eye-line -5", "--eye-line"},
        {"--face-height 45", "--face-height"},
        {"--anchor face", "--anchor"},
    };
    for (const auto& c : cases) {
        const CliRun run = CropOne(source, c.arguments);
        EXPECT_EQ(run.exitCode, 2) << c.arguments << run.err;
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_NE(run.err.find(c.option), std::string::npos) << run.err;
        EXPECT_FALSE(std::filesystem::exists(Out()) && !std::filesystem::is_empty(Out()));
    }
}

}  // namespace
}  // namespace vellumo
