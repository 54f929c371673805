// Cropping JPEG files without re-encoding (--lossless): the pixels decoded
// from the output equal the source's over the output's whole area (both
// decoded by djpeg without fancy upsampling, which would blend chroma
// across the new edges), the size is the rectangle on the block grid that
// the dry run announced, a sideways photo comes out upright, metadata
// follows the rules of any JPEG, and other sources in the batch are encoded
// as usual.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

class LosslessCli : public CliTest {
  protected:
    // `path` decoded by djpeg -nosmooth, as a PPM file.
    std::string Djpeg(const std::string& path, const std::string& name) {
        const std::string ppm = dir.File(name + ".ppm");
        EXPECT_EQ(test::RunCommand("djpeg -nosmooth -ppm -outfile " + ShellQuote(ppm) + " " +
                                   ShellQuote(path))
                      .exitCode,
                  0)
            << path;
        return ppm;
    }
    // RGB samples of a PPM, with ImageMagick `operations` applied.
    std::vector<unsigned char> Rgb(const std::string& ppm, const std::string& operations = "") {
        return test::MagickPixels(ppm, operations, "rgb", 8);
    }
    // ImageMagick's crop of the rectangle `rect` ([x, y, w, h], origin at the
    // lower-left corner) of an image `height` rows high.
    static std::string MagickCrop(const nlohmann::json& rect, int height) {
        const int x = rect[0].get<int>();
        const int y = rect[1].get<int>();
        const int w = rect[2].get<int>();
        const int h = rect[3].get<int>();
        return "+repage -crop " + std::to_string(w) + "x" + std::to_string(h) + "+" +
               std::to_string(x) + "+" + std::to_string(height - y - h) + " +repage";
    }
    std::string Photo(int width, int height, const std::string& name) {
        const std::string path = dir.File(name);
        test::PhotoLikeImage(width, height)
            .jpegsave(path.c_str(), vips::VImage::option()->set("Q", 90)->set(
                                        "subsample_mode", VIPS_FOREIGN_SUBSAMPLE_ON));
        return path;
    }
};

TEST_F(LosslessCli, PixelsEqualTheSourcesOverTheRectangleOnTheBlockGrid) {
    // 1000 x 700, 4:2:0: 16-pixel blocks, partial ones at the right and the
    // bottom.
    const std::string source = Photo(1000, 700, "photo.jpg");
    const std::string args = Files({source}) +
                             " --pixels 41,45,301,203 --lossless --json --name '[FileName]' "
                             "--output " +
                             ShellQuote(Out());
    const CliRun planned = Cli(args + " --dry-run");
    ASSERT_EQ(planned.exitCode, 0) << planned.err;
    ASSERT_EQ(planned.objects.size(), 1u);
    // Left 41 and top 452 (counted from the first row) move out to 32 and
    // 448; the right and bottom edges stay.
    EXPECT_EQ(planned.objects[0]["rect"], nlohmann::json::parse("[32.0, 45.0, 310.0, 207.0]"));
    EXPECT_EQ(planned.objects[0]["size"], nlohmann::json::parse("[310, 207]"));
    EXPECT_EQ(planned.objects[0]["warning"], "Lossless: widened to the file's 16 \u00d7 16 blocks");
    EXPECT_FALSE(fs::exists(Out() + "/photo.jpg"));

    const CliRun run = Cli(args);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.objects[0]["rect"], planned.objects[0]["rect"]);
    const std::string written = Out() + "/photo.jpg";
    const test::MagickSize size = test::MagickIdentifySize(written);
    EXPECT_EQ(size.width, 310);
    EXPECT_EQ(size.height, 207);
    const auto expected = Rgb(Djpeg(source, "source"), MagickCrop(run.objects[0]["rect"], 700));
    const auto got = Rgb(Djpeg(written, "written"));
    ASSERT_EQ(got.size(), 310u * 207u * 3u);
    EXPECT_TRUE(got == expected);
    EXPECT_LE(fs::file_size(written), fs::file_size(source));
}

TEST_F(LosslessCli, TheQualityIsNotUsed) {
    // The same crop at quality 5 and 95 gives the same bytes: nothing was
    // encoded.
    const std::string source = Photo(640, 480, "photo.jpg");
    for (const char* quality : {"5", "95"}) {
        const CliRun run =
            Cli(Files({source}) + " --auto 1:1 --lossless --quality " + quality +
                " --name '[FileName]-" + quality + "' --output " + ShellQuote(Out()));
        ASSERT_EQ(run.exitCode, 0) << run.err;
    }
    EXPECT_EQ(test::ReadFileBytes(Out() + "/photo-5.jpg"),
              test::ReadFileBytes(Out() + "/photo-95.jpg"));
}

