// Writing WebP, AVIF, HEIC and JPEG XL: each file read back by the format's
// own reference decoder (dwebp, heif-convert, djxl) at the crop's size, WebP
// and JPEG XL at quality 100 without loss, and WebP carrying Exif when asked
// and none otherwise.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ShellQuote;

struct Output {
    const char* format;     // as --format takes it
    const char* extension;  // of the file written
    const char* decode;     // the reference decoder: "%in" to "%out" (a PNG)
};

class NewOutputFormats : public CliTest, public ::testing::WithParamInterface<Output> {
  protected:
    // The written file decoded by the reference decoder, as a PNG.
    std::string Decoded(const std::string& written) {
        std::string command = GetParam().decode;
        command.replace(command.find("%in"), 3, ShellQuote(written));
        const std::string png = dir.File("decoded.png");
        command.replace(command.find("%out"), 4, ShellQuote(png));
        EXPECT_EQ(test::RunCommand(command + " >/dev/null 2>&1").exitCode, 0) << command;
        return png;
    }
};

TEST_P(NewOutputFormats, AreReadBackByTheirReferenceDecoderAtTheCropsSize) {
    const std::string source = dir.File("photo.png");
    test::CoordinateImage(300, 200).pngsave(source.c_str());
    const CliRun run =
        Cli(Files({source}) + " --pixels 10,20,100,50 --quality 80 --format " + GetParam().format +
            " --name '[FileName]' --output " + ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const std::string written = Out() + "/photo." + GetParam().extension;
    ASSERT_TRUE(std::filesystem::exists(written));
    const test::MagickSize size = test::MagickIdentifySize(Decoded(written));
    EXPECT_EQ(size.width, 100);
    EXPECT_EQ(size.height, 50);
}

INSTANTIATE_TEST_SUITE_P(EveryFormat, NewOutputFormats,
                         ::testing::Values(Output{"WEBP", "webp", "dwebp %in -o %out"},
                                           Output{"avif", "avif", "heif-convert %in %out"},
                                           Output{"Heic", "heic", "heif-convert %in %out"},
                                           Output{"JXL", "jxl", "djxl %in %out"}),
                         [](const ::testing::TestParamInfo<Output>& info) {
                             return std::string(info.param.extension);
                         });

class LosslessAtFullQuality : public NewOutputFormats {};

TEST_P(LosslessAtFullQuality, KeepsEveryPixel) {
    const std::string source = dir.File("photo.png");
    test::CoordinateImage(300, 200).pngsave(source.c_str());
    const CliRun run =
        Cli(Files({source}) + " --pixels 10,20,100,50 --quality 100 --format " + GetParam().format +
            " --name '[FileName]' --output " + ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const std::string decoded = Decoded(Out() + "/photo." + GetParam().extension);
    // Rows 130 to 179 from the top: 50 rows from 20 above the bottom.
    EXPECT_TRUE(test::MagickPixels(decoded, "", "rgb", 8) ==
                test::MagickPixels(source, "-crop 100x50+10+130 +repage", "rgb", 8));
}

INSTANTIATE_TEST_SUITE_P(WebPAndJpegXl, LosslessAtFullQuality,
                         ::testing::Values(Output{"WEBP", "webp", "dwebp %in -o %out"},
                                           Output{"JXL", "jxl", "djxl %in %out"}),
                         [](const ::testing::TestParamInfo<Output>& info) {
                             return std::string(info.param.extension);
                         });

TEST_F(CliTest, WebPCarriesExifOnlyWhenAsked) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string camera = test::TestDataPath("jpeg/Canon_40D.jpg");
    const std::string options = Files({camera}) + " --auto 3:2 --format WEBP --name '[FileName]'";
    ASSERT_EQ(Cli(options + " --keep-metadata --output " + ShellQuote(dir.File("kept"))).exitCode,
              0);
    ASSERT_EQ(Cli(options + " --output " + ShellQuote(dir.File("plain"))).exitCode, 0);
    const auto model = [](const std::string& path) {
        return test::RunCommand("exiftool -s3 -Model " + ShellQuote(path)).out;
    };
    EXPECT_EQ(model(dir.File("kept/Canon_40D.webp")), "Canon EOS 40D\n");
    EXPECT_EQ(model(dir.File("plain/Canon_40D.webp")), "");
    // The orientation is upright and the dimensions are the crop's.
    EXPECT_EQ(test::RunCommand("exiftool -s3 -n -Orientation " +
                               ShellQuote(dir.File("kept/Canon_40D.webp")))
                  .out,
              "1\n");
}

}  // namespace
}  // namespace vellumo
