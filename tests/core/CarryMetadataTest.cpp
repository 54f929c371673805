// Carrying a source file's Exif, IPTC and XMP into a saved file, read back
// with exiftool; the saved file keeps its own format and pixels.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "imaging/ImageTools.h"
#include "imaging/MetadataCarry.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ExifToolTags;
using test::ExifToolValue;
using test::ReadFile;
using test::RunCommand;
using test::ShellQuote;
using test::TempDir;

// Saves a crop of the file at `source` as `name` in `format`.
std::string SaveCrop(const TempDir& dir, const std::string& source, const std::string& name,
                     OutputFormat format, Rect rect) {
    const LoadResult loaded = ImageTools::LoadImage(source);
    EXPECT_TRUE(loaded) << source << ": " << loaded.reason();
    if (!loaded) {
        return {};
    }
    const Image cut = ImageTools::CropImage(*loaded, rect);
    const std::string path = dir.File(name);
    const SaveResult saved = ImageTools::TrySaveImage(cut, path, format, 0.9);
    EXPECT_TRUE(saved.saved) << saved.reason;
    return path;
}

// Writes tags into a file with exiftool.
void ExifToolWrite(const std::string& path, const std::string& assignments) {
    const test::CommandResult result = RunCommand("exiftool -q -q -overwrite_original " +
                                                  assignments + " " + ShellQuote(path) + " 2>&1");
    ASSERT_EQ(result.exitCode, 0) << result.out;
}

struct CarryCase {
    const char* source;  // under the shared test images
    OutputFormat format;
    const char* name;
};

void PrintTo(const CarryCase& c, std::ostream* out) {
    *out << c.source << " -> " << c.name;
}

class CameraPhoto : public ::testing::TestWithParam<CarryCase> {};

// The tags that must arrive as the source has them.
const std::vector<std::string> kUnchangedTags = {
    "Make",           "Model",       "DateTimeOriginal", "CreateDate",  "ExposureTime",
    "FNumber",        "ISO",         "FocalLength",      "GPSLatitude", "GPSLongitude",
    "GPSLatitudeRef", "GPSAltitude", "ModifyDate",
};

// The values of `tags` in `path` equal those in `source`, and all are there.
void ExpectSameValues(const std::string& path, const std::string& source,
                      const std::vector<std::string>& tags) {
    const auto expected = test::ExifToolValues(source, tags, true);
    const auto actual = test::ExifToolValues(path, tags, true);
    for (const std::string& tag : tags) {
        ASSERT_EQ(expected.count(tag), 1u) << "the source has no " << tag;
        EXPECT_EQ(actual.count(tag) ? actual.at(tag) : "(missing)", expected.at(tag)) << tag;
    }
}

TEST_P(CameraPhoto, CarriesCameraDatesAndGpsWithUprightOrientationOwnSizeAndNoThumbnail) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath(GetParam().source);
    ASSERT_NE(ExifToolValue(source, "Orientation", true), "1");
    ASSERT_FALSE(ExifToolValue(source, "ThumbnailImage").empty());
    ASSERT_FALSE(ExifToolValue(source, "GPSLatitude").empty());
    TempDir dir;
    const std::string path =
        SaveCrop(dir, source, GetParam().name, GetParam().format, {30, 40, 300, 400});
    const std::string formatBefore = test::MagickFormat(path);
    const std::vector<unsigned char> pixelsBefore = test::MagickPixels(path, "", "rgb", 8);
    ASSERT_EQ(pixelsBefore.size(), 300u * 400u * 3u);

    ImageTools::CarryMetadata(source, path);

    ExpectSameValues(path, source, kUnchangedTags);
    const auto own = test::ExifToolValues(
        path, {"Orientation", "ExifImageWidth", "ExifImageHeight", "ThumbnailImage"}, true);
    EXPECT_EQ(own.at("Orientation"), "1");
    EXPECT_EQ(own.at("ExifImageWidth"), "300");
    EXPECT_EQ(own.at("ExifImageHeight"), "400");
    EXPECT_EQ(own.count("ThumbnailImage"), 0u);
    EXPECT_EQ(ExifToolTags(path, "-IFD1:all"), std::vector<std::string>{});
    // Same format, same pixels.
    EXPECT_EQ(test::MagickFormat(path), formatBefore);
    EXPECT_TRUE(test::MagickPixels(path, "", "rgb", 8) == pixelsBefore);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, CameraPhoto,
    ::testing::Values(
        CarryCase{"orientation/Samsung GT-I9000 (Galaxy S).jpg", OutputFormat::Jpg, "s.jpg"},
        CarryCase{"orientation/Samsung GT-I9000 (Galaxy S).jpg", OutputFormat::Jp2, "s.jp2"},
        CarryCase{"orientation/Samsung GT-I9000 (Galaxy S).jpg", OutputFormat::Png, "s.png"},
        CarryCase{"orientation/Samsung GT-I9000 (Galaxy S).jpg", OutputFormat::Tiff, "s.tiff"},
        CarryCase{"orientation/Apple iPhone 5.jpg", OutputFormat::Jpeg, "i.jpeg"},
        CarryCase{"orientation/Apple iPhone 5.jpg", OutputFormat::Jpx, "i.jpx"},
        CarryCase{"orientation/Apple iPhone 5.jpg", OutputFormat::Png, "i.png"},
        CarryCase{"orientation/Apple iPhone 5.jpg", OutputFormat::Tif, "i.tif"}),
    [](const auto& info) {
        std::string name = std::string(info.param.source).substr(12, 5) + "_" + info.param.name;
        for (char& c : name) {
            if (!std::isalnum(static_cast<unsigned char>(c)))
                c = '_';
        }
        return name;
    });

