// A crop that is made smaller is decoded straight from the JPEG at a reduced
// scale, only under the cut: its pixels must stay as good as the full
// decode's, cut and resized with Lanczos3 (at least as good as
// `vips thumbnail` makes the same job, less 0.3 dB), and in the same place
// (within half an output pixel), for every orientation.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "imaging/ImageTools.h"
#include "imaging/JpegDecodePlan.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::TestDataPath;

// How far `vips thumbnail`'s quality may be above ours.
constexpr double kPsnrAllowance = 0.3;
// How far the picture may have moved, in output pixels.
constexpr double kLargestShift = 0.5;
// How far a planned cut may seem to have moved: its edges are those of the
// full decode, and the estimate's own error is about 0.01 (a cut rounded to
// the nearest scaled pixel was up to 0.2 off).
constexpr double kPlannedShift = 0.05;
// The reduction of the benchmark's job: a 4000-pixel square to 1080.
constexpr double kReduction = 4000.0 / 1080.0;

vips::VImage Grey(const vips::VImage& image) {
    vips::VImage rgb =
        image.bands() > 3 ? image.extract_band(0, vips::VImage::option()->set("n", 3)) : image;
    return rgb.bands() == 1 ? rgb.cast(VIPS_FORMAT_FLOAT)
                            : rgb.colourspace(VIPS_INTERPRETATION_B_W).cast(VIPS_FORMAT_FLOAT);
}

double Psnr(const vips::VImage& a, const vips::VImage& b) {
    const vips::VImage difference = a.cast(VIPS_FORMAT_FLOAT) - b.cast(VIPS_FORMAT_FLOAT);
    const double mse = (difference * difference).avg();
    return 10.0 * std::log10(255.0 * 255.0 / std::max(mse, 1e-12));
}

// The image written as a JPEG of quality 80 and read back.
vips::VImage Encoded(const vips::VImage& image) {
    VipsBlob* blob = image.jpegsave_buffer(vips::VImage::option()->set("Q", 80));
    std::size_t length = 0;
    const void* bytes = vips_blob_get(blob, &length);
    vips::VImage decoded = vips::VImage::new_from_buffer(bytes, length, "").copy_memory();
    vips_area_unref(VIPS_AREA(blob));
    return decoded;
}

// How far `moved` lies from `reference`, in pixels (x, y): one step of
// Lucas and Kanade's estimate over the whole picture, from the grey
// levels' differences and the reference's gradient.
std::pair<double, double> Shift(const vips::VImage& moved, const vips::VImage& reference) {
    const std::vector<unsigned char> m = test::RawBytes(Grey(moved).cast(VIPS_FORMAT_UCHAR));
    const std::vector<unsigned char> r = test::RawBytes(Grey(reference).cast(VIPS_FORMAT_UCHAR));
    const int w = reference.width();
    const int h = reference.height();
    double xx = 0, xy = 0, yy = 0, xd = 0, yd = 0;
    for (int y = 1; y + 1 < h; ++y) {
        for (int x = 1; x + 1 < w; ++x) {
            const auto at = [&](const std::vector<unsigned char>& v, int i, int j) {
                return static_cast<double>(v[static_cast<std::size_t>(j) * w + i]);
            };
            const double gx = (at(r, x + 1, y) - at(r, x - 1, y)) / 2;
            const double gy = (at(r, x, y + 1) - at(r, x, y - 1)) / 2;
            const double d = at(m, x, y) - at(r, x, y);
            xx += gx * gx;
            xy += gx * gy;
            yy += gy * gy;
            xd += gx * d;
            yd += gy * d;
        }
    }
    const double det = xx * yy - xy * xy;
    if (det <= 0) {
        return {0, 0};
    }
    // moved(p) = reference(p - s): the difference is -s . gradient.
    return {-(yy * xd - xy * yd) / det, -(xx * yd - xy * xd) / det};
}

// The centred square of the upright picture, whole pixels, lower-left origin.
Rect CentreSquare(Size upright) {
    const double side = std::min(upright.width, upright.height);
    return {std::floor((upright.width - side) / 2), std::floor((upright.height - side) / 2), side,
            side};
}

// The full decode, cut and resized: what the planned decode must match.
vips::VImage Reference(const std::string& path, Rect cut, Size size) {
    const LoadResult loaded = ImageTools::LoadImage(path);
    EXPECT_TRUE(loaded) << loaded.reason();
    return test::PixelsOf(ImageTools::ResizeImage(ImageTools::CropImage(*loaded, cut), size));
}

