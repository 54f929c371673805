// Crop, resize, actual size and the preview veil, checked pixel by pixel.

#include <gtest/gtest.h>

#include "imaging/ImageTools.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::CoordinateImage;
using test::CoordinatePixel;
using test::MakeImage;
using test::PixelsOf;
using test::Rgb;

Rgb PixelAt(const vips::VImage& image, int x, int y) {
    const std::vector<double> p = image.getpoint(x, y);
    return {static_cast<std::uint8_t>(p[0]), static_cast<std::uint8_t>(p[1]),
            static_cast<std::uint8_t>(p[2])};
}

// Every pixel of `cut` is the source pixel at (left + x, top + y).
void ExpectCutOf(const vips::VImage& cut, int left, int top) {
    const std::vector<unsigned char> bytes = test::RawBytes(cut);
    ASSERT_EQ(cut.bands(), 3);
    for (int y = 0; y < cut.height(); ++y) {
        for (int x = 0; x < cut.width(); ++x) {
            const unsigned char* p = &bytes[(static_cast<std::size_t>(y) * cut.width() + x) * 3];
            const Rgb expected = CoordinatePixel(left + x, top + y);
            ASSERT_EQ((Rgb{p[0], p[1], p[2]}), expected) << "at " << x << ", " << y;
        }
    }
}

class CropImageTest : public ::testing::Test {
  protected:
    Image source = MakeImage(CoordinateImage(1000, 1000));
};

TEST_F(CropImageTest, WidthBelowOneReturnsTheSameImage) {
    EXPECT_TRUE(ImageTools::CropImage(source, {10, 10, 0.5, 100}).IsSameImage(source));
    EXPECT_TRUE(ImageTools::CropImage(source, {10, 10, 100, 0.5}).IsSameImage(source));
}

TEST_F(CropImageTest, NegativeOriginGivesTheLowerLeftCorner) {
    const Image cut = ImageTools::CropImage(source, {-50, -50, 100, 100});
    EXPECT_FALSE(cut.IsSameImage(source));
    EXPECT_EQ(cut.Width(), 50);
    EXPECT_EQ(cut.Height(), 50);
    const vips::VImage pixels = PixelsOf(cut);
    ASSERT_EQ(pixels.width(), 50);
    ASSERT_EQ(pixels.height(), 50);
    // The lower-left 50 x 50 pixels: rows 950 to 999 from the top.
    ExpectCutOf(pixels, 0, 950);
}

TEST_F(CropImageTest, OriginOnTheRightEdgeReturnsTheInput) {
    EXPECT_TRUE(ImageTools::CropImage(source, {1000, 0, 10, 10}).IsSameImage(source));
}

TEST_F(CropImageTest, OriginBeyondTheImageReturnsTheInput) {
    EXPECT_TRUE(ImageTools::CropImage(source, {1001, 0, 10, 10}).IsSameImage(source));
    EXPECT_TRUE(ImageTools::CropImage(source, {0, 1001, 10, 10}).IsSameImage(source));
}

TEST_F(CropImageTest, NegativeOriginsAreComparedWithTheRequestedSize) {
    // Far to the left and below: the sign tests pass, the clipping leaves
    // nothing, and the input comes back.
    EXPECT_TRUE(ImageTools::CropImage(source, {-500, 10, 100, 10}).IsSameImage(source));
    EXPECT_TRUE(ImageTools::CropImage(source, {10, -500, 10, 100}).IsSameImage(source));
}

TEST_F(CropImageTest, IntegerRectangleCutsExactlyThosePixels) {
    // Origin (100, 200) from the lower left, 300 x 150: the top row of the
    // cut is 1000 - 200 - 150 = 650 from the top.
    const Image cut = ImageTools::CropImage(source, {100, 200, 300, 150});
    EXPECT_EQ(cut.Width(), 300);
    EXPECT_EQ(cut.Height(), 150);
    ExpectCutOf(PixelsOf(cut), 100, 650);
}

TEST_F(CropImageTest, SixteenByNineOfASquareCutsCentredRowsWithoutResampling) {
    const Rect r = ImageTools::AutoCropRectangle(source, ClassicRatio::SixteenNine);
    const Image cut = ImageTools::CropImage(source, r);
    EXPECT_EQ(cut.Width(), 1000);
    EXPECT_EQ(cut.Height(), 562.5);
    const vips::VImage pixels = PixelsOf(cut);
    EXPECT_EQ(pixels.width(), 1000);
    EXPECT_EQ(pixels.height(), 562);
    ExpectCutOf(pixels, 0, 219);  // rows 219 to 780 from the top
}

TEST_F(CropImageTest, ClippedSizeAtTheTopRight) {
    const Image cut = ImageTools::CropImage(source, {950, 980, 100, 50});
    EXPECT_EQ(cut.Width(), 50);
    EXPECT_EQ(cut.Height(), 20);
    ExpectCutOf(PixelsOf(cut), 950, 0);
}

TEST_F(CropImageTest, LessThanOneWholePixelOnTheImageHasNoPixels) {
    const Image cut = ImageTools::CropImage(source, {999.5, 0, 10, 10});
    EXPECT_EQ(cut.Width(), 0.5);
    EXPECT_EQ(cut.Height(), 10);
    EXPECT_THROW(PixelsOf(cut), std::runtime_error);
}

TEST_F(CropImageTest, DoesNotChangeItsInput) {
    const Image cut = ImageTools::CropImage(source, {10, 10, 20, 20});
    EXPECT_EQ(source.Width(), 1000);
    ExpectCutOf(PixelsOf(source), 0, 0);
    EXPECT_EQ(cut.Width(), 20);
}

