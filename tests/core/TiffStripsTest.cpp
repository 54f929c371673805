// A TIFF read for one crop is read by strips where the crop needs them: the
// pixels are those libvips' TIFF decoder gives, and a damaged strip fails the
// image. (What a crop of a huge page holds: StreamingTest.)

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

// The crop job opens each image once (OpenImage); LoadImage reads every
// pixel through libvips' own decoder first.
void ExpectSamePixelsBothWays(const std::string& path) {
    SCOPED_TRACE(path);
    const LoadResult checked = ImageTools::LoadImage(path);
    if (!checked) {
        return;  // refused before any pixel is written; nothing to compare
    }
    const LoadResult once = ImageTools::OpenImage(path);
    ASSERT_TRUE(once) << once.reason();
    const vips::VImage expected = test::PixelsOf(*checked);
    const vips::VImage actual = test::PixelsOf(*once);
    ASSERT_EQ(actual.width(), expected.width());
    ASSERT_EQ(actual.height(), expected.height());
    ASSERT_EQ(actual.bands(), expected.bands());
    ASSERT_EQ(actual.format(), expected.format());
    EXPECT_EQ(test::RawBytes(actual), test::RawBytes(expected));
}

TEST(TiffStrips, RealWorldTiffFilesGiveTheDecodersPixels) {
    VELLUMO_REQUIRE_TESTDATA();
    int files = 0;
    for (const char* folder : {"tiff", "bad", "orientation"}) {
        for (const auto& entry : std::filesystem::directory_iterator(test::TestDataPath(folder))) {
            const std::string name = entry.path().filename().string();
            if (name.ends_with(".tif") || name.ends_with(".tiff")) {
                ExpectSamePixelsBothWays(entry.path().string());
                ++files;
            }
        }
    }
    EXPECT_GE(files, 20);
}

// Stripped files of every layout the strip reader takes, written by
// ImageMagick, with pixels that name their own coordinates.
TEST(TiffStrips, EveryLayoutCropsToTheExactPixels) {
    test::TempDir dir;
    const std::string source = dir.File("coordinates.png");
    test::CoordinateImage(701, 333).pngsave(source.c_str());
    const std::vector<std::string> layouts = {
        "-compress none -define tiff:rows-per-strip=1",
        "-compress lzw -define tiff:rows-per-strip=7",
        "-compress zip -define tiff:predictor=2 -define tiff:rows-per-strip=64",
        "-compress rle -define tiff:rows-per-strip=333",
        "-compress lzw -alpha set -define tiff:alpha=unassociated -define tiff:rows-per-strip=5",
        "-compress zip -depth 16 -define tiff:rows-per-strip=9",
        "-compress none -depth 16 -define tiff:endian=msb -define tiff:rows-per-strip=11",
        "-compress none -colorspace gray -type grayscale -define tiff:rows-per-strip=10",
    };
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        SCOPED_TRACE(layouts[i]);
        const std::string path = dir.File("layout" + std::to_string(i) + ".tif");
        ASSERT_EQ(test::RunCommand("convert " + test::ShellQuote(source) + " " + layouts[i] + " " +
                                   test::ShellQuote(path))
                      .exitCode,
                  0);
        ExpectSamePixelsBothWays(path);
        // A crop from the lower-left origin: rows 200 to 299 from the top.
        const LoadResult once = ImageTools::OpenImage(path);
        ASSERT_TRUE(once) << once.reason();
        const vips::VImage cut =
            test::PixelsOf(ImageTools::CropImage(*once, {300, 333 - 300, 101, 100}));
        ASSERT_EQ(cut.width(), 101);
        ASSERT_EQ(cut.height(), 100);
        const std::vector<double> corner = cut.getpoint(0, 0);
        if (cut.bands() >= 3 && cut.format() == VIPS_FORMAT_UCHAR) {
            const test::Rgb expected = test::CoordinatePixel(300, 200);
            EXPECT_EQ(corner[0], expected.r);
            EXPECT_EQ(corner[1], expected.g);
            EXPECT_EQ(corner[2], expected.b);
        }
    }
}

TEST(TiffStrips, ADamagedStripFailsTheImageWithAReason) {
    test::TempDir dir;
    const std::string path = dir.File("cut.tif");
    test::PhotoLikeImage(600, 400).tiffsave(
        path.c_str(),
        vips::VImage::option()->set("compression", VIPS_FOREIGN_TIFF_COMPRESSION_LZW));
    // Strips are written first, the directory last: overwrite the middle of
    // the strips with codes no LZW table holds, keeping the directory.
    const auto size = std::filesystem::file_size(path);
    {
        std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(static_cast<std::streamoff>(size / 3));
        for (int i = 0; i < 4096; ++i) {
            file.put(static_cast<char>(0xff));
        }
    }
    const LoadResult once = ImageTools::OpenImage(path);
    ASSERT_TRUE(once) << once.reason();  // the header is whole
    // Reading the pixels is what fails, as a VError the save turns into a
    // failed image with libtiff's reason.
    try {
        (void)test::PixelsOf(*once);
        ADD_FAILURE() << "the damaged strip was read";
    } catch (const vips::VError& error) {
        EXPECT_NE(std::string(error.what()).find("cannot be decoded: "), std::string::npos)
            << error.what();
    }
}

}  // namespace
}  // namespace vellumo
