// Trim and pad from the command line: each output compared with what
// ImageMagick makes of the original (-fuzz N% -trim; -gravity ... -extent),
// the sizes the dry run and the JSON report, and bad input refused.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestData.h"

namespace vellumo {
namespace {

using test::ShellQuote;

class TrimPadCliTest : public CliTest {
  protected:
    void Draw(const std::string& path, const std::string& commands) {
        ASSERT_EQ(test::RunCommand("convert " + commands + " " + ShellQuote(path)).exitCode, 0);
    }
    // The image written as PNG with `options`; the run's JSON object for it.
    nlohmann::json WriteOne(const std::string& source, const std::string& options) {
        const CliRun run = Cli(options + " --format PNG --json --overwrite all --output " +
                               ShellQuote(Out()) + " --name out " + ShellQuote(source));
        EXPECT_EQ(run.exitCode, 0) << run.err << run.out;
        EXPECT_EQ(run.objects.size(), 1u) << run.out;
        if (run.objects.empty()) {
            return {};
        }
        output_ = run.objects[0]["output"].get<std::string>();
        return run.objects[0];
    }
    // Where the last image was written.
    std::string Output() const { return output_; }
    // The output's pixels equal ImageMagick's for `operations` on the source.
    void ExpectMagick(const std::string& source, const std::string& operations,
                      const std::string& map = "rgb") {
        EXPECT_EQ(test::MagickPixels(Output(), "", map, 8),
                  test::MagickPixels(source, operations, map, 8))
            << operations;
    }

  private:
    std::string output_;
};

TEST_F(TrimPadCliTest, TrimsWhiteAndBlackBordersAsImageMagickDoes) {
    const std::string white = dir.File("white.png");
    Draw(white, "-size 200x120 xc:white -fill '#336699' -draw 'rectangle 30,10 149,99'");
    const nlohmann::json image = WriteOne(white, "--trim");
    EXPECT_EQ(image["size"], nlohmann::json::array({120, 90}));
    ExpectMagick(white, "-trim +repage");

    const std::string black = dir.File("black.png");
    Draw(black,
         "-size 160x100 xc:black -fill '#202020' -draw 'point 3,50' -fill orange "
         "-draw 'rectangle 40,30 99,69'");
    WriteOne(black, "--trim --trim-tolerance 20");
    ExpectMagick(black, "-fuzz 20% -trim +repage");
    WriteOne(black, "--trim");
    ExpectMagick(black, "-trim +repage");
}

TEST_F(TrimPadCliTest, TrimsTransparentBordersKeepingAlpha) {
    const std::string source = dir.File("clear.png");
    Draw(source, "-size 120x80 xc:none -fill 'rgba(255,0,0,0.5)' -draw 'rectangle 50,20 89,59'");
    const nlohmann::json image = WriteOne(source, "--trim --trim-tolerance 1");
    EXPECT_EQ(image["size"], nlohmann::json::array({40, 40}));
    ExpectMagick(source, "-fuzz 1% -trim +repage", "rgba");
}

TEST_F(TrimPadCliTest, TrimsNoisyJpegBordersWithTheTolerance) {
    const std::string source = dir.File("noisy.jpg");
    Draw(source,
         "-size 300x200 xc:'#f0f0f0' -attenuate 0.4 +noise Uniform -fill '#402010' "
         "-draw 'rectangle 80,50 219,149' -quality 85");
    for (const char* tolerance : {"10", "25"}) {
        WriteOne(source, std::string("--trim --trim-tolerance ") + tolerance);
        ExpectMagick(source, std::string("-fuzz ") + tolerance + "% -trim +repage");
    }
}

TEST_F(TrimPadCliTest, TrimsAScanOfTheSharedTestData) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string scan = test::TestDataPath("tiff/cramps.tif");
    const nlohmann::json image = WriteOne(scan, "--trim --trim-tolerance 10");
    EXPECT_EQ(image["size"], nlohmann::json::array({458, 582}));
    ExpectMagick(scan, "-fuzz 10% -trim +repage", "gray");
}

TEST_F(TrimPadCliTest, MarginThenRatioThenResize) {
    const std::string source = dir.File("white.png");
    Draw(source,
         "-size 200x120 xc:white -fill '#336699' -draw 'rectangle 30,10 149,99' "
         "-fill red -draw 'point 30,10'");
    // 120 x 90 widened by 5: columns 25..154, rows 5..104.
    EXPECT_EQ(WriteOne(source, "--trim --trim-margin 5")["size"],
              nlohmann::json::array({130, 100}));
    ExpectMagick(source, "-crop 130x100+25+5 +repage");
    // The largest 1:1 of the trimmed 120 x 90, centred: columns 45..134.
    EXPECT_EQ(WriteOne(source, "--trim --auto 1:1")["size"], nlohmann::json::array({90, 90}));
    ExpectMagick(source, "-crop 90x90+45+10 +repage");
    EXPECT_EQ(WriteOne(source, "--trim --auto 1:1 --resize 45x45")["size"],
              nlohmann::json::array({45, 45}));
}

TEST_F(TrimPadCliTest, AllBackgroundIsWrittenWholeWithAWarning) {
    const std::string source = dir.File("plain.png");
    Draw(source, "-size 50x40 xc:'#abcdef'");
    const nlohmann::json image = WriteOne(source, "--trim");
    EXPECT_EQ(image["size"], nlohmann::json::array({50, 40}));
    EXPECT_EQ(image["warning"], "Whole image: nothing but background to trim");
    ExpectMagick(source, "");
}

TEST_F(TrimPadCliTest, PadsWithSolidColoursAsImageMagicksExtent) {
    const std::string source = dir.File("picture.png");
    Draw(source, "-size 301x200 gradient:'#ff8000-#0040c0' -depth 8");
    const nlohmann::json image = WriteOne(source, "--pad 1:1 --background '#204060'");
    EXPECT_EQ(image["size"], nlohmann::json::array({301, 301}));
    // Padding the whole picture is what was asked for, not a rule that missed.
    EXPECT_TRUE(image["warning"].is_null()) << image.dump();
    ExpectMagick(source, "-gravity center -background '#204060' -extent 301x301");
    WriteOne(source, "--pad 16:9 --anchor top-left --background black");
    ExpectMagick(source, "-gravity northwest -background black -extent 356x200");
    WriteOne(source, "--pad 1:2 --anchor bottom");
    ExpectMagick(source, "-gravity south -background white -extent 301x602");
}

TEST_F(TrimPadCliTest, PadToAnExactSizeWritesExactlyThatSize) {
    const std::string source = dir.File("picture.png");
    Draw(source, "-size 300x200 gradient:'#ff8000-#0040c0' -depth 8");
    const nlohmann::json image =
        WriteOne(source, "--pad 1:1 --resize 640x480 --resize-mode exact --enlarge");
    EXPECT_EQ(image["size"], nlohmann::json::array({640, 480}));
    const test::MagickSize written = test::MagickIdentifySize(Output());
    EXPECT_EQ(written.width, 640);
    EXPECT_EQ(written.height, 480);
}

TEST_F(TrimPadCliTest, TrimThenPadTransparent) {
    const std::string source = dir.File("white.png");
    Draw(source, "-size 200x120 xc:white -fill '#336699' -draw 'rectangle 30,10 149,99'");
    const nlohmann::json image = WriteOne(source, "--trim --pad 1:1 --background transparent");
    EXPECT_EQ(image["size"], nlohmann::json::array({120, 120}));
    ExpectMagick(source, "-trim +repage -gravity center -background none -extent 120x120", "rgba");
}

TEST_F(TrimPadCliTest, BlurredPaddingTakesTheImagesEdgeColours) {
    const std::string source = dir.File("sky.png");
    Draw(source, "-size 300x100 xc:'#3070e0' -fill '#30a040' -draw 'rectangle 0,50 299,99'");
    WriteOne(source, "--pad 1:1 --background blur");
    // The mean of the padding above the picture: sky blue, not white.
    const test::CommandResult mean = test::RunCommand(
        "convert " + ShellQuote(Output()) +
        " -crop 300x100+0+0 -scale 1x1! -format '%[fx:int(255*r)] %[fx:int(255*b)]' info:");
    int red = 0, blue = 0;
    ASSERT_EQ(std::sscanf(mean.out.c_str(), "%d %d", &red, &blue), 2) << mean.out;
    EXPECT_NEAR(red, 0x30, 20);
    EXPECT_NEAR(blue, 0xe0, 30);
}

TEST_F(TrimPadCliTest, DryRunAndReportShowThePaddedAndTrimmedSizes) {
    const std::string source = dir.File("white.png");
    Draw(source, "-size 200x120 xc:white -fill '#336699' -draw 'rectangle 30,10 149,99'");
    const CliRun run =
        Cli("--trim --pad 2:1 --dry-run --json --output " + ShellQuote(Out()) + Files({source}));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json::array({180, 90}));
    EXPECT_FALSE(std::filesystem::exists(Out()));
    const CliRun text = Cli("--trim --dry-run --output " + ShellQuote(Out()) + Files({source}));
    EXPECT_NE(text.out.find("(120 x 90)"), std::string::npos) << text.out;
}

