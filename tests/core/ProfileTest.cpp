// Profiles: every setting saved and loaded back, all or nothing.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/Profile.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"

namespace vellumo {
namespace {

CropSettings Unusual() {
    CropSettings s;
    s.mode = CropMode::Auto;
    s.autoCropRatio = RatioChoice::Ratio3x2;
    s.pixelsOriginX = -3.5f;
    s.pixelsOriginY = 12.25f;
    s.pixelsWidth = 640.75f;
    s.pixelsHeight = 480.125f;
    s.percentsOriginX = 12.3f;
    s.percentsOriginY = 0.1f;
    s.percentsWidth = 150.0f;
    s.percentsHeight = 33.333f;
    s.outputFormat = OutputFormat::Tif;
    s.quality = 42.5f;
    s.nameTemplate = "photo [FileIndex] – \"é\"";
    s.outputFolder = "/tmp/out folder";
    s.keepMetadata = true;
    s.losslessJpeg = true;
    s.customRatio = {1.91, 1};
    s.matchOrientation = false;
    s.anchor = CropAnchor::Faces;
    s.portraitOfFace = HeadAndShoulders{37.5f, 42.0f};
    s.resize = {ResizeMode::Exact, 1080, 1350, true};
    s.byteLimit = {512000, true};
    return s;
}

void ExpectSame(const CropSettings& a, const CropSettings& b) {
    EXPECT_EQ(a.mode, b.mode);
    EXPECT_EQ(a.autoCropRatio, b.autoCropRatio);
    EXPECT_EQ(a.pixelsOriginX, b.pixelsOriginX);
    EXPECT_EQ(a.pixelsOriginY, b.pixelsOriginY);
    EXPECT_EQ(a.pixelsWidth, b.pixelsWidth);
    EXPECT_EQ(a.pixelsHeight, b.pixelsHeight);
    EXPECT_EQ(a.percentsOriginX, b.percentsOriginX);
    EXPECT_EQ(a.percentsOriginY, b.percentsOriginY);
    EXPECT_EQ(a.percentsWidth, b.percentsWidth);
    EXPECT_EQ(a.percentsHeight, b.percentsHeight);
    EXPECT_EQ(a.outputFormat, b.outputFormat);
    EXPECT_EQ(a.quality, b.quality);
    EXPECT_EQ(a.nameTemplate, b.nameTemplate);
    EXPECT_EQ(a.outputFolder, b.outputFolder);
    EXPECT_EQ(a.keepMetadata, b.keepMetadata);
    EXPECT_EQ(a.losslessJpeg, b.losslessJpeg);
    EXPECT_EQ(a.customRatio, b.customRatio);
    EXPECT_EQ(a.matchOrientation, b.matchOrientation);
    EXPECT_EQ(a.anchor, b.anchor);
    EXPECT_EQ(a.portraitOfFace, b.portraitOfFace);
    EXPECT_EQ(a.resize, b.resize);
    EXPECT_EQ(a.byteLimit.maxBytes, b.byteLimit.maxBytes);
    EXPECT_EQ(a.byteLimit.scaleDown, b.byteLimit.scaleDown);
}

TEST(Profile, AByteLimitIsAWholeNumberOfBytes) {
    const Loaded<CropSettings> good = SettingsFromProfileText(
        R"({"version": 2, "maxBytes": 500000, "maxBytesScaleDown": true})", {});
    ASSERT_TRUE(good) << good.reason();
    EXPECT_EQ(good->byteLimit.maxBytes, 500000u);
    EXPECT_TRUE(good->byteLimit.scaleDown);
    EXPECT_EQ(SettingsFromProfileText(R"({"version": 2, "maxBytes": -5})", {}).reason(),
              "\"maxBytes\" must be between 0 and 1e+15");
    EXPECT_EQ(SettingsFromProfileText(R"({"version": 2, "maxBytes": 1.5})", {}).reason(),
              "\"maxBytes\" must be a whole number");
}

TEST(Profile, SaveThenLoadRestoresEverySettingExactly) {
    test::TempDir dir;
    const std::string path = dir.File("mine.vellumo");
    ASSERT_TRUE(WriteProfile(path, Unusual()).saved);
    const Loaded<CropSettings> loaded = ReadProfile(path, CropSettings{});
    ASSERT_TRUE(loaded) << loaded.reason();
    ExpectSame(*loaded, Unusual());
    // Only the profile is there: no temporary file left behind.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1);
}

TEST(Profile, IsReadableJsonWithAVersion) {
    const std::string text = ProfileText(CropSettings{});
    EXPECT_NE(text.find("\"version\": 2"), std::string::npos) << text;
    EXPECT_NE(text.find("\"format\": \"JPG\""), std::string::npos) << text;
    EXPECT_NE(text.find("\"nameTemplate\": \"[FileName]_cropped ([FileIndex])\""),
              std::string::npos);
    EXPECT_EQ(text.find("list"), std::string::npos);
}

TEST(Profile, MissingKeysKeepTheCurrentValueAndUnknownKeysAreIgnored) {
    const Loaded<CropSettings> loaded = SettingsFromProfileText(
        R"({"version": 2, "quality": 55, "percents": {"width": 70}, "futureOption": [1, 2]})",
        Unusual());
    ASSERT_TRUE(loaded) << loaded.reason();
    CropSettings expected = Unusual();
    expected.quality = 55;
    expected.percentsWidth = 70;
    ExpectSame(*loaded, expected);
}

TEST(Profile, TheCropModeIsNamed) {
    CropSettings s;
    s.mode = CropMode::Percents;
    EXPECT_NE(ProfileText(s).find("\"cropMode\": \"percents\""), std::string::npos);
    const Loaded<CropSettings> none =
        SettingsFromProfileText(R"({"version": 1, "cropMode": "none"})", s);
    ASSERT_TRUE(none) << none.reason();
    EXPECT_EQ(none->mode, CropMode::None);
    EXPECT_FALSE(SettingsFromProfileText(R"({"version": 1, "cropMode": "corner"})", s));
}

// Profiles written before the mode had a name hold the window's four radio
// buttons; they read as the window reads those buttons, a missing one keeping
// the state the current mode gives it.
TEST(Profile, ProfilesNamingTheRadioButtonsStillRead) {
    const auto mode = [](const char* text, CropMode current) {
        CropSettings s;
        s.mode = current;
        const Loaded<CropSettings> loaded = SettingsFromProfileText(text, s);
        EXPECT_TRUE(loaded) << loaded.reason();
        return loaded ? loaded->mode : CropMode::None;
    };
    EXPECT_EQ(mode(R"({"version": 1, "autoCrop": true, "customCrop": false,
                       "customCropPixels": true, "customCropPercents": false})",
                   CropMode::Pixels),
              CropMode::Auto);
    EXPECT_EQ(mode(R"({"version": 1, "autoCrop": false, "customCrop": true,
                       "customCropPixels": false, "customCropPercents": true})",
                   CropMode::Auto),
              CropMode::Percents);
    EXPECT_EQ(mode(R"({"version": 1, "autoCrop": false, "customCrop": true,
                       "customCropPixels": false, "customCropPercents": false})",
                   CropMode::Pixels),
              CropMode::None);
    EXPECT_EQ(mode(R"({"version": 1, "autoCrop": false})", CropMode::Auto), CropMode::None);
}

