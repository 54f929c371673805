#include "tests/support/CutQuality.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "imaging/ImageTools.h"
#include "imaging/VipsRuntime.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo::test {

namespace {

vips::VImage Grey(const vips::VImage& image) {
    vips::VImage rgb =
        image.bands() > 3 ? image.extract_band(0, vips::VImage::option()->set("n", 3)) : image;
    return rgb.bands() == 1 ? rgb.cast(VIPS_FORMAT_FLOAT)
                            : rgb.colourspace(VIPS_INTERPRETATION_B_W).cast(VIPS_FORMAT_FLOAT);
}

}  // namespace

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
    const std::vector<unsigned char> m = RawBytes(Grey(moved).cast(VIPS_FORMAT_UCHAR));
    const std::vector<unsigned char> r = RawBytes(Grey(reference).cast(VIPS_FORMAT_UCHAR));
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
    return PixelsOf(ImageTools::ResizeImage(ImageTools::CropImage(*loaded, cut), size));
}

vips::VImage Planned(const std::string& path, Rect cut, Size size, std::optional<double> factor) {
    const std::optional<Image> image = ImageTools::LoadCutResized(path, cut, size, factor);
    EXPECT_TRUE(image) << path;
    return image ? PixelsOf(*image) : vips::VImage::black(1, 1);
}

// What a job writes the cut from: the planned decode, or, when there is no
// plan for the cut, the full decode cut and resized.
vips::VImage AsWritten(const std::string& path, Rect cut, Size size, bool& planned) {
    const std::optional<Image> image = ImageTools::LoadCutResized(path, cut, size);
    planned = image.has_value();
    return image ? PixelsOf(*image) : Reference(path, cut, size);
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
void ExpectAsGoodAsThumbnail(const std::string& path, bool plannedExpected) {
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

// Fine detail: a zone plate (every frequency up to the finest), lines one
// pixel wide and text, as a JPEG of quality 95 stored in `orientation`.
std::string WriteFineDetail(const TempDir& dir, int orientation, const std::string& extension) {
    const int w = 2400;
    const int h = 1600;
    vips::VImage zone = (vips::VImage::zone(w, h) + 1) * 127.5;
    vips::VImage lines = vips::VImage::xyz(w, h)[0].remainder_const({7}) == 0.0;
    vips::VImage text = vips::VImage::text("Vellumo 0123456789 fine print",
                                           vips::VImage::option()->set("dpi", 300));
    text = text.embed(300, 900, w, h);
    vips::VImage grey = (zone * 0.6 + lines * 0.4).cast(VIPS_FORMAT_UCHAR);
    grey = (grey | text).cast(VIPS_FORMAT_UCHAR);
    // VImage::bandjoin of a vector is static: the bands are all named.
    vips::VImage rgb =
        vips::VImage::bandjoin({grey, grey * 0.8, 255 - grey}).cast(VIPS_FORMAT_UCHAR);
    rgb = rgb.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    rgb.set(VIPS_META_ORIENTATION, orientation);
    std::string path = dir.File("detail-" + std::to_string(orientation) + "." + extension);
    EXPECT_EQ(rgb.bands(), 3);
    rgb.write_to_file(path.c_str(), vips::VImage::option()->set("Q", 95));
    return path;
}

void PrintReductionsMeasured(const std::string& path) {
    const Rect cut = CentreSquare(UprightSize(path));
    const Size size = OutputOf(cut);
    const vips::VImage reference = Reference(path, cut, size);
    std::printf("%-28s", path.substr(path.rfind('/') + 1).c_str());
    for (const double factor : {1.0, 1.25, 1.5, 2.0, 2.5}) {
        std::printf("  %.2f: %.2f dB", factor,
                    Psnr(Encoded(Planned(path, cut, size, factor)), reference));
    }
    std::printf("  full: %.2f dB\n", Psnr(Encoded(reference), reference));
}

std::string WriteWebpOf(const TempDir& dir, const std::string& source, const std::string& name) {
    vipsruntime::EnsureStarted();
    std::string path = dir.File(name);
    vips::VImage::new_from_file(TestDataPath(source).c_str())
        .webpsave(path.c_str(), vips::VImage::option()->set("Q", 90));
    return path;
}

}  // namespace vellumo::test