// ---- Keywords, ratings, lens, XMP --------------------------------------

class TaggedSource : public ::testing::TestWithParam<std::pair<OutputFormat, const char*>> {};

TEST_P(TaggedSource, EverythingElseTravelsUnchanged) {
    TempDir dir;
    const std::string source = dir.File("tagged.jpg");
    test::PhotoLikeImage(320, 240).jpegsave(source.c_str());
    ExifToolWrite(source,
                  "-Make=Vellumo -Model='Test Camera' -LensModel='Test Lens 35mm f/2' "
                  "'-DateTimeOriginal=2019:07:14 10:11:12' -GPSLatitude=51.5 "
                  "-GPSLatitudeRef=N -GPSLongitude=0.12 -GPSLongitudeRef=W "
                  "-IPTC:Keywords=harbour -IPTC:Keywords=boats -XMP-xmp:Rating=4 "
                  "'-XMP-dc:Title=Evening tide' -XMP-dc:Subject=harbour -Orientation#=6");
    const auto [format, name] = GetParam();
    const std::string path = SaveCrop(dir, source, name, format, {10, 10, 100, 150});

    ImageTools::CarryMetadata(source, path);

    ExpectSameValues(path, source,
                     {"Make", "Model", "LensModel", "DateTimeOriginal", "GPSLatitude",
                      "GPSLongitude", "Keywords", "Rating", "Title", "Subject"});
    const auto own =
        test::ExifToolValues(path, {"Keywords", "Rating", "Orientation", "ExifImageWidth"}, true);
    EXPECT_EQ(own.at("Keywords"), "harbour, boats");
    EXPECT_EQ(own.at("Rating"), "4");
    EXPECT_EQ(own.at("Orientation"), "1");
    EXPECT_EQ(own.at("ExifImageWidth"), "100");
}

