// Loading by content, refusing what is not one of the six image kinds, and
// failing on damage instead of inventing pixels.

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

using test::CoordinateImage;
using test::TempDir;
using test::TestDataPath;

void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// `path` cut down to its first `keep` bytes, written as `name` in `dir`.
std::string Truncated(const TempDir& dir, const std::string& path, std::size_t keep,
                      const std::string& name) {
    const std::string cut = ReadBytes(path).substr(0, keep);
    WriteBytes(dir.File(name), cut);
    return dir.File(name);
}

TEST(LoadImage, DecodesEveryAcceptedExtensionByContent) {
    TempDir dir;
    const vips::VImage pixels = CoordinateImage(120, 80);
    pixels.jpegsave(dir.File("a.jpg").c_str());
    std::filesystem::copy_file(dir.File("a.jpg"), dir.File("a.jpeg"));
    std::filesystem::copy_file(dir.File("a.jpg"), dir.File("a.jpe"));
    pixels.jp2ksave(dir.File("a.jp2").c_str());
    std::filesystem::copy_file(dir.File("a.jp2"), dir.File("a.jpx"));
    pixels.pngsave(dir.File("a.png").c_str());
    pixels.gifsave(dir.File("a.gif").c_str());
    pixels.tiffsave(dir.File("a.tif").c_str());
    std::filesystem::copy_file(dir.File("a.tif"), dir.File("a.tiff"));
    pixels.magicksave(dir.File("a.bmp").c_str(), vips::VImage::option()->set("format", "bmp3"));
    for (const char* name : {"a.jpg", "a.jpeg", "a.jpe", "a.jp2", "a.jpx", "a.png", "a.gif",
                             "a.tif", "a.tiff", "a.bmp"}) {
        const LoadResult loaded = ImageTools::LoadImage(dir.File(name));
        ASSERT_TRUE(loaded.has_value()) << name << ": " << loaded.reason();
        EXPECT_EQ(loaded->Width(), 120) << name;
        EXPECT_EQ(loaded->Height(), 80) << name;
    }
}

TEST(LoadImage, ExtensionThatLiesAboutTheContentStillLoads) {
    TempDir dir;
    CoordinateImage(30, 20).pngsave(dir.File("really-a-png.jpg").c_str());
    const LoadResult loaded = ImageTools::LoadImage(dir.File("really-a-png.jpg"));
    ASSERT_TRUE(loaded) << loaded.reason();
    // Lossless: the exact pixels prove the PNG decoder read it.
    EXPECT_EQ(test::RawBytes(test::PixelsOf(*loaded)), test::RawBytes(CoordinateImage(30, 20)));
}

TEST(LoadImage, RefusesContentThatIsNotOneOfTheSixKinds) {
    TempDir dir;
    WriteBytes(dir.File("drawing.png"),
               "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10\" "
               "height=\"10\"><rect width=\"10\" height=\"10\"/></svg>");
    WriteBytes(dir.File("document.png"), "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n1 0 obj\n<<>>\nendobj\n");
    WriteBytes(dir.File("script.jpg"), "%!PS-Adobe-3.0\nshowpage\n");
    WriteBytes(dir.File("notes.bmp"), "just some text, no picture\n");
    WriteBytes(dir.File("empty.gif"), "");

    const struct {
        const char* name;
        const char* reason;
    } cases[] = {
        {"drawing.png", "not an image Vellumo reads (an SVG or XML file)"},
        {"document.png", "not an image Vellumo reads (a PDF document)"},
        {"script.jpg", "not an image Vellumo reads (a PostScript file)"},
        {"notes.bmp", "not an image Vellumo reads (a text file)"},
        {"empty.gif", "the file is empty"},
    };
    for (const auto& c : cases) {
        const LoadResult loaded = ImageTools::LoadImage(dir.File(c.name));
        EXPECT_FALSE(loaded.has_value()) << c.name;
        EXPECT_EQ(loaded.reason(), c.reason) << c.name;
        EXPECT_FALSE(ImageTools::PixelSizeOfFile(dir.File(c.name)).has_value()) << c.name;
    }
}

