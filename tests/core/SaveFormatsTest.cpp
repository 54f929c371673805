// Writing the ten output formats: each file is read back by ImageMagick, an
// independent decoder, for its real type, size and pixels.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <limits>

#include "imaging/Formats.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::CoordinateImage;
using test::MagickPixels;
using test::MakeImage;
using test::TempDir;

struct FormatCase {
    OutputFormat format;
    const char* extension;  // the lower-cased title in the format list
    const char* family;     // what ImageMagick calls the written file
};

void PrintTo(const FormatCase& format, std::ostream* out) {
    *out << PositionOfOutputFormat(format.format) << " (" << format.extension << ")";
}

const FormatCase kFormats[] = {
    {OutputFormat::Jpg, "jpg", "JPEG"},   {OutputFormat::Jpeg, "jpeg", "JPEG"},
    {OutputFormat::Jpe, "jpe", "JPEG"},   {OutputFormat::Jp2, "jp2", "JP2"},
    {OutputFormat::Jpx, "jpx", "JP2"},    {OutputFormat::Png, "png", "PNG"},
    {OutputFormat::Tiff, "tiff", "TIFF"}, {OutputFormat::Tif, "tif", "TIFF"},
    {OutputFormat::Gif, "gif", "GIF"},    {OutputFormat::Bmp, "bmp", "BMP3"},
};

std::string CaseName(const ::testing::TestParamInfo<FormatCase>& info) {
    return std::to_string(PositionOfOutputFormat(info.param.format)) + "_" + info.param.extension;
}

// Peak signal-to-noise ratio of two equally long 8-bit sample runs, in dB.
double Psnr(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b) {
    double squares = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const double d = static_cast<double>(a[i]) - static_cast<double>(b[i]);
        squares += d * d;
    }
    const double mse = squares / static_cast<double>(a.size());
    return mse == 0.0 ? std::numeric_limits<double>::infinity()
                      : 10.0 * std::log10(255.0 * 255.0 / mse);
}

bool FolderIsEmpty(const TempDir& dir) {
    return std::filesystem::is_empty(dir.path());
}

class EveryFormat : public ::testing::TestWithParam<FormatCase> {
  protected:
    std::string Save(const Image& image, double quality, const std::string& name = "out") {
        const std::string path = dir.File(name + "." + GetParam().extension);
        const SaveResult result = ImageTools::TrySaveImage(image, path, GetParam().format, quality);
        EXPECT_TRUE(result.saved) << result.reason;
        return path;
    }
    TempDir dir;
};

TEST_P(EveryFormat, WritesAFileOfItsFamilyAndSizeThatImageMagickDecodes) {
    const std::string path = Save(MakeImage(CoordinateImage(150, 100)), 0.8);
    EXPECT_EQ(test::MagickFormat(path), GetParam().family);
    const test::MagickSize size = test::MagickIdentifySize(path);
    EXPECT_EQ(size.width, 150);
    EXPECT_EQ(size.height, 100);
    EXPECT_EQ(MagickPixels(path, "", "rgb", 8).size(), 150u * 100u * 3u);
}

TEST_P(EveryFormat, FractionalSizeIsTruncatedTowardZero) {
    const Image source = MakeImage(CoordinateImage(200, 120));
    const Image cut = ImageTools::CropImage(source, {0, 0, 100.7, 50.2});
    ASSERT_DOUBLE_EQ(cut.Width(), 100.7);
    ASSERT_DOUBLE_EQ(cut.Height(), 50.2);
    const test::MagickSize size = test::MagickIdentifySize(Save(cut, 0.8));
    EXPECT_EQ(size.width, 100);
    EXPECT_EQ(size.height, 50);
}

TEST_P(EveryFormat, LessThanOneWholePixelIsAFailedSaveThatWritesNothing) {
    for (const auto& [w, h] : {std::pair{0.5, 10.0}, {10.0, 0.99}, {0.0, 0.0}, {-3.0, 5.0}}) {
        const std::string path = dir.File(std::string("tiny.") + GetParam().extension);
        const SaveResult result =
            ImageTools::TrySaveImage(test::MakeSizedImage(w, h), path, GetParam().format, 0.8);
        EXPECT_FALSE(result.saved) << w << " x " << h;
        EXPECT_FALSE(result.reason.empty());
    }
    EXPECT_TRUE(FolderIsEmpty(dir));
}

