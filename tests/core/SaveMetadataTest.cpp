// What a save writes besides the pixels: the colour profile where the format
// can carry it, and never the source's Exif, GPS, IPTC or XMP.

#include <gtest/gtest.h>

#include "imaging/ImageTools.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::TempDir;

// A 12-megapixel phone photo with a Display P3 profile, Exif with GPS, a
// thumbnail and XMP.
const std::string kPhoneFile = "large/sky.jpg";

struct Target {
    long format;
    const char* name;
    bool carriesProfile;
};

void PrintTo(const Target& target, std::ostream* out) {
    *out << target.name;
}

const Target kTargets[] = {
    {0, "out.jpg", true},  {1, "out.jpeg", true}, {2, "out.jpe", true},  {3, "out.jp2", true},
    {4, "out.jpx", true},  {5, "out.png", true},  {6, "out.tiff", true}, {7, "out.tif", true},
    {8, "out.gif", false}, {9, "out.bmp", false},  // 24-bit BMP has no room for a profile
};

class SaveWithoutMetadata : public ::testing::TestWithParam<Target> {
  protected:
    static void SetUpTestSuite() {
        if (!test::HaveTestData()) {
            return;
        }
        const LoadResult loaded = ImageTools::LoadImage(test::TestDataPath(kPhoneFile));
        ASSERT_TRUE(loaded) << loaded.reason();
        cut_ = new Image(ImageTools::CropImage(*loaded, 1000, 800, 600, 400));
    }
    static void TearDownTestSuite() {
        delete cut_;
        cut_ = nullptr;
    }
    static Image* cut_;
};
Image* SaveWithoutMetadata::cut_ = nullptr;

TEST_P(SaveWithoutMetadata, WritesNoExifGpsIptcOrXmp) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath(kPhoneFile);
    ASSERT_FALSE(test::ExifToolTags(source, "-GPS:all").empty()) << "the source has GPS";
    ASSERT_FALSE(test::ExifToolTags(source, "-XMP:all").empty()) << "the source has XMP";
    TempDir dir;
    const std::string path = dir.File(GetParam().name);
    ASSERT_TRUE(ImageTools::SaveImage(*cut_, path, GetParam().format, 0.8));
    // A TIFF file's first directory describes its own pixels; the rest is
    // what would come from the source.
    EXPECT_EQ(test::ExifToolTags(path,
                                 "-GPS:all -IPTC:all -XMP:all -ExifIFD:all -IFD1:all "
                                 "-InteropIFD:all -MakerNotes:all -Make -Model -Software "
                                 "-ModifyDate -Copyright"),
              std::vector<std::string>{});
    if (GetParam().format != 6 && GetParam().format != 7) {
        EXPECT_EQ(test::ExifToolTags(path, "-EXIF:all"), std::vector<std::string>{});
    }
}

TEST_P(SaveWithoutMetadata, KeepsTheSourcesColourProfileWhereTheFormatCarriesOne) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string sourceProfile =
        test::ExifToolBinary(test::TestDataPath(kPhoneFile), "ICC_Profile");
    ASSERT_GT(sourceProfile.size(), 128u);
    TempDir dir;
    const std::string path = dir.File(GetParam().name);
    ASSERT_TRUE(ImageTools::SaveImage(*cut_, path, GetParam().format, 0.8));
    const std::string written = test::ExifToolBinary(path, "ICC_Profile");
    if (GetParam().carriesProfile) {
        EXPECT_TRUE(written == sourceProfile) << "profile of " << written.size() << " bytes";
        EXPECT_EQ(test::ExifToolValue(path, "ProfileDescription"), "Display P3");
    } else {
        EXPECT_TRUE(written.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(OutputFormats, SaveWithoutMetadata, ::testing::ValuesIn(kTargets),
                         [](const auto& info) { return std::to_string(info.param.format); });

TEST(SaveWithoutMetadataBmp, WithAlphaCarriesTheColourProfile) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath(kPhoneFile);
    const LoadResult loaded = ImageTools::LoadImage(source);
    ASSERT_TRUE(loaded) << loaded.reason();
    const Image cut = ImageTools::CropImage(*loaded, 0, 0, 320, 200);
    const Image withAlpha = test::MakeImage(test::PixelsOf(cut).bandjoin_const({200.0}));
    TempDir dir;
    ASSERT_TRUE(ImageTools::SaveImage(withAlpha, dir.File("a.bmp"), 9, 0.8));
    EXPECT_TRUE(test::ExifToolBinary(dir.File("a.bmp"), "ICC_Profile") ==
                test::ExifToolBinary(source, "ICC_Profile"));
}

TEST(SaveWithoutMetadataProfiles, ImageWithoutProfileGetsNone) {
    TempDir dir;
    const Image plain = test::MakeImage(test::CoordinateImage(40, 30));
    for (const auto& [format, name] :
         {std::pair{0L, "p.jpg"}, {3L, "p.jp2"}, {5L, "p.png"}, {6L, "p.tif"}, {9L, "p.bmp"}}) {
        ASSERT_TRUE(ImageTools::SaveImage(plain, dir.File(name), format, 0.8));
        EXPECT_TRUE(test::ExifToolBinary(dir.File(name), "ICC_Profile").empty()) << name;
    }
}

}  // namespace
}  // namespace vellumo
