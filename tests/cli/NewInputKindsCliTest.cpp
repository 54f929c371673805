// HEIC, AVIF, WebP and JPEG XL sources: recognised by their content, decoded
// in the worker, cropped exactly (compared with the vips command line's
// decoding of the same file), a HEIC's Exif orientation never applied over
// its container's, and damaged or disguised files failing alone with a
// reason.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

// Raw 8-bit RGB of `path` as the vips command line decodes it, with
// `operation` (a crop, say) between: an independent reading of the file.
std::string VipsRgb(const test::TempDir& dir, const std::string& path,
                    const std::string& operation) {
    const std::string raw = dir.File("vips.raw");
    const std::string crop = dir.File("vips-crop.v");
    const std::string source = operation.empty() ? path : crop;
    if (!operation.empty()) {
        EXPECT_EQ(test::RunCommand("vips crop " + ShellQuote(path) + " " + ShellQuote(crop) + " " +
                                   operation)
                      .exitCode,
                  0);
    }
    EXPECT_EQ(
        test::RunCommand("vips rawsave " + ShellQuote(source) + " " + ShellQuote(raw)).exitCode, 0);
    return test::ReadFileBytes(raw);
}

struct Kind {
    const char* extension;
    const char* save;  // the vips command line's saver and options
};

class NewInputKinds : public CliTest, public ::testing::WithParamInterface<Kind> {};

TEST_P(NewInputKinds, AreCroppedExactlyFromTheirDecodedPixels) {
    const std::string source = dir.File(std::string("photo.") + GetParam().extension);
    const std::string plain = dir.File("photo.v");
    test::CoordinateImage(300, 200).write_to_file(plain.c_str());
    ASSERT_EQ(test::RunCommand(std::string("vips ") + GetParam().save + " " + ShellQuote(plain) +
                               " " + ShellQuote(source))
                  .exitCode,
              0);
    // 100 x 50 from (10, 20), origin at the lower left: rows 130 to 179 from
    // the top.
    const CliRun run = Cli(Files({source}) + " --pixels 10,20,100,50 --format PNG --json " +
                           "--name '[FileName]' --output " + ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["status"], "written");
    const std::string output = Out() + "/photo.png";
    EXPECT_TRUE(VipsRgb(dir, output, "") == VipsRgb(dir, source, "10 130 100 50"));
}

INSTANTIATE_TEST_SUITE_P(EveryKind, NewInputKinds,
                         ::testing::Values(Kind{"heic", "heifsave --compression hevc --Q 90"},
                                           Kind{"avif", "heifsave --compression av1 --Q 90"},
                                           Kind{"webp", "webpsave --Q 90"},
                                           Kind{"jxl", "jxlsave --Q 90"}),
                         [](const ::testing::TestParamInfo<Kind>& info) {
                             return std::string(info.param.extension);
                         });

