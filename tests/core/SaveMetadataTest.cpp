// What a save writes besides the pixels: the colour profile where the format
// can carry it, and never the source's Exif, GPS, IPTC or XMP.

#include <gtest/gtest.h>

#include <string>

#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
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
    OutputFormat format;
    const char* name;
    bool carriesProfile;
};

void PrintTo(const Target& target, std::ostream* out) {
    *out << target.name;
}

const Target kTargets[] = {
    {OutputFormat::Jpg, "out.jpg", true},
    {OutputFormat::Jpeg, "out.jpeg", true},
    {OutputFormat::Jpe, "out.jpe", true},
    {OutputFormat::Jp2, "out.jp2", true},
    {OutputFormat::Jpx, "out.jpx", true},
    {OutputFormat::Png, "out.png", true},
    {OutputFormat::Tiff, "out.tiff", true},
    {OutputFormat::Tif, "out.tif", true},
    {OutputFormat::Gif, "out.gif", false},
    {OutputFormat::Bmp, "out.bmp", false},  // 24-bit BMP has no room for a profile
};

class SaveWithoutMetadata : public ::testing::TestWithParam<Target> {
  protected:
    static void SetUpTestSuite() {
        if (!test::HaveTestData()) {
            return;
        }
        const LoadResult loaded = ImageTools::LoadImage(test::TestDataPath(kPhoneFile));
        ASSERT_TRUE(loaded) << loaded.reason();
        cut_ = new Image(ImageTools::CropImage(*loaded, {1000, 800, 600, 400}));
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
    if (GetParam().format != OutputFormat::Tiff && GetParam().format != OutputFormat::Tif) {
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
                         [](const auto& info) {
                             return std::to_string(PositionOfOutputFormat(info.param.format));
                         });

TEST(SaveWithoutMetadataBmp, WithAlphaCarriesTheColourProfile) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath(kPhoneFile);
    const LoadResult loaded = ImageTools::LoadImage(source);
    ASSERT_TRUE(loaded) << loaded.reason();
    const Image cut = ImageTools::CropImage(*loaded, {0, 0, 320, 200});
    const Image withAlpha = test::MakeImage(test::PixelsOf(cut).bandjoin_const({200.0}));
    TempDir dir;
    ASSERT_TRUE(ImageTools::SaveImage(withAlpha, dir.File("a.bmp"), OutputFormat::Bmp, 0.8));
    EXPECT_TRUE(test::ExifToolBinary(dir.File("a.bmp"), "ICC_Profile") ==
                test::ExifToolBinary(source, "ICC_Profile"));
}

TEST(SaveWithoutMetadataProfiles, ImageWithoutProfileGetsNone) {
    TempDir dir;
    const Image plain = test::MakeImage(test::CoordinateImage(40, 30));
    for (const auto& [format, name] : {std::pair{OutputFormat::Jpg, "p.jpg"},
                                       {OutputFormat::Jp2, "p.jp2"},
                                       {OutputFormat::Png, "p.png"},
                                       {OutputFormat::Tiff, "p.tif"},
                                       {OutputFormat::Bmp, "p.bmp"}}) {
        ASSERT_TRUE(ImageTools::SaveImage(plain, dir.File(name), format, 0.8));
        EXPECT_TRUE(test::ExifToolBinary(dir.File(name), "ICC_Profile").empty()) << name;
    }
}

}  // namespace
}  // namespace vellumo

