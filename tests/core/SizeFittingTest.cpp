// Outputs written under a byte limit: never larger, and within 10 % of the
// best single quality found by trying every quality factor on real photos.

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>

#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

std::uint64_t FileBytes(const std::string& path) {
    return static_cast<std::uint64_t>(std::filesystem::file_size(path));
}

// The photo opened afresh: its pixels are read in one pass, once.
Image Photo(const std::string& relative) {
    const LoadResult loaded = ImageTools::OpenImage(test::TestDataPath(relative));
    EXPECT_TRUE(loaded) << relative;
    return loaded ? *loaded : test::MakeSizedImage(0, 0);
}

// The largest file of any quality factor from 1 to 100 that fits, each
// saved as a plain save writes it: the brute force the bisection is
// measured against.
std::uint64_t BestFitting(const std::string& photo, OutputFormat format, std::uint64_t limit) {
    test::TempDir dir;
    std::uint64_t best = 0;
    for (int q = 1; q <= 100; ++q) {
        // Appended, not "q" + std::to_string(q): GCC 12 at -O3 takes that
        // for an overlapping copy (a false -Wrestrict).
        std::string name = "q";
        name += std::to_string(q);
        const std::string path = dir.File(name);
        if (!ImageTools::TrySaveImage(Photo(photo), path, format, q / 100.0).saved) {
            ADD_FAILURE() << "quality " << q;
            continue;
        }
        const std::uint64_t size = FileBytes(path);
        if (size <= limit) {
            best = std::max(best, size);
        }
        std::filesystem::remove(path);
    }
    return best;
}

struct Case {
    const char* photo;
    OutputFormat format;
    std::uint64_t limit;
};

class SizeFittingAgainstBruteForce : public ::testing::TestWithParam<Case> {};

TEST_P(SizeFittingAgainstBruteForce, FitsAndIsWithinATenthOfTheBest) {
    VELLUMO_REQUIRE_TESTDATA();
    const Case c = GetParam();
    const Image image = Photo(c.photo);
    test::TempDir dir;
    const std::string out = dir.File("fitted");
    const SaveResult saved = ImageTools::TrySaveImage(image, out, c.format, 1.0, {c.limit, false});
    ASSERT_TRUE(saved.saved) << saved.reason;
    ASSERT_TRUE(saved.fit);
    EXPECT_LE(saved.fit->encodes, 7);
    const std::uint64_t written = FileBytes(out);
    EXPECT_LE(written, c.limit);
    EXPECT_EQ(written, saved.fit->bytes);
    const std::uint64_t best = BestFitting(c.photo, c.format, c.limit);
    ASSERT_GT(best, 0u);
    // The figures the README quotes.
    std::cout << "[ fitted ] " << c.photo << " " << InfoOf(c.format).title << " limit " << c.limit
              << ": " << written << " bytes at quality " << saved.fit->quality << " in "
              << saved.fit->encodes << " encodings; best of all qualities " << best << "\n";
    EXPECT_GE(static_cast<double>(written), 0.9 * static_cast<double>(best))
        << c.photo << ": " << written << " against " << best << " at quality "
        << saved.fit->quality;
    // An independent decoder reads the file whole.
    EXPECT_EQ(test::RunCommand("vips copy " + test::ShellQuote(out) + " " +
                               test::ShellQuote(dir.File("check.v")))
                  .exitCode,
              0);
}

INSTANTIATE_TEST_SUITE_P(
    RealPhotos, SizeFittingAgainstBruteForce,
    ::testing::Values(Case{"faces/2007_007763.jpg", OutputFormat::Jpg, 30000},
                      Case{"faces/2008_001322.jpg", OutputFormat::Jpg, 12000},
                      Case{"jpeg/Reconyx_HC500_Hyperfire.jpg", OutputFormat::Jpg, 150000},
                      Case{"faces/2008_002079.jpg", OutputFormat::WebP, 20000},
                      Case{"faces/2008_001009.jpg", OutputFormat::WebP, 9000}));

TEST(SizeFitting, NothingIsWrittenWhenEvenTheLowestQualityIsTooLarge) {
    VELLUMO_REQUIRE_TESTDATA();
    const LoadResult loaded = ImageTools::OpenImage(test::TestDataPath("faces/2007_007763.jpg"));
    ASSERT_TRUE(loaded);
    test::TempDir dir;
    const std::string out = dir.File("small.jpg");
    const SaveResult saved = ImageTools::TrySaveImage(*loaded, out, OutputFormat::Jpg, 0.8, {800});
    EXPECT_FALSE(saved.saved);
    EXPECT_EQ(saved.stage, FailureStage::Encode);
    EXPECT_EQ(
        saved.reason.rfind("does not fit in 800 bytes: the smallest encoding reached was ", 0), 0u)
        << saved.reason;
    EXPECT_NE(saved.reason.find("(quality 1)"), std::string::npos) << saved.reason;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 0);
}

TEST(SizeFitting, ScalingDownFitsWhatNoQualityCould) {
    VELLUMO_REQUIRE_TESTDATA();
    const LoadResult loaded = ImageTools::OpenImage(test::TestDataPath("faces/2007_007763.jpg"));
    ASSERT_TRUE(loaded);
    test::TempDir dir;
    const std::string out = dir.File("small.webp");
    const SaveResult saved =
        ImageTools::TrySaveImage(*loaded, out, OutputFormat::WebP, 0.8, {1500, true});
    ASSERT_TRUE(saved.saved) << saved.reason;
    ASSERT_TRUE(saved.fit);
    EXPECT_LT(saved.fit->scale, 1.0);
    EXPECT_LE(FileBytes(out), 1500u);
    const test::MagickSize size = test::MagickIdentifySize(out);
    EXPECT_EQ(size.width, saved.fit->width);
    EXPECT_EQ(size.height, saved.fit->height);
    EXPECT_LT(size.width, static_cast<long>(loaded->Width()));
}

TEST(SizeFitting, AvifHeicAndJpegXlFitToo) {
    VELLUMO_REQUIRE_TESTDATA();
    test::TempDir dir;
    for (const OutputFormat format : {OutputFormat::Avif, OutputFormat::Heic, OutputFormat::Jxl}) {
        const std::string out = dir.File(std::string("fitted.") + InfoOf(format).title.data());
        const SaveResult saved =
            ImageTools::TrySaveImage(Photo("faces/2008_001009.jpg"), out, format, 0.9, {6000});
        ASSERT_TRUE(saved.saved) << saved.reason;
        EXPECT_LE(FileBytes(out), 6000u) << out;
        EXPECT_LE(saved.fit->encodes, 7);
        EXPECT_LT(saved.fit->quality, 90);
    }
}

TEST(SizeFitting, OtherFormatsFailWhenLarger) {
    VELLUMO_REQUIRE_TESTDATA();
    const LoadResult loaded = ImageTools::OpenImage(test::TestDataPath("faces/2007_007763.jpg"));
    ASSERT_TRUE(loaded);
    test::TempDir dir;
    const SaveResult saved =
        ImageTools::TrySaveImage(*loaded, dir.File("a.png"), OutputFormat::Png, 1.0, {5000});
    EXPECT_FALSE(saved.saved);
    EXPECT_NE(saved.reason.find("over the limit of 5000 bytes"), std::string::npos) << saved.reason;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 0);
}

}  // namespace
}  // namespace vellumo