TEST_P(EveryFormat, SizeThatIsNotFiniteIsAFailedSaveThatWritesNothing) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [w, h] : {std::pair{inf, 10.0}, {10.0, inf}, {nan, 10.0}, {10.0, nan}}) {
        const std::string path = dir.File(std::string("odd.") + GetParam().extension);
        EXPECT_FALSE(
            ImageTools::SaveImage(test::MakeSizedImage(w, h), path, GetParam().format, 0.8));
    }
    EXPECT_TRUE(FolderIsEmpty(dir));
}

TEST_P(EveryFormat, SizeTooLargeForAnyPixelsIsAFailedSaveThatWritesNothing) {
    const std::string path = dir.File(std::string("huge.") + GetParam().extension);
    const Image huge = ImageTools::ResizeImage(test::MakeImage(CoordinateImage(4, 4)), {1e12, 10});
    const SaveResult result = ImageTools::TrySaveImage(huge, path, GetParam().format, 0.8);
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, "the image is too large to write");
    EXPECT_TRUE(FolderIsEmpty(dir));
}

TEST_P(EveryFormat, LeavesNoTemporaryFileBehind) {
    Save(MakeImage(CoordinateImage(64, 48)), 0.8);
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(dir.path())) {
        EXPECT_EQ(entry.path().filename().string(), std::string("out.") + GetParam().extension);
        ++files;
    }
    EXPECT_EQ(files, 1);
}

INSTANTIATE_TEST_SUITE_P(OutputFormats, EveryFormat, ::testing::ValuesIn(kFormats), CaseName);

// ---- Lossless formats --------------------------------------------------

class LosslessFormat : public EveryFormat {};

TEST_P(LosslessFormat, GivesBackTheExactPixels) {
    const vips::VImage pixels = CoordinateImage(300, 280);
    // JPEG 2000 is lossless at a compression factor of 1.0 only.
    const std::string path = Save(MakeImage(pixels), 1.0);
    EXPECT_TRUE(MagickPixels(path, "", "rgb", 8) == test::RawBytes(pixels));
}

INSTANTIATE_TEST_SUITE_P(OutputFormats, LosslessFormat,
                         ::testing::Values(kFormats[3], kFormats[4], kFormats[5], kFormats[6],
                                           kFormats[7], kFormats[9]),
                         CaseName);

TEST(SaveGif, ImageOfFewColoursKeepsItsExactPixels) {
    TempDir dir;
    // 16 x 15 blocks of distinct colours: 240 colours, which fit the
    // palette (whose encoder keeps one of its 256 entries to itself).
    const vips::VImage xy = vips::VImage::xyz(256, 120);
    const vips::VImage column = xy[0] >> 4;
    const vips::VImage row = xy[1] >> 3;
    const vips::VImage r = column * 17;
    const vips::VImage g = row * 17;
    const vips::VImage b = (column + row) * 7;
    const vips::VImage pixels =
        r.bandjoin(g)
            .bandjoin(b)
            .cast(VIPS_FORMAT_UCHAR)
            .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB))
            .copy_memory();
    const std::string path = dir.File("blocks.gif");
    ASSERT_TRUE(ImageTools::SaveImage(MakeImage(pixels), path, OutputFormat::Gif, 0.8));
    EXPECT_TRUE(MagickPixels(path, "", "rgb", 8) == test::RawBytes(pixels));
}

// ---- Lossy formats -----------------------------------------------------

class LossyFormat : public EveryFormat {};