TEST_F(TrimPadCliTest, BadInputIsOneLineNamingTheOptionAndNothingIsWritten) {
    const std::string source = dir.File("white.png");
    Draw(source, "-size 20x20 xc:white");
    const std::pair<const char*, const char*> cases[] = {
        {"--trim --trim-tolerance 101", "--trim-tolerance"},
        {"--trim --trim-tolerance -1", "--trim-tolerance"},
        {"--trim --trim-tolerance abc", "--trim-tolerance"},
        {"--trim --trim-margin -3", "--trim-margin"},
        {"--trim --trim-margin 2.5", "--trim-margin"},
        {"--trim-margin 3", "--trim-margin"},
        {"--pad 1:1 --background blurple", "--background"},
        {"--background red", "--background"},
        {"--pad 0:1", "--pad"},
        {"--pad 1:1 --auto 1:1", "--pad"},
        {"--trim --pad 1:1 --auto 4:3", "--pad"},
        {"--trim --pixels 0,0,10,10", "--trim"},
        {"--pad 1:1 --background transparent --format JPG", "--background transparent"},
    };
    for (const auto& [options, named] : cases) {
        const CliRun run =
            Cli(std::string(options) + " --output " + ShellQuote(Out()) + Files({source}));
        EXPECT_EQ(run.exitCode, 2) << options;
        EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << options << ": " << run.err;
        EXPECT_NE(run.err.find(named), std::string::npos) << options << ": " << run.err;
        EXPECT_FALSE(std::filesystem::exists(Out())) << options;
    }
}

}  // namespace
}  // namespace vellumo
