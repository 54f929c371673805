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

// A 16-bit source keeps its 16 bits where the output format has them: the
// crop's samples equal the source's over the rectangle, read back by
// ImageMagick (PNG, TIFF) and by the vips command line (JPEG 2000, JPEG XL,
// both lossless at quality 100).
TEST_F(CliTest, SixteenBitSourcesKeepSixteenBitsWhereTheFormatHasThem) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string png = test::TestDataPath("png/monkey16.png");  // 149 x 227
    const std::string tiff = dir.File("monkey16.tif");
    ASSERT_EQ(test::RunCommand("vips copy " + ShellQuote(png) + " " + ShellQuote(tiff)).exitCode,
              0);
    const std::vector<unsigned char> expected =
        test::MagickPixels(png, "-crop 100x50+10+157 +repage", "rgb", 16);
    for (const std::string& source : {png, tiff}) {
        for (const char* format : {"png", "tif", "jp2", "jxl"}) {
            const std::string out = Out() + "/" + format + (source == png ? "-png" : "-tiff");
            const CliRun run = Cli(Files({source}) + " --pixels 10,20,100,50 --quality 100 " +
                                   "--format " + format + " --name " +
                                   ShellQuote("crop-[FileName]") + " --output " + ShellQuote(out));
            ASSERT_EQ(run.exitCode, 0) << run.err;
            std::string written = out + "/crop-monkey16." + format;
            if (std::string(format) == "jp2" || std::string(format) == "jxl") {
                // Read back by libvips' own decoder into a 16-bit PNG.
                const std::string png16 = out + "/decoded.png";
                ASSERT_EQ(
                    test::RunCommand("vips copy " + ShellQuote(written) + " " + ShellQuote(png16))
                        .exitCode,
                    0);
                written = png16;
            }
            EXPECT_EQ(test::RunCommand("identify -format %z " + ShellQuote(written)).out, "16")
                << source << " to " << format;
            EXPECT_TRUE(test::MagickPixels(written, "", "rgb", 16) == expected)
                << source << " to " << format;
        }
    }
}

// AVIF and HEIC get the source's Exif and XMP from their encoder when the
// option is on (orientation 1, the crop's size), read back by exiftool; none
// without it; the colour profile either way.
TEST_F(CliTest, AvifAndHeicCarryExifAndXmpOnlyWhenAsked) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string camera = test::TestDataPath("jpeg/Canon_40D.jpg");  // Exif
    const std::string xmp = test::TestDataPath("jpeg/BlueSquare.jpg");    // Exif and XMP
    const std::string sideways = test::TestDataPath("orientation/ianare_landscape_6.jpg");
    for (const char* format : {"avif", "heic"}) {
        const std::string options = Files({camera, xmp, sideways}) + " --auto 16:9 --format " +
                                    format + " --name '[FileName]'";
        const std::string kept = dir.File(std::string("kept-") + format);
        const std::string plain = dir.File(std::string("plain-") + format);
        ASSERT_EQ(Cli(options + " --keep-metadata --output " + ShellQuote(kept)).exitCode, 0);
        ASSERT_EQ(Cli(options + " --output " + ShellQuote(plain)).exitCode, 0);
        const std::string ext = std::string(".") + format;
        EXPECT_EQ(test::ExifToolValue(kept + "/Canon_40D" + ext, "Model"), "Canon EOS 40D");
        EXPECT_EQ(test::ExifToolValue(kept + "/BlueSquare" + ext, "XMP-xmp:CreatorTool"),
                  "Adobe Photoshop CS2 Macintosh");
        // Turned upright: orientation 1, the crop's own size.
        const std::string upright = kept + "/ianare_landscape_6" + ext;  // 600 x 450 upright
        EXPECT_EQ(test::ExifToolValue(upright, "EXIF:Orientation", true), "1");
        EXPECT_EQ(test::ExifToolValue(upright, "EXIF:ExifImageWidth"), "600");
        EXPECT_EQ(test::ExifToolValue(upright, "EXIF:ExifImageHeight"), "337");
        // Without: nothing of the source's (the encoder's own minimal Exif
        // block, orientation and resolution, stays).
        for (const char* name : {"Canon_40D", "BlueSquare", "ianare_landscape_6"}) {
            const std::string without = plain + "/" + name + ext;
            EXPECT_TRUE(test::ExifToolTags(without,
                                           "-XMP:all -GPS:all -Make -Model "
                                           "-ImageDescription -DateTimeOriginal")
                            .empty())
                << without;
        }
        EXPECT_EQ(test::ExifToolValue(plain + "/Canon_40D" + ext, "ProfileDescription"),
                  "sRGB IEC61966-2.1");
        // Read back by libheif's own tool at the crop's size.
        const std::string png = dir.File("decoded.png");
        ASSERT_EQ(test::RunCommand("heif-convert " + ShellQuote(upright) + " " + ShellQuote(png) +
                                   " >/dev/null 2>&1")
                      .exitCode,
                  0);
        EXPECT_EQ(test::MagickIdentifySize(png).width, 600);
        EXPECT_EQ(test::MagickIdentifySize(png).height, 337);
    }
}

}  // namespace
}  // namespace vellumo