TEST_P(LossyFormat, PhotoAtQuality80IsCloseToTheSource) {
    const vips::VImage photo = test::PhotoLikeImage(640, 480).copy_memory();
    const std::string path = Save(MakeImage(photo), 0.8);
    const std::vector<unsigned char> decoded = MagickPixels(path, "", "rgb", 8);
    const std::vector<unsigned char> source = test::RawBytes(photo);
    ASSERT_EQ(decoded.size(), source.size());
    const double psnr = Psnr(decoded, source);
    EXPECT_GT(psnr, 30.0);
    EXPECT_LT(psnr, 80.0) << "a lossy encoder at quality 0.8 is expected to lose something";
}

INSTANTIATE_TEST_SUITE_P(OutputFormats, LossyFormat,
                         ::testing::Values(kFormats[0], kFormats[1], kFormats[2], kFormats[3],
                                           kFormats[4]),
                         CaseName);

// ---- The quality -------------------------------------------------------

TEST(SaveQuality, ReachesTheJpegEncoderUnchanged) {
    TempDir dir;
    const Image photo = MakeImage(test::PhotoLikeImage(320, 240).copy_memory());
    for (const auto& [quality, expected] :
         {std::pair{0.0, 1}, {0.01, 1}, {0.5, 50}, {0.8, 80}, {0.93, 93}, {1.0, 100}}) {
        const std::string path = dir.File("q.jpg");
        ASSERT_TRUE(ImageTools::SaveImage(photo, path, OutputFormat::Jpg, quality));
        EXPECT_EQ(test::MagickJpegQuality(path), expected) << "quality " << quality;
    }
}

TEST(SaveQuality, ReachesTheJpeg2000EncoderUnchanged) {
    TempDir dir;
    const vips::VImage photo = test::PhotoLikeImage(320, 240).copy_memory();
    const Image image = MakeImage(photo);
    ASSERT_TRUE(ImageTools::SaveImage(image, dir.File("q0.jp2"), OutputFormat::Jp2, 0.0));
    ASSERT_TRUE(ImageTools::SaveImage(image, dir.File("q80.jp2"), OutputFormat::Jp2, 0.8));
    ASSERT_TRUE(ImageTools::SaveImage(image, dir.File("q100.jp2"), OutputFormat::Jp2, 1.0));
    const auto size = [&](const char* name) { return std::filesystem::file_size(dir.File(name)); };
    EXPECT_LT(size("q0.jp2") * 4, size("q80.jp2"));
    EXPECT_LT(size("q80.jp2"), size("q100.jp2"));
    // 1.0 is the least compression there is: none.
    EXPECT_TRUE(MagickPixels(dir.File("q100.jp2"), "", "rgb", 8) == test::RawBytes(photo));
    const double psnr0 =
        Psnr(MagickPixels(dir.File("q0.jp2"), "", "rgb", 8), test::RawBytes(photo));
    EXPECT_LT(psnr0, 30.0) << "quality 0.0 is the strongest compression";
}

class QualityIgnored : public EveryFormat {};

TEST_P(QualityIgnored, SameImageGivesTheSameBytesWhateverTheQuality) {
    const Image photo = MakeImage(test::PhotoLikeImage(200, 150).copy_memory());
    const std::string reference = test::ReadFile(Save(photo, 0.0, "q0"));
    ASSERT_FALSE(reference.empty());
    for (const double quality : {0.5, 0.8, 1.0, 42.0, -1.0}) {
        EXPECT_EQ(test::ReadFile(Save(photo, quality, "other")), reference)
            << "quality " << quality;
    }
}

INSTANTIATE_TEST_SUITE_P(OutputFormats, QualityIgnored,
                         ::testing::Values(kFormats[5], kFormats[6], kFormats[7], kFormats[8],
                                           kFormats[9]),
                         CaseName);

// ---- Formats outside the list ------------------------------------------