vips::VImage Planned(const std::string& path, Rect cut, Size size,
                     double factor = kMinResizeFactor) {
    const std::optional<Image> image = ImageTools::LoadCutResized(path, cut, size, factor);
    EXPECT_TRUE(image) << path;
    return image ? test::PixelsOf(*image) : vips::VImage::black(1, 1);
}

// What a job writes the cut from: the planned decode, or, when there is no
// plan for the cut, the full decode cut and resized.
vips::VImage AsWritten(const std::string& path, Rect cut, Size size, bool& planned) {
    const std::optional<Image> image = ImageTools::LoadCutResized(path, cut, size);
    planned = image.has_value();
    return image ? test::PixelsOf(*image) : Reference(path, cut, size);
}

Size UprightSize(const std::string& path) {
    const std::optional<Size> size = ImageTools::PixelSizeOfFile(path);
    EXPECT_TRUE(size) << path;
    return size.value_or(Size{1, 1});
}

Size OutputOf(Rect cut) {
    return {std::round(cut.width / kReduction), std::round(cut.height / kReduction)};
}

// The job of the benchmark, centre 1:1 made 3.7 times smaller: as written
// (planned when `plannedExpected`, else decoded whole), vips thumbnail and
// the reference.
void ExpectAsGoodAsThumbnail(const std::string& path, bool plannedExpected = true) {
    const Rect cut = CentreSquare(UprightSize(path));
    const Size size = OutputOf(cut);
    const vips::VImage reference = Reference(path, cut, size);
    bool wasPlanned = false;
    const vips::VImage planned = AsWritten(path, cut, size, wasPlanned);
    EXPECT_EQ(wasPlanned, plannedExpected) << path;
    const vips::VImage thumbnail =
        vips::VImage::thumbnail(path.c_str(), static_cast<int>(size.width),
                                vips::VImage::option()
                                    ->set("height", static_cast<int>(size.height))
                                    ->set("crop", VIPS_INTERESTING_CENTRE));
    ASSERT_EQ(planned.width(), reference.width());
    ASSERT_EQ(planned.height(), reference.height());
    ASSERT_EQ(thumbnail.width(), reference.width());
    // The job's output is a JPEG of quality 80: what is compared is what is
    // written, against the reference before encoding.
    const double ours = Psnr(Encoded(planned), reference);
    const double theirs = Psnr(Encoded(thumbnail), reference);
    const double full = Psnr(Encoded(reference), reference);
    EXPECT_GE(ours, theirs - kPsnrAllowance) << path;
    EXPECT_GE(ours, full - kPsnrAllowance) << path;
    const auto [dx, dy] = Shift(planned, reference);
    EXPECT_LE(std::abs(dx), kLargestShift) << path;
    EXPECT_LE(std::abs(dy), kLargestShift) << path;
    std::printf(
        "%-32s %4.0f -> %4.0f  planned %.2f dB, thumbnail %.2f dB, full decode %.2f dB, "
        "shift %.2f, %.2f\n",
        path.substr(path.rfind('/') + 1).c_str(), cut.width, size.width, ours, theirs, full, dx,
        dy);
}

// A cut of `cut` made `size` is as close to the reference as a centred one
// and in its place, whether it was planned or not; whether it was is
// returned.
bool ExpectInPlace(const std::string& path, Rect cut, Size size) {
    const vips::VImage reference = Reference(path, cut, size);
    bool planned = false;
    const vips::VImage written = AsWritten(path, cut, size, planned);
    EXPECT_GE(Psnr(Encoded(written), reference),
              Psnr(Encoded(reference), reference) - kPsnrAllowance)
        << path;
    const auto [dx, dy] = Shift(written, reference);
    const double largest = planned ? kPlannedShift : kLargestShift;
    EXPECT_LE(std::abs(dx), largest) << path;
    EXPECT_LE(std::abs(dy), largest) << path;
    std::printf("%-32s %s, shift %.3f, %.3f\n", path.substr(path.rfind('/') + 1).c_str(),
                planned ? "planned" : "decoded whole", dx, dy);
    return planned;
}

// An off-centre cut (the upper-left part, not square), whose edges fall
// between the pixels of most scales.
void ExpectOffCentreInPlace(const std::string& path) {
    const Size upright = UprightSize(path);
    const Rect cut{std::floor(upright.width * 0.1), std::floor(upright.height * 0.35),
                   std::floor(upright.width * 0.55), std::floor(upright.height * 0.6)};
    ExpectInPlace(path, cut, OutputOf(cut));
}