TEST(Profile, FormatNamesInAnyCase) {
    const auto loaded = SettingsFromProfileText(R"({"version": 1, "format": "png"})", {});
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->outputFormat, OutputFormat::Png);
}

TEST(Profile, BadFilesGiveAReasonAndNoSettings) {
    const struct {
        const char* text;
        const char* reason;
    } cases[] = {
        {"{ not json", "the file is not valid JSON"},
        {"[1, 2]", "the file does not hold a profile"},
        {R"({"quality": 50})", "the file has no \"version\""},
        {R"({"version": 99})",
         "version 99 is not one this Vellumo reads (it reads versions 1 and 2)"},
        {R"({"version": 1, "quality": 300})", "\"quality\" must be between 0 and 100"},
        {R"({"version": 1, "quality": "high"})", "\"quality\" must be a number"},
        {R"({"version": 1, "format": "PSD"})", "\"format\" has an unknown value \"PSD\""},
        {R"({"version": 1, "autoCropRatio": "5:3"})",
         "\"autoCropRatio\" has an unknown value \"5:3\""},
        {R"({"version": 1, "autoCrop": "yes"})", "\"autoCrop\" must be true or false"},
        {R"({"version": 1, "pixels": {"x": 1e300}})",
         "\"pixels.x\" must be between -1e+09 and 1e+09"},
        {R"({"version": 1, "outputFolder": 7})", "\"outputFolder\" must be text"},
    };
    for (const auto& c : cases) {
        const Loaded<CropSettings> loaded = SettingsFromProfileText(c.text, Unusual());
        EXPECT_FALSE(loaded) << c.text;
        EXPECT_EQ(loaded.reason(), c.reason) << c.text;
    }
}