TEST_F(CliTest, AHeicsExifOrientationIsNotAppliedOverItsContainers) {
    // Phones write both; the container's transformations (none here) rule.
    const std::string plain = dir.File("photo.v");
    const std::string heic = dir.File("phone.heic");
    test::CoordinateImage(300, 200).write_to_file(plain.c_str());
    ASSERT_EQ(test::RunCommand("vips heifsave " + ShellQuote(plain) + " " + ShellQuote(heic) +
                               " --compression hevc --Q 90")
                  .exitCode,
              0);
    // The picture as stored, upright.
    const std::string upright = VipsRgb(dir, heic, "");
    ASSERT_EQ(
        test::RunCommand("exiftool -q -Orientation#=6 -overwrite_original " + ShellQuote(heic))
            .exitCode,
        0);
    ASSERT_EQ(test::RunCommand("exiftool -s3 -n -Orientation " + ShellQuote(heic)).out, "6\n");
    const CliRun run =
        Cli(Files({heic}) + " --format PNG --name '[FileName]' --output " + ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(test::MagickIdentifySize(Out() + "/phone.png").width, 300);
    EXPECT_TRUE(VipsRgb(dir, Out() + "/phone.png", "") == upright);
}

TEST_F(CliTest, DamagedAndDisguisedNewKindsFailAloneWithAReason) {
    const std::string plain = dir.File("photo.v");
    test::CoordinateImage(300, 200).write_to_file(plain.c_str());
    std::vector<std::string> list;
    const auto make = [&](const std::string& name, const std::string& save) {
        const std::string path = dir.File(name);
        EXPECT_EQ(
            test::RunCommand("vips " + save + " " + ShellQuote(plain) + " " + ShellQuote(path))
                .exitCode,
            0);
        return path;
    };
    const std::string good = make("good.webp", "webpsave");
    // Cut in half.
    for (const auto& [name, save] : {std::pair{"cut.heic", "heifsave --compression hevc"},
                                     {"cut.avif", "heifsave --compression av1"},
                                     {"cut.webp", "webpsave"},
                                     {"cut.jxl", "jxlsave"}}) {
        const std::string path = make(name, save);
        fs::resize_file(path, fs::file_size(path) / 2);
        list.push_back(path);
    }
    // A PNG named .heic is the PNG it is; an SVG named .avif reaches no
    // decoder.
    const std::string png = dir.File("really-a-png.heic");
    EXPECT_EQ(
        test::RunCommand("vips pngsave " + ShellQuote(plain) + " " + ShellQuote(png)).exitCode, 0);
    const std::string svg = dir.File("drawing.avif");
    std::ofstream(svg) << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>";
    list.push_back(png);
    list.push_back(svg);
    list.push_back(good);
    const CliRun run = Cli(Files(list) + " --format PNG --json --output " + ShellQuote(Out()));
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.objects.size(), list.size());
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(run.objects[i]["status"], "failed") << list[i];
        EXPECT_NE(run.objects[i]["reason"].get<std::string>().rfind("cannot decode", 0),
                  std::string::npos)
            << run.objects[i]["reason"];
    }
    EXPECT_EQ(run.objects[4]["status"], "written");
    EXPECT_EQ(run.objects[5]["status"], "failed");
    EXPECT_EQ(run.objects[5]["reason"],
              "cannot decode: not an image Vellumo reads (an SVG or XML file)");
    EXPECT_EQ(run.objects[6]["status"], "written");
}

TEST_F(CliTest, FilesWithFlippedBytesAndDisguisedDocumentsNeverTakeTheBatchDown) {
    const std::string plain = dir.File("photo.v");
    test::PhotoLikeImage(320, 240).write_to_file(plain.c_str());
    std::vector<std::string> list;
    int good = 0;
    for (const auto& [name, save] : {std::pair{"a.heic", "heifsave --compression hevc"},
                                     {"a.avif", "heifsave --compression av1"},
                                     {"a.webp", "webpsave"},
                                     {"a.jxl", "jxlsave"}}) {
        const std::string clean = dir.File(std::string("clean-") + name);
        ASSERT_EQ(test::RunCommand(std::string("vips ") + save + " " + ShellQuote(plain) + " " +
                                   ShellQuote(clean))
                      .exitCode,
                  0);
        // Every 97th byte after the first 64 inverted: headers mostly
        // intact, coded data damaged throughout.
        std::string bytes = test::ReadFileBytes(clean);
        for (std::size_t i = 64; i < bytes.size(); i += 97) {
            bytes[i] = static_cast<char>(~bytes[i]);
        }
        const std::string flipped = dir.File(std::string("flipped-") + name);
        std::ofstream(flipped, std::ios::binary) << bytes;
        list.push_back(flipped);
        list.push_back(clean);
        ++good;
    }
    const std::string pdf = dir.File("document.avif");
    std::ofstream(pdf) << "%PDF-1.4\n1 0 obj << /Type /Catalog >> endobj\ntrailer << >>\n%%EOF\n";
    list.push_back(pdf);
    const CliRun run = Cli(Files(list) + " --format PNG --json --output " + ShellQuote(Out()));
    EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1) << run.exitCode << run.err;
    ASSERT_EQ(run.objects.size(), list.size());
    for (std::size_t i = 0; i < list.size(); ++i) {
        const nlohmann::json& image = run.objects[i];
        if (image["status"] == "failed") {
            EXPECT_FALSE(image["reason"].get<std::string>().empty()) << list[i];
        } else {
            EXPECT_EQ(image["status"], "written") << list[i];
        }
    }
    // The clean files are all written, at their size.
    for (std::size_t i = 1; i < list.size() - 1; i += 2) {
        EXPECT_EQ(run.objects[i]["status"], "written") << list[i];
        EXPECT_EQ(test::MagickIdentifySize(run.objects[i]["output"].get<std::string>()).width, 320)
            << list[i];
    }
    EXPECT_EQ(good, 4);
    EXPECT_EQ(run.objects.back()["status"], "failed");
    EXPECT_EQ(run.objects.back()["reason"].get<std::string>().rfind("cannot decode", 0), 0u);
}