TEST(LoadImage, MissingFileAndFolderGiveReasons) {
    TempDir dir;
    EXPECT_EQ(ImageTools::LoadImage(dir.File("gone.png")).reason(),
              "cannot open: No such file or directory");
    std::filesystem::create_directory(dir.File("folder.png"));
    EXPECT_EQ(ImageTools::LoadImage(dir.File("folder.png")).reason(),
              "a folder, not an image file");
}

TEST(LoadImage, TruncatedPngFailsInsteadOfFillingGreyRows) {
    TempDir dir;
    test::PhotoLikeImage(1000, 1000).pngsave(dir.File("whole.png").c_str());
    const std::string cut = Truncated(dir, dir.File("whole.png"), 3000, "cut.png");
    const LoadResult loaded = ImageTools::LoadImage(cut);
    EXPECT_FALSE(loaded.has_value());
    EXPECT_FALSE(loaded.reason().empty());
    // The header is intact, so the size is still known.
    const auto size = ImageTools::PixelSizeOfFile(cut);
    ASSERT_TRUE(size.has_value());
    EXPECT_EQ(*size, (Size{1000, 1000}));
}

TEST(LoadImage, TruncatedJpegFailsWithTheDecodersReason) {
    TempDir dir;
    test::PhotoLikeImage(800, 600).jpegsave(dir.File("whole.jpg").c_str());
    const std::size_t full = std::filesystem::file_size(dir.File("whole.jpg"));
    const std::string cut = Truncated(dir, dir.File("whole.jpg"), full / 2, "cut.jpg");
    const LoadResult loaded = ImageTools::LoadImage(cut);
    EXPECT_FALSE(loaded.has_value());
    EXPECT_EQ(loaded.reason(), "premature end of input file");
}

TEST(LoadImage, DamagedRealFilesFailWithAReason) {
    VELLUMO_REQUIRE_TESTDATA();
    const struct {
        const char* file;
        const char* reason;
    } cases[] = {
        {"bad/truncated_jpeg.jpg", "premature end of input file"},
        {"bad/corrupted.jpg", "corrupt JPEG data: premature end of data segment"},
        {"bad/xhdn0g08.png", "IHDR: CRC error"},
        {"bad/badwidth.bmp", "negative or zero image size"},
        {"bad/broken1.jp2",
         "stream error while reading JP2 Header box: box length is inconsistent"},
        {"bad/decompression_bomb.gif", "unexpected end of GIF source data"},
        {"jpeg/monkey12.jpg", "unsupported JPEG data precision 12"},
    };
    for (const auto& c : cases) {
        const LoadResult loaded = ImageTools::LoadImage(TestDataPath(c.file));
        EXPECT_FALSE(loaded.has_value()) << c.file;
        EXPECT_EQ(loaded.reason(), c.reason) << c.file;
    }
}

