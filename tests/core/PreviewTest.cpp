// The window's picture of a file: small, upright, measured at full size.

#include <gtest/gtest.h>

#include <fstream>

#include "imaging/ImageTools.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

TEST(LoadPreview, ScalesALargePhotoDownToFitAndKnowsItsFullSize) {
    test::TempDir dir;
    test::PhotoLikeImage(3000, 2000).jpegsave(dir.File("a.jpg").c_str());
    const PreviewResult preview = ImageTools::LoadPreview(dir.File("a.jpg"), 800);
    ASSERT_TRUE(preview) << preview.reason();
    EXPECT_EQ(preview->fullSize, (Size{3000, 2000}));
    EXPECT_EQ(preview->picture.Width(), 800);
    EXPECT_NEAR(preview->picture.Height(), 533, 1);
}

TEST(LoadPreview, NeverScalesUp) {
    test::TempDir dir;
    test::CoordinateImage(120, 80).pngsave(dir.File("a.png").c_str());
    const PreviewResult preview = ImageTools::LoadPreview(dir.File("a.png"), 800);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->picture.Width(), 120);
    EXPECT_EQ(preview->picture.Height(), 80);
    EXPECT_EQ(test::RawBytes(test::PixelsOf(preview->picture)),
              test::RawBytes(test::CoordinateImage(120, 80)));
}

TEST(LoadPreview, IsUpright) {
    VELLUMO_REQUIRE_TESTDATA();
    const PreviewResult preview =
        ImageTools::LoadPreview(test::TestDataPath("orientation/Landscape_6.jpg"), 300);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->fullSize, (Size{1800, 1200}));
    EXPECT_EQ(preview->picture.Width(), 300);
    EXPECT_EQ(preview->picture.Height(), 200);
}

TEST(LoadPreview, DamagedAndForeignFilesFailWithAReason) {
    VELLUMO_REQUIRE_TESTDATA();
    const PreviewResult truncated =
        ImageTools::LoadPreview(test::TestDataPath("bad/truncated_jpeg.jpg"), 400);
    EXPECT_FALSE(truncated);
    EXPECT_EQ(truncated.reason(), "premature end of input file");
    test::TempDir dir;
    std::ofstream(dir.File("notes.png")) << "hello";
    EXPECT_EQ(ImageTools::LoadPreview(dir.File("notes.png"), 400).reason(),
              "not an image Vellumo reads (a text file)");
}

TEST(RenderRgba8, GivesInterleavedSrgbWithAlpha) {
    const Image image = test::MakeImage(test::CoordinateImage(40, 30));
    const auto bitmap = ImageTools::RenderRgba8(image);
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->width, 40);
    EXPECT_EQ(bitmap->height, 30);
    ASSERT_EQ(bitmap->pixels.size(), 40u * 30u * 4u);
    const std::size_t at = (7u * 40u + 33u) * 4u;  // column 33, row 7
    const test::Rgb expected = test::CoordinatePixel(33, 7);
    EXPECT_EQ(bitmap->pixels[at], expected.r);
    EXPECT_EQ(bitmap->pixels[at + 1], expected.g);
    EXPECT_EQ(bitmap->pixels[at + 2], expected.b);
    EXPECT_EQ(bitmap->pixels[at + 3], 255);
    EXPECT_FALSE(ImageTools::RenderRgba8(Image()));
}

TEST(ImageOfSize, HasTheSizeAndNoPixels) {
    const Image sized = Image::OfSize(4000, 3000);
    EXPECT_EQ(sized.Width(), 4000);
    EXPECT_EQ(sized.Height(), 3000);
    EXPECT_FALSE(sized.IsEmpty());
    EXPECT_FALSE(ImageTools::RenderRgba8(sized));
}

}  // namespace
}  // namespace vellumo