// An Ultra HDR photo describes its gain map (stored after the picture) in
// XMP; the saved file has no gain map, so the description stays behind while
// the rest of the XMP travels.
TEST(CarryMetadata, TheDescriptionOfAGainMapThatIsNotCarriedStaysBehind) {
    TempDir dir;
    const std::string source = dir.File("hdr.jpg");
    test::PhotoLikeImage(160, 120).jpegsave(source.c_str());
    const std::string packet = dir.File("gainmap.xmp");
    std::ofstream(packet)
        << R"(<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF )"
        << R"(xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#"><rdf:Description )"
        << R"(rdf:about="" xmlns:hdrgm="http://ns.adobe.com/hdr-gain-map/1.0/" )"
        << R"(xmlns:dc="http://purl.org/dc/elements/1.1/" )"
        << R"(xmlns:Container="http://ns.google.com/photos/1.0/container/" )"
        << R"(xmlns:Item="http://ns.google.com/photos/1.0/container/item/" )"
        << R"(hdrgm:Version="1.0" hdrgm:GainMapMax="2.0"><dc:creator><rdf:Seq>)"
        << R"(<rdf:li>Someone</rdf:li></rdf:Seq></dc:creator><Container:Directory><rdf:Seq>)"
        << R"(<rdf:li rdf:parseType="Resource"><Container:Item Item:Semantic="Primary" )"
        << R"(Item:Mime="image/jpeg"/></rdf:li><rdf:li rdf:parseType="Resource">)"
        << R"(<Container:Item Item:Semantic="GainMap" Item:Mime="image/jpeg" )"
        << R"(Item:Length="1234"/></rdf:li></rdf:Seq></Container:Directory>)"
        << R"(</rdf:Description></rdf:RDF></x:xmpmeta>)";
    ExifToolWrite(source, "'-xmp<=" + packet + "'");
    ASSERT_FALSE(ExifToolTags(source, "-XMP-hdrgm:all").empty());
    ASSERT_FALSE(ExifToolTags(source, "-XMP-Container:all").empty());
    const std::string path = SaveCrop(dir, source, "out.jpg", OutputFormat::Jpg, {10, 10, 100, 80});

    ImageTools::CarryMetadata(source, path);

    EXPECT_EQ(ExifToolValue(path, "XMP-dc:Creator"), "Someone");
    EXPECT_EQ(ExifToolTags(path, "-XMP-hdrgm:all"), std::vector<std::string>{});
    EXPECT_EQ(ExifToolTags(path, "-XMP-Container:all"), std::vector<std::string>{});
    EXPECT_EQ(ExifToolTags(path, "-MPF:all"), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(Formats, TaggedSource,
                         ::testing::Values(std::pair{OutputFormat::Jpg, "t.jpg"},
                                           std::pair{OutputFormat::Jp2, "t.jp2"},
                                           std::pair{OutputFormat::Png, "t.png"},
                                           std::pair{OutputFormat::Tiff, "t.tiff"}),
                         [](const auto& info) {
                             return std::to_string(PositionOfOutputFormat(info.param.first));
                         });

// ---- The saved file keeps its own format -------------------------------

TEST(CarryMetadata, PngSourceCroppedToJpegStaysJpegAndCarriesThePngsProperties) {
    TempDir dir;
    const std::string source = dir.File("source.png");
    test::CoordinateImage(200, 150).pngsave(source.c_str());
    ExifToolWrite(source,
                  "-Model='PNG Camera' '-DateTimeOriginal=2021:03:04 05:06:07' "
                  "-GPSLatitude=12.25 -GPSLatitudeRef=S '-XMP-dc:Title=From a PNG'");
    const std::string path =
        SaveCrop(dir, source, "cropped.jpg", OutputFormat::Jpg, {0, 0, 120, 90});

    ImageTools::CarryMetadata(source, path);

    EXPECT_EQ(test::MagickFormat(path), "JPEG");
    EXPECT_EQ(ReadFile(path).substr(0, 3), "\xFF\xD8\xFF");
    EXPECT_EQ(ExifToolValue(path, "FileType"), "JPEG");
    EXPECT_EQ(ExifToolValue(path, "Model"), "PNG Camera");
    EXPECT_EQ(ExifToolValue(path, "DateTimeOriginal"), "2021:03:04 05:06:07");
    EXPECT_EQ(ExifToolValue(path, "GPSLatitude", true), "-12.25");
    EXPECT_EQ(ExifToolValue(path, "Title"), "From a PNG");
    EXPECT_EQ(test::MagickIdentifySize(path).width, 120);
}

TEST(CarryMetadata, XmpOrientationAndSizeOfARealPngBecomeTheSavedFiles) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("orientation/xmp_tags_orientation.png");
    ASSERT_EQ(ExifToolValue(source, "XMP-tiff:Orientation", true), "3");
    TempDir dir;
    const std::string path =
        SaveCrop(dir, source, "cropped.jpg", OutputFormat::Jpg, {5, 5, 100, 80});
    ImageTools::CarryMetadata(source, path);
    EXPECT_EQ(test::MagickFormat(path), "JPEG");
    EXPECT_EQ(ExifToolValue(path, "XMP-tiff:Orientation", true), "1");
    EXPECT_EQ(ExifToolValue(path, "XMP-exif:ExifImageWidth", true), "100");
    EXPECT_EQ(ExifToolValue(path, "XMP-exif:ExifImageHeight", true), "80");
}