namespace vellumo {
namespace {

// A made-up RGB profile of `size` bytes: a header that passes libpng's
// checks (size, version, class, colour space, D50 illuminant, no tags),
// then filler. Large ones need several JPEG segments.
std::string MadeUpRgbProfile(std::size_t size) {
    std::string profile(size, '\0');
    for (std::size_t i = 132; i < size; ++i) {
        profile[i] = static_cast<char>(i * 7 % 251);
    }
    profile[0] = static_cast<char>(size >> 24);
    profile[1] = static_cast<char>(size >> 16);
    profile[2] = static_cast<char>(size >> 8);
    profile[3] = static_cast<char>(size);
    profile[8] = 2;  // version 2.1
    profile[9] = 0x10;
    profile.replace(12, 4, "mntr");
    profile.replace(16, 4, "RGB ");
    profile.replace(20, 4, "XYZ ");
    profile.replace(36, 4, "acsp");
    const unsigned char d50[12] = {0, 0, 0xF6, 0xD6, 0, 1, 0, 0, 0, 0, 0xD3, 0x2D};
    profile.replace(68, 12, reinterpret_cast<const char*>(d50), 12);
    return profile;
}

TEST(SaveWithoutMetadataProfiles, LargeProfileTravelsWhole) {
    TempDir dir;
    const std::string profile = MadeUpRgbProfile(200000);
    vips::VImage pixels = test::CoordinateImage(64, 48).copy();
    pixels.set(VIPS_META_ICC_NAME, nullptr, const_cast<char*>(profile.data()), profile.size());
    const Image image = test::MakeImage(pixels);
    for (const auto& [format, name] : {std::pair{OutputFormat::Jpg, "big.jpg"},
                                       {OutputFormat::Jp2, "big.jp2"},
                                       {OutputFormat::Png, "big.png"},
                                       {OutputFormat::Tiff, "big.tif"}}) {
        ASSERT_TRUE(ImageTools::SaveImage(image, dir.File(name), format, 0.8)) << name;
        EXPECT_TRUE(test::ExifToolBinary(dir.File(name), "ICC_Profile") == profile) << name;
        EXPECT_EQ(test::MagickIdentifySize(dir.File(name)).width, 64) << name;
    }
}

TEST(SaveWithoutMetadataProfiles, GreyProfileStaysWithGreyPixelsOnly) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("tiff/pport_g4.tif");
    ASSERT_EQ(test::ExifToolValue(source, "ColorSpaceData"), "GRAY");
    const LoadResult loaded = ImageTools::LoadImage(source);
    ASSERT_TRUE(loaded) << loaded.reason();
    TempDir dir;
    ASSERT_TRUE(ImageTools::SaveImage(*loaded, dir.File("g.png"), OutputFormat::Png, 0.8));
    ASSERT_TRUE(ImageTools::SaveImage(*loaded, dir.File("g.jpg"), OutputFormat::Jpg, 0.8));
    EXPECT_TRUE(test::ExifToolBinary(dir.File("g.png"), "ICC_Profile") ==
                test::ExifToolBinary(source, "ICC_Profile"));
    EXPECT_TRUE(test::ExifToolBinary(dir.File("g.jpg"), "ICC_Profile") ==
                test::ExifToolBinary(source, "ICC_Profile"));
    // A BMP holds colour pixels, which a grey profile does not describe
    // (with alpha, the BMP is one that could carry a profile).
    const vips::VImage greyAlpha = test::PixelsOf(*loaded).bandjoin_const({255.0});
    ASSERT_EQ(greyAlpha.bands(), 2);
    ASSERT_NE(greyAlpha.get_typeof(VIPS_META_ICC_NAME), 0u);
    ASSERT_TRUE(ImageTools::SaveImage(test::MakeImage(greyAlpha), dir.File("ga.bmp"),
                                      OutputFormat::Bmp, 0.8));
    EXPECT_TRUE(test::ExifToolBinary(dir.File("ga.bmp"), "ICC_Profile").empty());
    ASSERT_TRUE(ImageTools::SaveImage(test::MakeImage(greyAlpha), dir.File("ga.png"),
                                      OutputFormat::Png, 0.8));
    EXPECT_TRUE(test::ExifToolBinary(dir.File("ga.png"), "ICC_Profile") ==
                test::ExifToolBinary(source, "ICC_Profile"));
}

}  // namespace
}  // namespace vellumo
