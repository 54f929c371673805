// The decoded box of a planned JPEG decode reads the same whatever order
// libvips' threads ask for its rows in: a read behind the decoder's row
// starts the decode again, a read ahead skips to it.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "imaging/JpegDecodePlan.h"
#include "imaging/JpegRegionDecode.h"
#include "imaging/VipsRuntime.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

// A 1600 x 1200 JPEG with detail in every row, so that rows read from the
// wrong place differ.
std::string WriteDetailedJpeg(const test::TempDir& dir) {
    const vips::VImage noise = vips::VImage::gaussnoise(1600, 1200) * 2;
    const vips::VImage rows = vips::VImage::xyz(1600, 1200)[1];
    vips::VImage rgb = (noise + rows.remainder_const({251})).cast(VIPS_FORMAT_UCHAR);
    rgb = rgb.bandjoin({rgb * 0.5, 255 - rgb}).cast(VIPS_FORMAT_UCHAR);
    rgb = rgb.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    std::string path = dir.File("detail.jpg");
    rgb.jpegsave(path.c_str(), vips::VImage::option()->set("Q", 90));
    return path;
}

vips::VImage Decoded(const std::string& path, const JpegDecodePlan& plan) {
    std::optional<vips::VImage> box = jpegregion::Decode(path, {1600, 1200}, plan);
    EXPECT_TRUE(box.has_value());
    return box.value_or(vips::VImage::black(1, 1));
}

std::vector<unsigned char> Rows(const vips::VImage& image, int top, int height) {
    return test::RawBytes(image.crop(0, top, image.width(), height));
}

class JpegRegionDecodeTest : public ::testing::TestWithParam<JpegDecodePlan> {
  protected:
    void SetUp() override { vipsruntime::EnsureStarted(); }
};

TEST_P(JpegRegionDecodeTest, RowsReadOutOfOrderAreThoseReadInOrder) {
    const test::TempDir dir;
    const std::string path = WriteDetailedJpeg(dir);
    const JpegDecodePlan plan = GetParam();
    const vips::VImage inOrder = Decoded(path, plan).copy_memory();
    ASSERT_EQ(inOrder.width(), plan.decoded.width);
    ASSERT_EQ(inOrder.height(), plan.decoded.height);

    const vips::VImage box = Decoded(path, plan);
    const int height = plan.decoded.height;
    // The last rows first, then the first (long gone from libvips' cache),
    // then rows from the middle.
    EXPECT_EQ(Rows(box, height - 8, 8), Rows(inOrder, height - 8, 8));
    EXPECT_EQ(Rows(box, 0, 40), Rows(inOrder, 0, 40));
    EXPECT_EQ(Rows(box, height / 2, 24), Rows(inOrder, height / 2, 24));
}

INSTANTIATE_TEST_SUITE_P(
    Scales, JpegRegionDecodeTest,
    ::testing::Values(JpegDecodePlan{8, {100, 50, 1200, 900}, {100, 50, 1200, 900}},
                      JpegDecodePlan{4, {96, 48, 1200, 896}, {48, 24, 600, 448}}),
    [](const ::testing::TestParamInfo<JpegDecodePlan>& info) {
        return "Eighths" + std::to_string(info.param.eighths);
    });

}  // namespace
}  // namespace vellumo