TEST(CarryMetadata, TiffSourceLeavesItsStorageTagsBehind) {
    TempDir dir;
    const std::string source = dir.File("scan.tif");
    test::CoordinateImage(160, 120).tiffsave(source.c_str());
    ExifToolWrite(source, "-Make=Scanner -Model='Flatbed 9000' -Artist=Someone");
    for (const auto& [format, name] : {std::pair{OutputFormat::Jpg, "s.jpg"},
                                       {OutputFormat::Tiff, "s.tif"},
                                       {OutputFormat::Png, "s.png"}}) {
        const std::string path = SaveCrop(dir, source, name, format, {0, 0, 90, 70});
        const std::vector<unsigned char> before = test::MagickPixels(path, "", "rgb", 8);
        ImageTools::CarryMetadata(source, path);
        EXPECT_EQ(ExifToolValue(path, "Model"), "Flatbed 9000") << name;
        EXPECT_EQ(ExifToolValue(path, "Artist"), "Someone") << name;
        EXPECT_TRUE(test::MagickPixels(path, "", "rgb", 8) == before) << name;
        const test::MagickSize size = test::MagickIdentifySize(path);
        EXPECT_EQ(size.width, 90) << name;
        EXPECT_EQ(size.height, 70) << name;
        if (format != OutputFormat::Tiff) {
            // The source's strip layout describes none of the saved pixels.
            for (const char* tag : {"StripOffsets", "StripByteCounts", "RowsPerStrip",
                                    "BitsPerSample", "PlanarConfiguration"}) {
                EXPECT_EQ(ExifToolValue(path, std::string("EXIF:") + tag), "") << name << tag;
            }
        }
    }
}

TEST(CarryMetadata, ReplacesMetadataAnExistingSavedFileHad) {
    TempDir dir;
    const std::string source = dir.File("source.jpg");
    test::PhotoLikeImage(120, 90).jpegsave(source.c_str());
    ExifToolWrite(source, "-Model=Newer");
    const std::string path = dir.File("existing.jpg");
    test::PhotoLikeImage(60, 40).jpegsave(path.c_str());
    ExifToolWrite(path, "-Model=Older -Artist=Former");
    ImageTools::CarryMetadata(source, path);
    EXPECT_EQ(ExifToolValue(path, "Model"), "Newer");
    EXPECT_EQ(ExifToolValue(path, "Artist"), "");
}

// ---- The colour profile ------------------------------------------------

class ProfileThroughCarry : public ::testing::TestWithParam<std::pair<OutputFormat, const char*>> {
};

TEST_P(ProfileThroughCarry, SavedFilesProfileStays) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("large/sky.jpg");
    TempDir dir;
    const auto [format, name] = GetParam();
    const std::string path = SaveCrop(dir, source, name, format, {2000, 1500, 300, 200});
    ImageTools::CarryMetadata(source, path);
    EXPECT_EQ(ExifToolValue(path, "Model"), "Pixel 6 Pro");
    EXPECT_TRUE(test::ExifToolBinary(path, "ICC_Profile") ==
                test::ExifToolBinary(source, "ICC_Profile"));
}

INSTANTIATE_TEST_SUITE_P(Formats, ProfileThroughCarry,
                         ::testing::Values(std::pair{OutputFormat::Jpg, "p.jpg"},
                                           std::pair{OutputFormat::Jp2, "p.jp2"},
                                           std::pair{OutputFormat::Png, "p.png"},
                                           std::pair{OutputFormat::Tiff, "p.tif"}),
                         [](const auto& info) {
                             return std::to_string(PositionOfOutputFormat(info.param.first));
                         });

// ---- Formats without these metadata, and files that cannot be used -----

std::filesystem::file_time_type ModifiedAt(const std::string& path) {
    return std::filesystem::last_write_time(path);
}

TEST(CarryMetadata, GifAndBmpAreLeftExactlyAsTheyWere) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = test::TestDataPath("orientation/Samsung GT-I9000 (Galaxy S).jpg");
    TempDir dir;
    for (const auto& [format, name] :
         {std::pair{OutputFormat::Gif, "s.gif"}, {OutputFormat::Bmp, "s.bmp"}}) {
        const std::string path = SaveCrop(dir, source, name, format, {0, 0, 200, 100});
        const std::string before = ReadFile(path);
        const auto modified = ModifiedAt(path);
        const MetadataResult result = ImageTools::CarryMetadata(source, path);
        EXPECT_EQ(result.status, MetadataResult::Status::NotCarried) << name;
        EXPECT_EQ(result.reason, "the saved file's format carries no metadata") << name;
        EXPECT_TRUE(ReadFile(path) == before) << name;
        EXPECT_EQ(ModifiedAt(path), modified) << name;
    }
}

