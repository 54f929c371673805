// The small picture a camera stores in a JPEG's Exif block: read from real
// camera photos and from files whose thumbnail exiftool wrote, compared with
// what exiftool extracts; refused when the file has none, when it is too
// small, or when its shape is not the photo's.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::RunCommand;
using test::ShellQuote;
using test::TestDataPath;

// The thumbnail as exiftool extracts it, decoded and turned upright by
// ImageMagick as the file's orientation says.
std::vector<unsigned char> ExtractedUpright(const test::TempDir& dir, const std::string& path,
                                            int orientation) {
    const std::string thumbnail = dir.File("extracted.jpg");
    const std::string command =
        "exiftool -b -ThumbnailImage " + ShellQuote(path) + " > " + ShellQuote(thumbnail);
    EXPECT_EQ(RunCommand(command).exitCode, 0);
    static const char* const kNames[] = {"TopLeft", "TopRight", "BottomRight", "BottomLeft",
                                         "LeftTop", "RightTop", "RightBottom", "LeftBottom"};
    const std::string turn = std::string("-orient ") + kNames[orientation - 1] + " -auto-orient";
    return test::MagickPixels(thumbnail, turn, "rgb", 8);
}

std::vector<unsigned char> Pixels(const Preview& preview) {
    return test::RawBytes(*ImageAccess::Pixels(preview.picture));
}

struct CameraPhoto {
    const char* path;
    int orientation;
};

class EmbeddedThumbnailPhotoTest : public ::testing::TestWithParam<CameraPhoto> {};

void PrintTo(const CameraPhoto& photo, std::ostream* out) {
    *out << photo.path;
}

TEST_P(EmbeddedThumbnailPhotoTest, IsWhatExiftoolExtractsTurnedUpright) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string path = TestDataPath(GetParam().path);
    const PreviewResult embedded = ImageTools::LoadEmbeddedThumbnail(path, 100);
    ASSERT_TRUE(embedded) << embedded.reason();
    EXPECT_EQ(embedded->fullSize, ImageTools::PixelSizeOfFile(path).value());
    const test::TempDir dir;
    EXPECT_EQ(Pixels(*embedded), ExtractedUpright(dir, path, GetParam().orientation));
    // Upright, as the photo: the longer side where the photo's is.
    EXPECT_EQ(embedded->picture.Width() > embedded->picture.Height(),
              embedded->fullSize.width > embedded->fullSize.height);
}

INSTANTIATE_TEST_SUITE_P(RealCameras, EmbeddedThumbnailPhotoTest,
                         ::testing::Values(CameraPhoto{"orientation/Apple iPhone 5.jpg", 3},
                                           CameraPhoto{"orientation/Canon PowerShot A85.jpg", 8},
                                           CameraPhoto{"orientation/canon_hdr_YES.jpg", 6}));

TEST(EmbeddedThumbnailTest, AFileWithoutOneOrTooSmallAOneIsRefused) {
    VELLUMO_REQUIRE_TESTDATA();
    EXPECT_FALSE(ImageTools::LoadEmbeddedThumbnail(TestDataPath("orientation/Landscape_1.jpg"), 1));
    EXPECT_FALSE(ImageTools::LoadEmbeddedThumbnail(TestDataPath("png/basn2c08.png"), 1));
    EXPECT_FALSE(
        ImageTools::LoadEmbeddedThumbnail(TestDataPath("orientation/Apple iPhone 5.jpg"), 400));
}

// A 3:2 photo given a thumbnail by exiftool: one of its shape is read, one
// of 4:3 (a camera's thumbnail with black bars) is refused.
TEST(EmbeddedThumbnailTest, OnlyAThumbnailOfThePhotosShapeStandsIn) {
    const test::TempDir dir;
    const std::string photo = dir.File("photo.jpg");
    test::PhotoLikeImage(1500, 1000).jpegsave(photo.c_str());
    const std::string fitting = dir.File("fitting.jpg");
    test::PhotoLikeImage(150, 100).jpegsave(fitting.c_str());
    const std::string barred = dir.File("barred.jpg");
    test::PhotoLikeImage(160, 120).jpegsave(barred.c_str());
    const auto give = [&](const std::string& thumbnail) {
        const std::string command = "exiftool -q -overwrite_original " +
                                    ShellQuote("-ThumbnailImage<=" + thumbnail) + " " +
                                    ShellQuote(photo);
        ASSERT_EQ(RunCommand(command).exitCode, 0);
    };
    give(fitting);
    const PreviewResult read = ImageTools::LoadEmbeddedThumbnail(photo, 100);
    ASSERT_TRUE(read) << read.reason();
    EXPECT_EQ(Pixels(*read), test::MagickPixels(fitting, "", "rgb", 8));
    EXPECT_EQ(read->fullSize, (Size{1500, 1000}));
    give(barred);
    EXPECT_FALSE(ImageTools::LoadEmbeddedThumbnail(photo, 100));
}

}  // namespace
}  // namespace vellumo