// A position of the format list (the window's box) outside it names no
// format, so nothing can be asked to be written in one.
TEST(SaveFormatIndex, OutsideTheListIsNoFormat) {
    for (const long position :
         {14L, -1L, 15L, std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
        EXPECT_FALSE(OutputFormatAtPosition(position).has_value()) << position;
    }
    for (long position = 0; position < 14; ++position) {
        const std::optional<OutputFormat> format = OutputFormatAtPosition(position);
        ASSERT_TRUE(format.has_value()) << position;
        EXPECT_EQ(PositionOfOutputFormat(*format), position);
        EXPECT_EQ(InfoOf(*format).title, kOutputFormats[static_cast<std::size_t>(position)].title);
    }
}

TEST(SaveFormatIndex, AFailedSaveLeavesAnExistingFileAlone) {
    TempDir dir;
    const std::string path = dir.File("keep.png");
    ASSERT_TRUE(
        ImageTools::SaveImage(MakeImage(CoordinateImage(40, 30)), path, OutputFormat::Png, 0.8));
    const std::string before = test::ReadFile(path);
    EXPECT_FALSE(
        ImageTools::SaveImage(test::MakeSizedImage(0.5, 90), path, OutputFormat::Png, 0.8));
    EXPECT_EQ(test::ReadFile(path), before);
}

// ---- Alpha -------------------------------------------------------------

// Left half opaque orange, right half fully transparent (and blue beneath).
vips::VImage HalfTransparent(int width, int height) {
    const vips::VImage x = vips::VImage::xyz(width, height)[0];
    const vips::VImage left = x < (width / 2);
    const vips::VImage r = left.ifthenelse(240, 10);
    const vips::VImage g = left.ifthenelse(130, 20);
    const vips::VImage b = left.ifthenelse(20, 250);
    const vips::VImage a = left.ifthenelse(255, 0);
    return r.bandjoin(g)
        .bandjoin(b)
        .bandjoin(a)
        .cast(VIPS_FORMAT_UCHAR)
        .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB))
        .copy_memory();
}

// The RGBA sample at (x, y) of ImageMagick's decoding.
std::array<int, 4> MagickRgbaAt(const std::string& path, int width, int x, int y) {
    const std::vector<unsigned char> rgba = MagickPixels(path, "", "rgba", 8);
    const std::size_t at = (static_cast<std::size_t>(y) * width + x) * 4;
    return {rgba.at(at), rgba.at(at + 1), rgba.at(at + 2), rgba.at(at + 3)};
}

TEST(SaveAlpha, JpegIsFlattenedOntoWhite) {
    TempDir dir;
    const std::string path = dir.File("flat.jpg");
    ASSERT_TRUE(
        ImageTools::SaveImage(MakeImage(HalfTransparent(64, 32)), path, OutputFormat::Jpg, 1.0));
    const auto right = MagickRgbaAt(path, 64, 56, 16);
    EXPECT_NEAR(right[0], 255, 2);
    EXPECT_NEAR(right[1], 255, 2);
    EXPECT_NEAR(right[2], 255, 2);
    const auto left = MagickRgbaAt(path, 64, 8, 16);
    EXPECT_NEAR(left[0], 240, 4);
    EXPECT_NEAR(left[1], 130, 4);
    EXPECT_NEAR(left[2], 20, 4);
}

class AlphaFormat : public EveryFormat {};

TEST_P(AlphaFormat, KeepsTransparency) {
    const std::string path = Save(MakeImage(HalfTransparent(64, 32)), 1.0);
    const auto right = MagickRgbaAt(path, 64, 56, 16);
    const auto left = MagickRgbaAt(path, 64, 8, 16);
    EXPECT_EQ(right[3], 0);
    EXPECT_EQ(left[3], 255);
    EXPECT_NEAR(left[0], 240, 2);
    EXPECT_NEAR(left[1], 130, 2);
    EXPECT_NEAR(left[2], 20, 2);
}

INSTANTIATE_TEST_SUITE_P(OutputFormats, AlphaFormat,
                         ::testing::Values(kFormats[3], kFormats[5], kFormats[6], kFormats[8],
                                           kFormats[9]),
                         CaseName);

// Bytes 14 to 17 of a BMP file: the size of its information header (40 for
// Windows 3.x, 124 for version 5); bytes 28 and 29: bits per pixel.
struct BmpHeader {
    unsigned infoSize = 0;
    unsigned bitsPerPixel = 0;
};
BmpHeader ReadBmpHeader(const std::string& path) {
    const std::string bytes = test::ReadFile(path);
    BmpHeader header;
    if (bytes.size() >= 30 && bytes[0] == 'B' && bytes[1] == 'M') {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
        header.infoSize = byte(14) | byte(15) << 8 | byte(16) << 16 | byte(17) << 24;
        header.bitsPerPixel = byte(28) | byte(29) << 8;
    }
    return header;
}