TEST(CutResizedTest, StoredBoxOfEveryOrientationHoldsTheUprightCut) {
    const vips::VImage stored = test::CoordinateImage(60, 40);
    const PixelBox upright{7, 5, 20, 13};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        vips::VImage tagged = stored.copy();
        tagged.set(VIPS_META_ORIENTATION, orientation);
        const vips::VImage turned = tagged.autorot();
        const Size uprightSize{static_cast<double>(turned.width()),
                               static_cast<double>(turned.height())};
        const PixelBox box = StoredBox(upright, uprightSize, orientation);
        vips::VImage cut = stored.extract_area(box.left, box.top, box.width, box.height).copy();
        cut.set(VIPS_META_ORIENTATION, orientation);
        const vips::VImage expected =
            turned.extract_area(upright.left, upright.top, upright.width, upright.height);
        EXPECT_EQ(test::RawBytes(cut.autorot()), test::RawBytes(expected))
            << "orientation " << orientation;
    }
}

TEST(CutResizedTest, ScaleIsTheSmallestThatLeavesTheResizeItsFactor) {
    // 4000 -> 1080: 3/8 leaves 1500, a reduction of 1.39; 2/8 would leave 1000.
    EXPECT_EQ(ScaleEighths({4000, 4000}, {1080, 1080}, 1.25), 3);
    EXPECT_EQ(ScaleEighths({4000, 4000}, {1080, 1080}, 1.5), 4);
    EXPECT_EQ(ScaleEighths({4000, 4000}, {1080, 1080}, 2.0), 5);
    EXPECT_EQ(ScaleEighths({6000, 3375}, {1920, 1080}, 1.25), 4);
    EXPECT_EQ(ScaleEighths({4000, 4000}, {300, 300}, 1.25), 1);
    EXPECT_EQ(ScaleEighths({1200, 1200}, {1080, 1080}, 1.25), 8);
}

TEST(CutResizedTest, DecodedBoxIsTheCutScaledExactly) {
    // A 6000 x 4000 photo stored sideways (orientation 6): the upright
    // picture is 4000 x 6000, and its centred square is rows 1000 to 5000
    // of it, which are columns 1000 to 5000 of the stored picture.
    const std::optional<JpegDecodePlan> plan =
        PlanJpegDecode({6000, 4000}, 6, {0, 1000, 4000, 4000}, {1080, 1080}, 1.25);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->eighths, 3);
    EXPECT_EQ(plan->stored, (PixelBox{1000, 0, 4000, 4000}));
    EXPECT_EQ(plan->decoded, (PixelBox{375, 0, 1500, 1500}));
    // Its lower-left 1000-pixel square: the last 1000 stored columns (the
    // upright bottom) of the last 1000 stored rows (the upright left); at 6/8.
    const std::optional<JpegDecodePlan> corner =
        PlanJpegDecode({6000, 4000}, 6, {0, 5000, 1000, 1000}, {300, 300}, 2.5);
    ASSERT_TRUE(corner);
    EXPECT_EQ(corner->eighths, 6);
    EXPECT_EQ(corner->stored, (PixelBox{5000, 3000, 1000, 1000}));
    EXPECT_EQ(corner->decoded, (PixelBox{3750, 2250, 750, 750}));
}

TEST(CutResizedTest, ScaleIsOneAtWhichTheCutsEdgesAreWholePixels) {
    // 1404 x 1004 from (240, 296) to 319 x 228: 5/8 is the least scale that
    // leaves a reduction of 2.5, but 1404 * 5 / 8 is 877.5; at 6/8 every
    // edge is whole.
    const std::optional<JpegDecodePlan> plan =
        PlanJpegDecode({2400, 1600}, 1, {240, 296, 1404, 1004}, {319, 228}, 2.5);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->eighths, 6);
    EXPECT_EQ(plan->decoded, (PixelBox{180, 222, 1053, 753}));
    // A left edge at an odd column is whole at no scale below 8/8: the cut
    // is decoded at full size, still only its rows and columns.
    const std::optional<JpegDecodePlan> odd =
        PlanJpegDecode({2400, 1600}, 1, {241, 296, 1404, 1004}, {319, 228}, 2.5);
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->eighths, 8);
    EXPECT_EQ(odd->decoded, (PixelBox{241, 296, 1404, 1004}));
    // Nor is a right edge at the last column of a side whose scaled size
    // libjpeg rounds up (2404 * 6 / 8 = 1803, 2402 * 6 / 8 = 1801.5).
    EXPECT_EQ(PlanJpegDecode({2404, 1600}, 1, {1000, 296, 1404, 1004}, {319, 228}, 2.5)->eighths,
              6);
    EXPECT_EQ(PlanJpegDecode({2402, 1600}, 1, {998, 296, 1404, 1004}, {319, 228}, 2.5)->eighths, 8);
}