TEST_F(CliTest, ValidFilesTheFirstDecoderRefusesAreReadByImageMagicks) {
    VELLUMO_REQUIRE_TESTDATA();
    // 12 bits per sample (grey) and 14 (planar RGB): libtiff through libvips
    // refuses both; ImageMagick reads them.
    for (const auto& [name, map] : {std::pair{"tiff/flower-minisblack-12.tif", "gray"},
                                    std::pair{"tiff/flower-rgb-planar-14.tif", "rgb"}}) {
        const std::string source = test::TestDataPath(name);
        const CliRun run = Cli(Files({source}) + " --pixels 5,5,40,30 --format PNG --json " +
                               "--name '[FileName]' --output " + ShellQuote(Out()));
        ASSERT_EQ(run.exitCode, 0) << name << run.out;
        const test::MagickSize size = test::MagickIdentifySize(source);
        const std::string crop =
            "-crop 40x30+5+" + std::to_string(size.height - 5 - 30) + " +repage";
        const std::string written =
            Out() + "/" + std::filesystem::path(source).stem().string() + ".png";
        const std::vector<unsigned char> ours = test::MagickPixels(written, "", map, 8);
        const std::vector<unsigned char> theirs = test::MagickPixels(source, crop, map, 8);
        ASSERT_EQ(ours.size(), theirs.size()) << name;
        // 16-bit samples to 8 bits: a top byte here, rounding there.
        int worst = 0;
        for (std::size_t i = 0; i < ours.size(); ++i) {
            worst = std::max(worst, std::abs(ours[i] - theirs[i]));
        }
        EXPECT_LE(worst, 1) << name;
    }
    // When neither decoder can, the first one's reason is given.
    const std::string broken = dir.File("broken.tif");
    {
        const std::string bytes = test::ReadFileBytes(test::TestDataPath("tiff/cramps.tif"));
        std::ofstream(broken, std::ios::binary) << bytes.substr(0, 64);
    }
    const CliRun run = Cli(Files({broken}) + " --json --output " + ShellQuote(Out()));
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["status"], "failed");
    EXPECT_EQ(run.objects[0]["reason"].get<std::string>().rfind("cannot decode", 0), 0u);
}

TEST_F(CliTest, AYCbCrSubsampledTiffIsReadAsLibtiffsOwnToolReadsIt) {
    VELLUMO_REQUIRE_TESTDATA();
    // YCbCr 4:2:0 with LZW: libvips' TIFF decoder refuses it, and so does its
    // bridge to ImageMagick (whose own reading of it is striped); libtiff's
    // RGBA reader takes it. Compared with tiff2rgba, libtiff's command line.
    const std::string source = test::TestDataPath("tiff/ycbcr-cat.tif");  // 250 x 325
    const CliRun run = Cli(Files({source}) + " --pixels 10,20,100,50 --format PNG --json " +
                           "--name '[FileName]' --output " + ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.out;
    const std::string rgba = dir.File("rgba.tif");
    ASSERT_EQ(test::RunCommand("tiff2rgba " + ShellQuote(source) + " " + ShellQuote(rgba)).exitCode,
              0);
    EXPECT_TRUE(test::MagickPixels(Out() + "/ycbcr-cat.png", "", "rgb", 8) ==
                test::MagickPixels(rgba, "-crop 100x50+10+255 +repage", "rgb", 8));
}

}  // namespace
}  // namespace vellumo