TEST(Profile, AnUnreadableFileIsAFailure) {
    test::TempDir dir;
    const Loaded<CropSettings> loaded = ReadProfile(dir.File("none.vellumo"), {});
    EXPECT_FALSE(loaded);
    EXPECT_EQ(loaded.reason(), "the file cannot be opened (No such file or directory)");
}

TEST(Profile, WritingReplacesAnExistingProfile) {
    test::TempDir dir;
    const std::string path = dir.File("p.vellumo");
    std::ofstream(path) << "old";
    ASSERT_TRUE(WriteProfile(path, Unusual()).saved);
    EXPECT_EQ(test::ReadFile(path), ProfileText(Unusual()));
}

}  // namespace
}  // namespace vellumo

namespace vellumo {
namespace {

// A version 1 file carries none of the crop rules added since: whatever the
// current settings, they take the defaults that crop as version 1 did.
TEST(Profile, VersionOneTakesTheDefaultRules) {
    CropSettings current;
    current.anchor = CropAnchor::Attention;
    current.matchOrientation = false;
    current.resize = {ResizeMode::Fit, 10, 10, true};
    current.customRatio = {9, 2};
    const auto loaded = SettingsFromProfileText(
        R"({"version": 1, "cropMode": "auto", "autoCropRatio": "16:9"})", current);
    ASSERT_TRUE(loaded) << loaded.reason();
    EXPECT_EQ(loaded->autoCropRatio, RatioChoice::Ratio16x9);
    EXPECT_EQ(loaded->anchor, CropAnchor::Centre);
    EXPECT_TRUE(loaded->matchOrientation);
    EXPECT_EQ(loaded->resize, ResizeRule{});
    EXPECT_EQ(loaded->customRatio, CropSettings{}.customRatio);
}

TEST(Profile, APortraitOfTheFaceIsNullWhenOff) {
    CropSettings current;
    current.portraitOfFace = HeadAndShoulders{};
    EXPECT_NE(ProfileText(CropSettings{}).find("\"portraitOfFace\": null"), std::string::npos);
    const auto off = SettingsFromProfileText(R"({"version": 2, "portraitOfFace": null})", current);
    ASSERT_TRUE(off) << off.reason();
    EXPECT_FALSE(off->portraitOfFace);
    const auto on = SettingsFromProfileText(R"({"version": 2, "portraitOfFace": {"eyeLine": 35}})",
                                            CropSettings{});
    ASSERT_TRUE(on) << on.reason();
    EXPECT_EQ(on->portraitOfFace, (HeadAndShoulders{45.0f, 35.0f}));
}

TEST(Profile, VersionTwoRulesAreCheckedLikeTheRest) {
    const struct {
        const char* text;
        const char* reason;
    } cases[] = {
        {R"({"version": 2, "anchor": "middle"})", "\"anchor\" has an unknown value \"middle\""},
        {R"({"version": 2, "resize": {"width": 70000}})",
         "\"resize.width\" must be between 0 and 65535"},
        {R"({"version": 2, "customRatio": {"height": 0}})",
         "\"customRatio.height\" must be between 1e-06 and 1e+06"},
        {R"({"version": 2, "portraitOfFace": {"faceHeight": 120}})",
         "\"portraitOfFace.faceHeight\" must be between 1 and 99"},
        {R"({"version": 2, "portraitOfFace": true})",
         "\"portraitOfFace\" must be an object or null"},
        {R"({"version": 3})",
         "version 3 is not one this Vellumo reads (it reads versions 1 and 2)"},
    };
    for (const auto& c : cases) {
        const auto loaded = SettingsFromProfileText(c.text, {});
        EXPECT_FALSE(loaded) << c.text;
        EXPECT_EQ(loaded.reason(), c.reason) << c.text;
    }
}

}  // namespace
}  // namespace vellumo