TEST(SaveBmp, WithoutAlphaIsA24BitWindows3Bitmap) {
    TempDir dir;
    const std::string path = dir.File("plain.bmp");
    ASSERT_TRUE(
        ImageTools::SaveImage(MakeImage(CoordinateImage(33, 17)), path, OutputFormat::Bmp, 0.8));
    const BmpHeader header = ReadBmpHeader(path);
    EXPECT_EQ(header.infoSize, 40u);
    EXPECT_EQ(header.bitsPerPixel, 24u);
}

TEST(SaveBmp, GreyImageIsStillA24BitBitmap) {
    TempDir dir;
    const vips::VImage grey = CoordinateImage(33, 17)[0].copy(
        vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
    const std::string path = dir.File("grey.bmp");
    ASSERT_TRUE(ImageTools::SaveImage(MakeImage(grey), path, OutputFormat::Bmp, 0.8));
    EXPECT_EQ(ReadBmpHeader(path).bitsPerPixel, 24u);
    std::vector<unsigned char> expected;
    for (unsigned char v : test::RawBytes(grey)) {
        expected.insert(expected.end(), {v, v, v});
    }
    EXPECT_TRUE(MagickPixels(path, "", "rgb", 8) == expected);
}

TEST(SaveBmp, WithAlphaIsA32BitBitmap) {
    TempDir dir;
    const std::string path = dir.File("alpha.bmp");
    ASSERT_TRUE(
        ImageTools::SaveImage(MakeImage(HalfTransparent(64, 32)), path, OutputFormat::Bmp, 0.8));
    EXPECT_EQ(ReadBmpHeader(path).bitsPerPixel, 32u);
}

// ---- Kinds of pixels ----------------------------------------------------

TEST(SavePixelKinds, GreyStaysGreyWhereTheFormatHasGrey) {
    TempDir dir;
    const vips::VImage grey = CoordinateImage(90, 70)[1].copy(
        vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
    const Image image = MakeImage(grey);
    ASSERT_TRUE(ImageTools::SaveImage(image, dir.File("g.png"), OutputFormat::Png, 0.8));
    ASSERT_TRUE(ImageTools::SaveImage(image, dir.File("g.tif"), OutputFormat::Tiff, 0.8));
    ASSERT_TRUE(ImageTools::SaveImage(image, dir.File("g.jpg"), OutputFormat::Jpg, 0.8));
    ASSERT_TRUE(ImageTools::SaveImage(image, dir.File("g.jp2"), OutputFormat::Jp2, 1.0));
    EXPECT_EQ(test::ExifToolValue(dir.File("g.png"), "ColorType", true), "0");
    EXPECT_EQ(test::ExifToolValue(dir.File("g.tif"), "SamplesPerPixel", true), "1");
    EXPECT_EQ(test::ExifToolValue(dir.File("g.jpg"), "ColorComponents", true), "1");
    EXPECT_EQ(test::ExifToolValue(dir.File("g.jp2"), "NumberOfComponents", true), "1");
    for (const char* name : {"g.png", "g.tif", "g.jp2"}) {
        EXPECT_TRUE(MagickPixels(dir.File(name), "", "gray", 8) == test::RawBytes(grey)) << name;
    }
}

TEST(SavePixelKinds, SixteenBitSamplesKeepAllSixteenBitsInPngAndTiff) {
    VELLUMO_REQUIRE_TESTDATA();
    TempDir dir;
    // Grey with alpha from a PNG; RGB from a PNG, and the same as a TIFF
    // written by the vips command line.
    const std::string tiff = dir.File("monkey16.tif");
    ASSERT_EQ(
        test::RunCommand("vips copy " + test::ShellQuote(test::TestDataPath("png/monkey16.png")) +
                         " " + test::ShellQuote(tiff))
            .exitCode,
        0);
    for (const auto& [source, map] :
         {std::pair{test::TestDataPath("png/basn4a16.png"), "graya"},
          std::pair{test::TestDataPath("png/monkey16.png"), "rgb"}, std::pair{tiff, "rgb"}}) {
        const LoadResult loaded = ImageTools::LoadImage(source);
        ASSERT_TRUE(loaded) << loaded.reason();
        const std::vector<unsigned char> wide = MagickPixels(source, "", map, 16);
        ASSERT_FALSE(wide.empty());
        for (const auto& [format, file] :
             {std::pair{OutputFormat::Png, "out.png"}, std::pair{OutputFormat::Tiff, "out.tif"}}) {
            const std::string path = dir.File(file);
            ASSERT_TRUE(ImageTools::SaveImage(*loaded, path, format, 0.8)) << source << file;
            EXPECT_EQ(test::RunCommand("identify -format %z " + test::ShellQuote(path)).out, "16")
                << source << " " << file;
            EXPECT_TRUE(MagickPixels(path, "", map, 16) == wide) << source << " " << file;
        }
    }
}

TEST(SavePixelKinds, SixteenBitGreyBecomesEightBitWhereTheFormatHasNoMore) {
    VELLUMO_REQUIRE_TESTDATA();
    TempDir dir;
    const std::string source = test::TestDataPath("png/basn4a16.png");
    const LoadResult loaded = ImageTools::LoadImage(source);
    ASSERT_TRUE(loaded) << loaded.reason();
    // WebP at quality 100 is lossless, and has 8 bits only.
    const std::string path = dir.File("ga.webp");
    ASSERT_TRUE(ImageTools::SaveImage(*loaded, path, OutputFormat::WebP, 1.0));
    // Each 16-bit sample scaled to 8 bits (65535 -> 255), to within one
    // step of rounding; grey becomes equal red, green and blue.
    const std::vector<unsigned char> wide = MagickPixels(source, "", "graya", 16);
    const std::vector<unsigned char> ours = MagickPixels(path, "", "rgba", 8);
    ASSERT_EQ(ours.size(), wide.size());
    ASSERT_FALSE(ours.empty());
    for (std::size_t pixel = 0; pixel < ours.size() / 4; ++pixel) {
        const int grey = wide[pixel * 4] | wide[pixel * 4 + 1] << 8;
        const int alpha = wide[pixel * 4 + 2] | wide[pixel * 4 + 3] << 8;
        ASSERT_NEAR(ours[pixel * 4 + 3], std::lround(alpha / 257.0), 1) << "pixel " << pixel;
        if (alpha == 0) {
            continue;  // a transparent pixel's colour need not survive
        }
        ASSERT_NEAR(ours[pixel * 4], std::lround(grey / 257.0), 1) << "pixel " << pixel;
        ASSERT_EQ(ours[pixel * 4], ours[pixel * 4 + 2]) << "pixel " << pixel;
    }
}

TEST(SavePixelKinds, CmykSourceIsWrittenAsRgbWithoutItsCmykProfile) {
    VELLUMO_REQUIRE_TESTDATA();
    TempDir dir;
    const LoadResult loaded =
        ImageTools::LoadImage(test::TestDataPath("jpeg/Multiple ICC segments.jpg"));
    ASSERT_TRUE(loaded) << loaded.reason();
    for (const auto& [format, name] : {std::pair{OutputFormat::Jpg, "c.jpg"},
                                       {OutputFormat::Png, "c.png"},
                                       {OutputFormat::Tiff, "c.tif"}}) {
        const std::string path = dir.File(name);
        ASSERT_TRUE(ImageTools::SaveImage(*loaded, path, format, 0.9)) << name;
        EXPECT_NE(test::ExifToolValue(path, "ColorSpaceData"), "CMYK") << name;
        EXPECT_EQ(
            test::RunCommand("identify -format '%[colorspace]' " + test::ShellQuote(path)).out,
            "sRGB")
            << name;
    }
}

}  // namespace
}  // namespace vellumo