TEST(CutResizedTest, PicturesTooSmallToGainHaveNoPlan) {
    // 999 x 1000 pixels: a cut whose edges are whole at every scale.
    EXPECT_FALSE(PlanJpegDecode({999, 1000}, 1, {0, 0, 800, 800}, {100, 100}, 2.5));
    EXPECT_TRUE(PlanJpegDecode({1000, 1000}, 1, {0, 0, 800, 800}, {100, 100}, 2.5));
}

class CutResizedPhotoTest : public ::testing::TestWithParam<std::string> {};

TEST_P(CutResizedPhotoTest, AsGoodAsThumbnailAndInPlace) {
    VELLUMO_REQUIRE_TESTDATA();
    ExpectAsGoodAsThumbnail(TestDataPath(GetParam()));
}

TEST_P(CutResizedPhotoTest, OffCentreCutAsGoodAsFullDecode) {
    VELLUMO_REQUIRE_TESTDATA();
    ExpectOffCentreInPlace(TestDataPath(GetParam()));
}

// The same cut with its edges moved to every fourth pixel, whole at 6/8:
// planned, and as good as the full decode.
TEST_P(CutResizedPhotoTest, OffCentreCutOnWholeScaledPixelsIsPlanned) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string path = TestDataPath(GetParam());
    const Size upright = UprightSize(path);
    const auto fourth = [](double side) { return std::floor(side / 4) * 4; };
    const Rect cut{fourth(upright.width * 0.1), fourth(upright.height * 0.35),
                   fourth(upright.width * 0.55), fourth(upright.height * 0.6)};
    EXPECT_TRUE(ExpectInPlace(path, cut, OutputOf(cut)));
}

INSTANTIATE_TEST_SUITE_P(
    RealPhotos, CutResizedPhotoTest,
    ::testing::Values("orientation/Landscape_1.jpg", "orientation/Landscape_2.jpg",
                      "orientation/Landscape_3.jpg", "orientation/Landscape_4.jpg",
                      "orientation/Landscape_5.jpg", "orientation/Landscape_6.jpg",
                      "orientation/Landscape_7.jpg", "orientation/Landscape_8.jpg",
                      "orientation/Portrait_6.jpg", "orientation/Apple iPhone 5.jpg",
                      "orientation/Canon PowerShot A85.jpg", "large/sky.jpg", "jpeg/jolla.jpg"));

// A 322 x 466 photo made 87 pixels wide is decoded whole: it is too small
// for a plan to gain anything, and at 6/8 (the least scale leaving 2.5) it
// lost 3.5 dB.
TEST(CutResizedTest, SmallPhotoIsDecodedWhole) {
    VELLUMO_REQUIRE_TESTDATA();
    ExpectAsGoodAsThumbnail(TestDataPath("jpeg/no_exif.jpg"), false);
    ExpectOffCentreInPlace(TestDataPath("jpeg/no_exif.jpg"));
}

// Fine detail: a zone plate (every frequency up to the finest), lines one
// pixel wide and text, as a JPEG of quality 95 stored in `orientation`.
std::string WriteFineDetail(const test::TempDir& dir, int orientation) {
    const int w = 2400;
    const int h = 1600;
    vips::VImage zone = (vips::VImage::zone(w, h) + 1) * 127.5;
    vips::VImage lines = vips::VImage::xyz(w, h)[0].remainder_const({7}) == 0.0;
    vips::VImage text = vips::VImage::text("Vellumo 0123456789 fine print",
                                           vips::VImage::option()->set("dpi", 300));
    text = text.embed(300, 900, w, h);
    vips::VImage grey = (zone * 0.6 + lines * 0.4).cast(VIPS_FORMAT_UCHAR);
    grey = (grey | text).cast(VIPS_FORMAT_UCHAR);
    vips::VImage rgb = grey.bandjoin({grey * 0.8, 255 - grey}).cast(VIPS_FORMAT_UCHAR);
    rgb = rgb.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    rgb.set(VIPS_META_ORIENTATION, orientation);
    std::string path = dir.File("detail-" + std::to_string(orientation) + ".jpg");
    rgb.jpegsave(path.c_str(), vips::VImage::option()->set("Q", 95));
    return path;
}