TEST_F(LosslessCli, ASidewaysPhotoComesOutUprightAsJpegtranTurnsIt) {
    VELLUMO_REQUIRE_TESTDATA();
    // Stored 1200 x 1800 with orientation 6: shown 1800 x 1200.
    const std::string source = test::TestDataPath("orientation/Landscape_6.jpg");
    const CliRun run = Cli(Files({source}) +
                           " --pixels 101,203,500,301 --lossless --json --name '[FileName]' "
                           "--output " +
                           ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), 1u);
    const nlohmann::json& rect = run.objects[0]["rect"];
    EXPECT_EQ(rect, nlohmann::json::parse("[88.0, 203.0, 528.0, 309.0]"));
    const std::string written = Out() + "/Landscape_6.jpg";
    EXPECT_EQ(test::MagickIdentifySize(written).width, 528);
    EXPECT_EQ(test::MagickIdentifySize(written).height, 309);
    EXPECT_EQ(test::ExifToolValue(written, "Orientation", true), "");
    // The same cut and turn by jpegtran: stored columns 688 to 997, rows
    // 1184 to 1712, turned 90 degrees clockwise.
    const std::string cut = dir.File("cut.jpg");
    const std::string turned = dir.File("turned.jpg");
    ASSERT_EQ(test::RunCommand("jpegtran -crop 309x528+688+1184 -outfile " + ShellQuote(cut) + " " +
                               ShellQuote(source) + " && jpegtran -rotate 90 -perfect -outfile " +
                               ShellQuote(turned) + " " + ShellQuote(cut))
                  .exitCode,
              0);
    EXPECT_TRUE(Rgb(Djpeg(written, "written")) == Rgb(Djpeg(turned, "turned")));
    // And upright: within the inverse transform's rounding (a sample or
    // three) of the source decoded and turned by ImageMagick.
    const auto upright = Rgb(Djpeg(source, "source"), "-rotate 90 " + MagickCrop(rect, 1200));
    const auto got = Rgb(Djpeg(written, "written"));
    ASSERT_EQ(got.size(), upright.size());
    int largest = 0;
    for (std::size_t i = 0; i < got.size(); ++i) {
        largest = std::max(largest, std::abs(got[i] - upright[i]));
    }
    EXPECT_LE(largest, 3);
}

TEST_F(LosslessCli, MetadataFollowsTheRulesOfAnyJpeg) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("jpeg/Canon_40D.jpg");
    const std::string args = Files({source}) + " --auto 16:9 --lossless --name '[FileName]'";
    ASSERT_EQ(Cli(args + " --keep-metadata --output " + ShellQuote(Out() + "/kept")).exitCode, 0);
    ASSERT_EQ(Cli(args + " --output " + ShellQuote(Out() + "/plain")).exitCode, 0);
    const std::string kept = Out() + "/kept/Canon_40D.jpg";
    const std::string plain = Out() + "/plain/Canon_40D.jpg";
    EXPECT_EQ(test::ExifToolValue(kept, "Make"), "Canon");
    EXPECT_EQ(test::ExifToolValue(kept, "Orientation", true), "1");
    EXPECT_EQ(test::ExifToolValue(kept, "ExifImageWidth"),
              std::to_string(test::MagickIdentifySize(kept).width));
    EXPECT_EQ(test::ExifToolValue(plain, "Make"), "");
    EXPECT_TRUE(test::ExifToolTags(plain, "-EXIF:all -XMP:all").empty());
    // The colour profile stays either way.
    EXPECT_EQ(test::ExifToolValue(plain, "ProfileDescription"), "sRGB IEC61966-2.1");
    EXPECT_EQ(test::ExifToolValue(kept, "ProfileDescription"), "sRGB IEC61966-2.1");
}

TEST_F(LosslessCli, OtherSourcesAndResizedCropsAreEncodedAsUsual) {
    const std::string jpeg = Photo(640, 480, "photo.jpg");
    const std::string png = dir.File("drawing.png");
    test::CoordinateImage(640, 480).pngsave(png.c_str());
    const CliRun run = Cli(Files({jpeg, png}) +
                           " --auto 1:1 --lossless --quality 50 --json --name '[FileName]' "
                           "--output " +
                           ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), 2u);
    EXPECT_EQ(run.objects[1]["warning"], nullptr);
    EXPECT_EQ(test::MagickJpegQuality(Out() + "/drawing.jpg"), 50);
    EXPECT_EQ(test::MagickIdentifySize(Out() + "/drawing.jpg").width, 480);

    const CliRun resized = Cli(Files({jpeg}) +
                               " --auto 1:1 --lossless --resize 100x100 "
                               "--json --name '[FileName]-small' --output " +
                               ShellQuote(Out()));
    ASSERT_EQ(resized.exitCode, 0) << resized.err;
    EXPECT_EQ(resized.objects[0]["warning"], "Re-encoded: a resized crop cannot be lossless");
    EXPECT_EQ(test::MagickIdentifySize(Out() + "/photo-small.jpg").width, 100);
}

TEST_F(LosslessCli, ADamagedJpegFailsAloneWithAReason) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string good = Photo(320, 240, "good.jpg");
    const CliRun run =
        Cli(Files({test::TestDataPath("bad/truncated_jpeg.jpg"), good}) +
            " --auto 1:1 --lossless --json --name '[FileName]' --output " + ShellQuote(Out()));
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.objects.size(), 2u);
    EXPECT_EQ(run.objects[0]["status"], "failed");
    EXPECT_NE(run.objects[0]["reason"].get<std::string>().find("cannot decode"), std::string::npos);
    EXPECT_EQ(run.objects[1]["status"], "written");
    EXPECT_FALSE(fs::exists(Out() + "/truncated_jpeg.jpg"));
}

}  // namespace
}  // namespace vellumo