TEST(CarryMetadata, SourceThatIsNoImageLeavesTheSavedFileAlone) {
    TempDir dir;
    const std::string source = dir.File("notes.jpg");
    std::ofstream(source) << "not a picture at all";
    const std::string path = dir.File("out.jpg");
    test::PhotoLikeImage(60, 40).jpegsave(path.c_str());
    const std::string before = ReadFile(path);
    const auto modified = ModifiedAt(path);
    for (const std::string& unreadable : {source, dir.File("missing.jpg")}) {
        const MetadataResult result = ImageTools::CarryMetadata(unreadable, path);
        EXPECT_EQ(result.status, MetadataResult::Status::NotCarried);
        EXPECT_EQ(result.reason.rfind("the source's metadata cannot be read (", 0), 0u)
            << result.reason;
    }
    EXPECT_TRUE(ReadFile(path) == before);
    EXPECT_EQ(ModifiedAt(path), modified);
}

TEST(CarryMetadata, SavedFileThatIsMissingOrNoImageIsLeftAlone) {
    TempDir dir;
    const std::string source = dir.File("source.jpg");
    test::PhotoLikeImage(60, 40).jpegsave(source.c_str());
    ExifToolWrite(source, "-Model=Someone");
    ImageTools::CarryMetadata(source, dir.File("gone.jpg"));
    EXPECT_FALSE(std::filesystem::exists(dir.File("gone.jpg")));
    const std::string text = dir.File("text.jpg");
    std::ofstream(text) << "plain text";
    ImageTools::CarryMetadata(source, text);
    EXPECT_EQ(ReadFile(text), "plain text");
}

// ---- The creation date -------------------------------------------------

long long Seconds(std::chrono::system_clock::time_point when) {
    return std::chrono::duration_cast<std::chrono::seconds>(when.time_since_epoch()).count();
}

TEST(CarryCreationDate, SavedFileGetsTheSourcesCreationDate) {
    TempDir dir;
    const std::string source = dir.File("source.jpg");
    test::PhotoLikeImage(120, 90).jpegsave(source.c_str());
    // An old modification time, so that a birth time (now) and it differ.
    ASSERT_EQ(RunCommand("touch -m -d '2011-04-02 18:30:10' " + ShellQuote(source)).exitCode, 0);
    const test::StatTimes sourceTimes = test::StatSeconds(source);
    const long long created = sourceTimes.birth != 0 ? sourceTimes.birth : sourceTimes.modification;
    EXPECT_EQ(Seconds(ImageTools::CreationDate(source)), created);

    const std::string path = SaveCrop(dir, source, "out.png", OutputFormat::Png, {0, 0, 50, 50});
    testing::internal::CaptureStdout();
    const MetadataResult carried = ImageTools::CarryMetadata(source, path);
    EXPECT_EQ(carried.status, MetadataResult::Status::Carried) << carried.reason;
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "the library prints nothing";
    // Linux lets no one set a birth time: the modification time carries it.
    EXPECT_EQ(test::StatSeconds(path).modification, created);
    EXPECT_EQ(ExifToolValue(path, "FileModifyDate", true).substr(0, 19),
              RunCommand("date -d @" + std::to_string(created) + " '+%Y:%m:%d %H:%M:%S'")
                  .out.substr(0, 19));
}

TEST(CarryCreationDate, SourceThatVanishesAfterItsPropertiesWereReadGivesAboutNow) {
    TempDir dir;
    const std::string source = dir.File("source.jpg");
    test::PhotoLikeImage(120, 90).jpegsave(source.c_str());
    ExifToolWrite(source, "-Model=Vanishing");
    ASSERT_EQ(RunCommand("touch -m -d '2011-04-02 18:30:10' " + ShellQuote(source)).exitCode, 0);
    const std::string path = SaveCrop(dir, source, "out.jpg", OutputFormat::Jpg, {0, 0, 50, 50});

    const auto before = std::chrono::system_clock::now();
    metadatacarry::Carry(source, path, [&] {
        std::filesystem::remove(source);
        return ImageTools::CreationDate(source);
    });
    const auto after = std::chrono::system_clock::now();

    EXPECT_FALSE(std::filesystem::exists(source));
    EXPECT_EQ(ExifToolValue(path, "Model"), "Vanishing");
    const long long modified = test::StatSeconds(path).modification;
    EXPECT_GE(modified, Seconds(before));
    EXPECT_LE(modified, Seconds(after) + 1);
}

}  // namespace
}  // namespace vellumo