TEST(ResizeImage, GivesExactlyTheRequestedSize) {
    const Image source = MakeImage(CoordinateImage(101, 77));
    const Image resized = ImageTools::ResizeImage(source, {333, 45});
    EXPECT_EQ(resized.Width(), 333);
    EXPECT_EQ(resized.Height(), 45);
    const vips::VImage pixels = PixelsOf(resized);
    EXPECT_EQ(pixels.width(), 333);
    EXPECT_EQ(pixels.height(), 45);
    EXPECT_EQ(pixels.bands(), 3);
}

TEST(ResizeImage, OfAnEmptyImageIsATransparentCanvas) {
    const Image resized = ImageTools::ResizeImage(Image(), {4, 3});
    const vips::VImage pixels = PixelsOf(resized);
    EXPECT_EQ(pixels.bands(), 4);
    EXPECT_EQ(pixels.max(), 0);
}

TEST(BringImageToActualSize, SameSizeReturnsTheSameObject) {
    test::TempDir dir;
    const vips::VImage pixels = CoordinateImage(64, 48);
    pixels.pngsave(dir.File("a.png").c_str());
    const Image image = MakeImage(pixels);
    EXPECT_TRUE(ImageTools::BringImageToActualSize(image, dir.File("a.png")).IsSameImage(image));
}

TEST(BringImageToActualSize, ARecordedSizeThatDiffersIsRedrawnAtThePixelSize) {
    // An image whose logical size is smaller than its file's pixel size (as
    // when a file records a smaller point size) is measured in pixels.
    test::TempDir dir;
    CoordinateImage(400, 300).pngsave(dir.File("big.png").c_str());
    const Image small = ImageTools::ResizeImage(MakeImage(CoordinateImage(400, 300)), {200, 150});
    const Image actual = ImageTools::BringImageToActualSize(small, dir.File("big.png"));
    EXPECT_FALSE(actual.IsSameImage(small));
    EXPECT_EQ(actual.Width(), 400);
    EXPECT_EQ(actual.Height(), 300);
    EXPECT_EQ(PixelsOf(actual).width(), 400);
}

TEST(BringImageToActualSize, UnreadableFileStopsTheProgram) {
    const Image image = MakeImage(CoordinateImage(8, 8));
    EXPECT_DEATH(ImageTools::BringImageToActualSize(image, "/nonexistent/x.png"), "pixel size");
}

class OverlayTest : public ::testing::Test {
  protected:
    static vips::VImage Black(int w, int h) {
        return vips::VImage::black(w, h, vips::VImage::option()->set("bands", 3))
            .cast(VIPS_FORMAT_UCHAR)
            .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    }
};

TEST_F(OverlayTest, FullRectangleLeavesAnOpaqueImageUnchanged) {
    const Image black = MakeImage(Black(40, 30));
    const vips::VImage out = PixelsOf(ImageTools::VeilOutsideRectangle(black, {0, 0, 40, 30}));
    ASSERT_EQ(out.bands(), 4);
    EXPECT_EQ(out.width(), 40);
    EXPECT_EQ(out.height(), 30);
    EXPECT_EQ(out.extract_band(0, vips::VImage::option()->set("n", 3)).max(), 0);
    EXPECT_EQ(out[3].min(), 255);
}

TEST_F(OverlayTest, EmptyRectangleVeilsEveryPixelToSixtyPercentGrey) {
    const Image black = MakeImage(Black(40, 30));
    const vips::VImage out = PixelsOf(ImageTools::VeilOutsideRectangle(black, {0, 0, 0, 0}));
    for (int band = 0; band < 3; ++band) {
        EXPECT_EQ(out[band].min(), 153);
        EXPECT_EQ(out[band].max(), 153);
    }
    EXPECT_EQ(out[3].min(), 255);
}

TEST_F(OverlayTest, InsideUnchangedOutsideVeiledWithLowerLeftOrigin) {
    const vips::VImage source = CoordinateImage(100, 80);
    const Image image = MakeImage(source);
    // 20 x 10 rectangle whose lower edge is 5 rows above the bottom: rows
    // 65 to 74 from the top, columns 30 to 49.
    const vips::VImage out = PixelsOf(ImageTools::VeilOutsideRectangle(image, {30, 5, 20, 10}));
    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 100; x += 7) {
            const bool inside = x >= 30 && x < 50 && y >= 65 && y < 75;
            const Rgb original = CoordinatePixel(x, y);
            const Rgb shown = PixelAt(out, x, y);
            if (inside) {
                ASSERT_EQ(shown, original) << x << "," << y;
            } else {
                const auto veiled = [](std::uint8_t v) {
                    return static_cast<std::uint8_t>(0.6 * 255 + 0.4 * v + 0.5);
                };
                ASSERT_NEAR(shown.r, veiled(original.r), 1) << x << "," << y;
                ASSERT_NEAR(shown.g, veiled(original.g), 1) << x << "," << y;
                ASSERT_NEAR(shown.b, veiled(original.b), 1) << x << "," << y;
            }
        }
    }
}

TEST_F(OverlayTest, TransparentPixelsOutsideBecomeTheVeil) {
    // Fully transparent image: outside the veil is white at alpha 0.6,
    // inside stays transparent.
    const vips::VImage clear =
        vips::VImage::black(10, 10, vips::VImage::option()->set("bands", 4))
            .cast(VIPS_FORMAT_UCHAR)
            .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    const vips::VImage out =
        PixelsOf(ImageTools::VeilOutsideRectangle(MakeImage(clear), {0, 0, 5, 10}));
    const std::vector<double> outside = out.getpoint(9, 0);
    EXPECT_EQ(outside[0], 255);
    EXPECT_EQ(outside[3], 153);
    const std::vector<double> inside = out.getpoint(0, 0);
    EXPECT_EQ(inside[3], 0);
}

}  // namespace
}  // namespace vellumo
