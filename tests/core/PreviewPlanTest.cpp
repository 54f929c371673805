// The preview and the contact sheet's thumbnails are decoded no larger than
// they are shown: a JPEG 2000 at a coarser resolution level, a WebP scaled
// by libwebp, a HEIF from its own thumbnail when that is large enough and
// of the image's shape. Each must equal what libvips gives for the same
// reduced decode, resized as the preview is.

#include <gtest/gtest.h>
#include <libheif/heif.h>

#include <cstring>
#include <string>

#include "imaging/ImageTools.h"
#include "imaging/VipsRuntime.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

// What LoadPreview does after the decode: fit in maxSide, upright.
vips::VImage Fitted(const vips::VImage& decoded, int maxSide) {
    return decoded
        .thumbnail_image(maxSide,
                         vips::VImage::option()->set("height", maxSide)->set("no_rotate", true))
        .copy_memory();
}

double LargestDifference(const vips::VImage& a, const vips::VImage& b) {
    return (a.cast(VIPS_FORMAT_FLOAT) - b.cast(VIPS_FORMAT_FLOAT)).abs().max();
}

vips::VImage PreviewPixels(const std::string& path, int maxSide) {
    const PreviewResult preview = ImageTools::LoadPreview(path, maxSide);
    EXPECT_TRUE(preview) << preview.reason();
    return preview ? test::PixelsOf(preview->picture) : vips::VImage::black(1, 1);
}

TEST(PreviewPlanTest, Jpeg2000IsDecodedAtTheCoarsestLevelThatFills) {
    vipsruntime::EnsureStarted();
    const test::TempDir dir;
    const std::string path = dir.File("photo.jp2");
    test::PhotoLikeImage(2000, 1500).jp2ksave(path.c_str());
    // 2000 -> 1000 -> 500 -> 250: two levels down still fill 400.
    const vips::VImage reduced =
        vips::VImage::new_from_file(path.c_str(), vips::VImage::option()->set("page", 2));
    ASSERT_EQ(reduced.width(), 500);
    const vips::VImage shown = PreviewPixels(path, 400);
    EXPECT_EQ(shown.width(), 400);
    EXPECT_EQ(shown.height(), 300);
    EXPECT_EQ(LargestDifference(shown, Fitted(reduced, 400)), 0.0);
    const PreviewResult preview = ImageTools::LoadPreview(path, 400);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->fullSize.width, 2000);
}

TEST(PreviewPlanTest, Jpeg2000OfTheTestDataTakesItsLevels) {
    VELLUMO_REQUIRE_TESTDATA();
    vipsruntime::EnsureStarted();
    const std::string path = test::TestDataPath("jp2/file1.jp2");  // 768 x 512
    const vips::VImage reduced =
        vips::VImage::new_from_file(path.c_str(), vips::VImage::option()->set("page", 2));
    ASSERT_EQ(reduced.width(), 192);
    EXPECT_EQ(LargestDifference(PreviewPixels(path, 150), Fitted(reduced, 150)), 0.0);
}

TEST(PreviewPlanTest, WebpIsScaledByItsDecoder) {
    vipsruntime::EnsureStarted();
    const test::TempDir dir;
    const std::string path = dir.File("photo.webp");
    test::PhotoLikeImage(3000, 2000).webpsave(path.c_str());
    // Scaled to leave the resize a reduction of 1.5: 400 * 1.5 of 3000.
    const vips::VImage scaled =
        vips::VImage::new_from_file(path.c_str(), vips::VImage::option()->set("scale", 0.2));
    ASSERT_EQ(scaled.width(), 600);
    const vips::VImage shown = PreviewPixels(path, 400);
    EXPECT_EQ(shown.width(), 400);
    EXPECT_EQ(LargestDifference(shown, Fitted(scaled, 400)), 0.0);
}

// An 8-bit RGB picture of one colour for libheif.
heif_image* PlainHeifImage(int width, int height, unsigned char r, unsigned char g,
                           unsigned char b) {
    heif_image* image = nullptr;
    heif_image_create(width, height, heif_colorspace_RGB, heif_chroma_interleaved_RGB, &image);
    heif_image_add_plane(image, heif_channel_interleaved, width, height, 8);
    int stride = 0;
    uint8_t* plane = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            uint8_t* pixel = plane + static_cast<std::ptrdiff_t>(y) * stride + x * 3;
            pixel[0] = r;
            pixel[1] = g;
            pixel[2] = b;
        }
    }
    return image;
}

// A red 1600 x 1200 HEIF whose thumbnail, at most `bbox` pixels, is made
// from a blue picture of `thumbWidth` x `thumbHeight`: which of the two a
// preview shows tells which was decoded.
std::string WriteHeifWithBlueThumbnail(const test::TempDir& dir, const std::string& name,
                                       int thumbWidth, int thumbHeight, int bbox) {
    heif_context* context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder);
    heif_image* red = PlainHeifImage(1600, 1200, 220, 20, 20);
    heif_image* blue = PlainHeifImage(thumbWidth, thumbHeight, 20, 20, 220);
    heif_image_handle* primary = nullptr;
    heif_context_encode_image(context, red, encoder, nullptr, &primary);
    heif_image_handle* thumbnail = nullptr;
    heif_context_encode_thumbnail(context, blue, primary, encoder, nullptr, bbox, &thumbnail);
    std::string path = dir.File(name);
    const heif_error written = heif_context_write_to_file(context, path.c_str());
    EXPECT_EQ(written.code, heif_error_Ok) << written.message;
    heif_image_handle_release(thumbnail);
    heif_image_handle_release(primary);
    heif_image_release(blue);
    heif_image_release(red);
    heif_encoder_release(encoder);
    heif_context_free(context);
    return path;
}

bool IsBlue(const vips::VImage& picture) {
    return picture[2].avg() > 150 && picture[0].avg() < 80;
}

TEST(PreviewPlanTest, HeifShowsItsOwnThumbnailWhenItIsLargeEnough) {
    vipsruntime::EnsureStarted();
    const test::TempDir dir;
    const std::string path = WriteHeifWithBlueThumbnail(dir, "a.heic", 1600, 1200, 512);
    const vips::VImage small = PreviewPixels(path, 400);
    EXPECT_TRUE(IsBlue(small));
    EXPECT_EQ(small.width(), 400);
    EXPECT_EQ(small.height(), 300);
    // Larger than the thumbnail: the image itself.
    const vips::VImage large = PreviewPixels(path, 800);
    EXPECT_FALSE(IsBlue(large));
    EXPECT_EQ(large.width(), 800);
    const PreviewResult preview = ImageTools::LoadPreview(path, 400);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->fullSize.width, 1600);
}

TEST(PreviewPlanTest, HeifThumbnailOfAnotherShapeIsNotShown) {
    vipsruntime::EnsureStarted();
    const test::TempDir dir;
    const std::string path = WriteHeifWithBlueThumbnail(dir, "square.heic", 1200, 1200, 512);
    const vips::VImage shown = PreviewPixels(path, 400);
    EXPECT_FALSE(IsBlue(shown));
    EXPECT_EQ(shown.width(), 400);
    EXPECT_EQ(shown.height(), 300);
}

}  // namespace
}  // namespace vellumo