TEST(LoadImage, DecoderWarningsDoNotReachTheTerminal) {
    VELLUMO_REQUIRE_TESTDATA();
    ::testing::internal::CaptureStderr();
    for (const char* file : {"bad/corrupted.jpg", "bad/truncated_jpeg.jpg", "bad/badrle.bmp",
                             "bad/c8c1a5675f82021d92b928a10c597bad.jpg", "png/basn0g01.png"}) {
        (void)ImageTools::LoadImage(TestDataPath(file));
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(LoadImage, RealFilesOfEveryKindLoadAtTheirSize) {
    VELLUMO_REQUIRE_TESTDATA();
    const struct {
        const char* file;
        double width, height;
    } cases[] = {
        {"jpeg/Canon_40D.jpg", 100, 68},
        {"jpeg/pil_sample_cmyk.jpg", 100, 100},
        {"png/basn3p08.png", 32, 32},
        {"png/basn6a16.png", 32, 32},
        {"gif/hopper.gif", 128, 128},
        {"tiff/quad-lzw.tif", 512, 384},
        {"tiff/tiff_16bit_RGBa.tiff", 100, 40},
        {"jp2/file1.jp2", 768, 512},
        {"jp2/balloon.jpx", 2717, 3701},
        {"bmp/pal8.bmp", 127, 64},
        {"bmp/rgba32.bmp", 127, 64},
        {"bmp/MEMSIZE.BMP", 64, 64},
    };
    for (const auto& c : cases) {
        const LoadResult loaded = ImageTools::LoadImage(TestDataPath(c.file));
        ASSERT_TRUE(loaded.has_value()) << c.file << ": " << loaded.reason();
        EXPECT_EQ(loaded->Width(), c.width) << c.file;
        EXPECT_EQ(loaded->Height(), c.height) << c.file;
        const test::MagickSize magick = test::MagickIdentifySize(TestDataPath(c.file));
        EXPECT_EQ(magick.width, c.width) << c.file;
        EXPECT_EQ(magick.height, c.height) << c.file;
    }
}

TEST(OpenImage, GivesTheSamePixelsAsLoadImageWithoutDecodingFirst) {
    TempDir dir;
    test::PhotoLikeImage(640, 480).jpegsave(dir.File("a.jpg").c_str());
    const LoadResult opened = ImageTools::OpenImage(dir.File("a.jpg"));
    const LoadResult loaded = ImageTools::LoadImage(dir.File("a.jpg"));
    ASSERT_TRUE(opened && loaded);
    EXPECT_EQ(opened->Width(), 640);
    EXPECT_EQ(test::RawBytes(test::PixelsOf(*opened)), test::RawBytes(test::PixelsOf(*loaded)));
}

TEST(OpenImage, DamageIsFoundWhenTheDamagedRowsAreRead) {
    TempDir dir;
    test::PhotoLikeImage(800, 600).jpegsave(dir.File("whole.jpg").c_str());
    const std::size_t full = std::filesystem::file_size(dir.File("whole.jpg"));
    const std::string cut = Truncated(dir, dir.File("whole.jpg"), full / 2, "cut.jpg");
    const LoadResult opened = ImageTools::OpenImage(cut);
    ASSERT_TRUE(opened) << "the header is whole";
    EXPECT_THROW(test::PixelsOf(*opened), vips::VError);
}

TEST(OpenImage, TurnedPhotosAreUprightAsWithLoadImage) {
    VELLUMO_REQUIRE_TESTDATA();
    const LoadResult opened = ImageTools::OpenImage(TestDataPath("orientation/Landscape_6.jpg"));
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->Width(), 1800);
    EXPECT_EQ(opened->Height(), 1200);
}

TEST(ImagePixelSize, IsTheMaximumOverPagesOfDifferentSizes) {
    TempDir dir;
    CoordinateImage(300, 40).pngsave(dir.File("wide.png").c_str());
    CoordinateImage(50, 200).pngsave(dir.File("tall.png").c_str());
    ASSERT_EQ(test::RunCommand("convert " + test::ShellQuote(dir.File("wide.png")) + " " +
                               test::ShellQuote(dir.File("tall.png")) + " " +
                               test::ShellQuote(dir.File("pages.tif")))
                  .exitCode,
              0);
    const auto size = ImageTools::PixelSizeOfFile(dir.File("pages.tif"));
    ASSERT_TRUE(size.has_value());
    EXPECT_EQ(*size, (Size{300, 200}));
    // The image itself is the first page.
    const LoadResult first = ImageTools::LoadImage(dir.File("pages.tif"));
    ASSERT_TRUE(first);
    EXPECT_EQ(first->Width(), 300);
    EXPECT_EQ(first->Height(), 40);
}

TEST(ImagePixelSize, IsUprightForTurnedPhotos) {
    VELLUMO_REQUIRE_TESTDATA();
    const auto size = ImageTools::PixelSizeOfFile(TestDataPath("orientation/Landscape_6.jpg"));
    ASSERT_TRUE(size.has_value());
    EXPECT_EQ(*size, (Size{1800, 1200}));
}

TEST(ImagePixelSize, ReadsHeadersOnly) {
    // A truncated file whose header is whole still has a size; the pixels
    // are never decoded for it.
    TempDir dir;
    test::PhotoLikeImage(640, 480).jpegsave(dir.File("whole.jpg").c_str());
    const std::string cut = Truncated(dir, dir.File("whole.jpg"), 2000, "cut.jpg");
    EXPECT_EQ(ImageTools::PixelSizeOfFile(cut), (Size{640, 480}));
    EXPECT_FALSE(ImageTools::PixelSizeOfFile(dir.File("none.jpg")).has_value());
}

}  // namespace
}  // namespace vellumo