class CutResizedDetailTest : public ::testing::TestWithParam<int> {};

TEST_P(CutResizedDetailTest, AsGoodAsThumbnailAndInPlace) {
    const test::TempDir dir;
    const std::string path = WriteFineDetail(dir, GetParam());
    ExpectAsGoodAsThumbnail(path);
}

INSTANTIATE_TEST_SUITE_P(EveryOrientation, CutResizedDetailTest, ::testing::Range(1, 9));

// An off-centre cut whose edges are whole only at a larger scale than the
// least (ScaleIsOneAtWhichTheCutsEdgesAreWholePixels): planned at 6/8, as
// good as the full decode and in its place.
TEST(CutResizedTest, OffCentreDetailIsPlannedAtAScaleWithWholeEdges) {
    const test::TempDir dir;
    const std::string path = WriteFineDetail(dir, 1);
    // Stored rows 296 to 1300 of 1600, counted from the bottom.
    const Rect cut{240, 1600 - 296 - 1004, 1404, 1004};
    EXPECT_TRUE(ExpectInPlace(path, cut, {319, 228}));
}

// The bound itself, measured: how close each minimum reduction left to the
// resize comes to the reference (printed; kMinResizeFactor is the least
// that stays within the allowance everywhere).
TEST(CutResizedTest, MinimumReductionMeasured) {
    VELLUMO_REQUIRE_TESTDATA();
    const test::TempDir dir;
    const std::vector<std::string> paths = {TestDataPath("large/sky.jpg"),
                                            TestDataPath("orientation/Landscape_1.jpg"),
                                            WriteFineDetail(dir, 1)};
    for (const std::string& path : paths) {
        const Rect cut = CentreSquare(UprightSize(path));
        const Size size = OutputOf(cut);
        const vips::VImage reference = Reference(path, cut, size);
        std::printf("%-28s", path.substr(path.rfind('/') + 1).c_str());
        for (const double factor : {1.0, 1.25, 1.5, 2.0, 2.5}) {
            std::printf("  %.2f: %.2f dB", factor,
                        Psnr(Encoded(Planned(path, cut, size, factor)), reference));
        }
        std::printf("  full: %.2f dB", Psnr(Encoded(reference), reference));
        std::printf("\n");
    }
}

TEST(CutResizedTest, FilesItCannotReadAreLeftToTheUsualDecode) {
    VELLUMO_REQUIRE_TESTDATA();
    // CMYK, and a PNG.
    EXPECT_FALSE(ImageTools::LoadCutResized(TestDataPath("jpeg/pil_sample_cmyk.jpg"),
                                            {0, 0, 60, 60}, {20, 20}));
    const test::TempDir dir;
    const std::string png = dir.File("a.png");
    test::PhotoLikeImage(200, 100).pngsave(png.c_str());
    EXPECT_FALSE(ImageTools::LoadCutResized(png, {0, 0, 100, 100}, {20, 20}));
}

TEST(CutResizedTest, TruncatedFileIsLeftToTheUsualDecode) {
    const test::TempDir dir;
    const std::string whole = dir.File("whole.jpg");
    test::PhotoLikeImage(1600, 1200).jpegsave(whole.c_str());
    std::string bytes;
    {
        FILE* f = std::fopen(whole.c_str(), "rb");
        ASSERT_NE(f, nullptr);
        char buffer[4096];
        std::size_t n = 0;
        while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0) {
            bytes.append(buffer, n);
        }
        std::fclose(f);
    }
    const std::string cut = dir.File("cut.jpg");
    FILE* f = std::fopen(cut.c_str(), "wb");
    ASSERT_NE(f, nullptr);
    std::fwrite(bytes.data(), 1, bytes.size() / 2, f);
    std::fclose(f);
    // The rows below the middle are missing: a crop that needs them fails
    // when its pixels are read.
    EXPECT_FALSE(test::ReadsWhole(ImageTools::LoadCutResized(cut, {0, 0, 1200, 1200}, {200, 200})));
    EXPECT_TRUE(
        test::ReadsWhole(ImageTools::LoadCutResized(whole, {0, 0, 1200, 1200}, {200, 200})));
    // The rows above the middle are there: a crop of them (its origin at the
    // lower-left corner, 400 pixels under the top) is read whole.
    EXPECT_TRUE(test::ReadsWhole(ImageTools::LoadCutResized(cut, {0, 800, 400, 400}, {100, 100})));
}

}  // namespace
}  // namespace vellumo
