// Output names made of what the photo holds: the tokens, their values, the
// refusals of templates that cannot be read, and the facts read from files
// (compared with what exiftool wrote and date(1) reads).

#include <gtest/gtest.h>

#include <fstream>

#include "batch/ImageProcessor.h"
#include "batch/NameFacts.h"
#include "batch/NameTemplate.h"
#include "batch/OutputPlan.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ShellQuote;

ExpandedName Expand(const std::string& text, const NameValues& values) {
    std::string problem;
    const std::optional<NameTemplate> name = NameTemplate::Parse(text, problem);
    EXPECT_TRUE(name) << problem;
    return name ? name->Expand(values) : ExpandedName{};
}

NameValues Photo() {
    NameValues values;
    values.source = "/photos/shoes/IMG_0042.JPG";
    values.index = 6;
    values.outputSize = Size{1920, 1080};
    values.facts = PhotoFacts{CalendarTime{2023, 7, 4, 9, 5, 3}, "Canon EOS R5"};
    return values;
}

TEST(NameTemplate, EveryTokenTakesItsValue) {
    const ExpandedName name = Expand(
        "[FileName]-[FileIndex]-[Folder]-[Ext]-[Date]-[Camera]-[Width]x[Height]-[Ratio]", Photo());
    EXPECT_EQ(name.name, "IMG_0042-7-shoes-JPG-2023-07-04-Canon EOS R5-1920x1080-16x9");
    EXPECT_EQ(EnglishLine(name.warnings), "");
}

TEST(NameTemplate, AnEmptyPathHasNoFolder) {
    NameValues values = Photo();
    values.source.clear();
    const ExpandedName name = Expand("[Folder]x", values);
    EXPECT_EQ(name.name, "x (7)");
    EXPECT_EQ(EnglishLine(name.warnings), "[Folder] has no value: left empty in the name");
}

TEST(NameTemplate, DatePatternsUseTheirLetters) {
    EXPECT_EQ(Expand("[Date:yyyy-MM-dd_HHmm]", Photo()).name, "2023-07-04_0905");
    EXPECT_EQ(Expand("[Date:yy.M.d H.m.s]", Photo()).name, "23.7.4 9.5.3");
    EXPECT_EQ(Expand("[Date:HH:mm:ss]", Photo()).name, "09:05:03");
}

TEST(NameTemplate, TokenWithoutValueIsLeftEmptyWithAWarning) {
    NameValues values = Photo();
    values.facts->camera.clear();
    values.outputSize.reset();
    const ExpandedName name = Expand("[Camera]_[Width]_[FileName]", values);
    EXPECT_EQ(name.name, "__IMG_0042");
    EXPECT_EQ(EnglishLine(name.warnings),
              "[Camera], [Width] have no value: left empty in the name");
    values.facts.reset();
    EXPECT_EQ(EnglishLine(Expand("[Date]", values).warnings),
              "[Date] has no value: left empty in the name");
}

// A name shown before the facts are read keeps each token without a value
// as written, pattern and all; the others take their values.
TEST(NameTemplate, TokenWithoutValueCanBeKeptAsWritten) {
    NameValues values = Photo();
    values.facts.reset();
    values.outputSize.reset();
    std::string problem;
    const std::optional<NameTemplate> name =
        NameTemplate::Parse("[Date:yyyy-MM-dd HH-mm]_[Camera]_[FileName]_[Width]", problem);
    ASSERT_TRUE(name) << problem;
    const ExpandedName shown = name->Expand(values, NameTemplate::Missing::KeptAsToken);
    EXPECT_EQ(shown.name, "[Date:yyyy-MM-dd HH-mm]_[Camera]_IMG_0042_[Width]");
    EXPECT_EQ(EnglishLine(shown.warnings),
              "[Date], [Camera], [Width] have no value: left empty in the name");
    EXPECT_EQ(name->Expand(Photo(), NameTemplate::Missing::KeptAsToken).name,
              "2023-07-04 09-05_Canon EOS R5_IMG_0042_1920");
}

TEST(NameTemplate, SlashAndNulInAValueAreReplaced) {
    NameValues values = Photo();
    values.facts->camera = std::string("EOS R/5\0x", 9);
    EXPECT_EQ(Expand("[Camera]", values).name, "EOS R_5_x (7)");
}

TEST(NameTemplate, TemplateThatNamesNoImageGetsTheIndex) {
    EXPECT_EQ(Expand("[Camera]", Photo()).name, "Canon EOS R5 (7)");
    EXPECT_EQ(Expand("[Date:yyyy]", Photo()).name, "2023");
    EXPECT_EQ(Expand("", Photo()).name, "IMG_0042");
}

TEST(NameTemplate, UnknownOrUnclosedTokensAreRefused) {
    const std::string known =
        " (known: [FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] "
        "[Height] [Ratio])";
    EXPECT_EQ(NameTemplateProblem("a_[Date:").value_or(""), "unclosed token [Date:" + known);
    EXPECT_EQ(NameTemplateProblem("[Foo]").value_or(""), "unknown token [Foo]" + known);
    EXPECT_EQ(NameTemplateProblem("[Camera:x]").value_or(""), "unknown token [Camera:x]" + known);
    EXPECT_EQ(NameTemplateProblem("[Date:yyyy-QQ]").value_or(""),
              "token [Date:yyyy-QQ]: the date pattern letters \"QQ\" (use yyyy yy MM M dd d HH "
              "H mm m ss s)");
    EXPECT_EQ(NameTemplateProblem("[Date:]").value_or(""), "token [Date:]: an empty date pattern");
    EXPECT_FALSE(NameTemplateProblem("plain ] text [FileName]"));
}

TEST(NameTemplate, ANameThatWouldLeaveTheOutputFolderIsRefused) {
    const std::string why = "a name cannot hold \"/\": every crop goes into the output folder";
    EXPECT_EQ(NameTemplateProblem("../../[FileName]").value_or(""), why);
    EXPECT_EQ(NameTemplateProblem("sub/[FileName]").value_or(""), why);
    EXPECT_EQ(NameTemplateProblem(std::string("a\0b", 3)).value_or(""), why);
    // A date pattern's "/" becomes part of the name, as in any value.
    EXPECT_EQ(Expand("[Date:yyyy/MM]", Photo()).name, "2023_07");
}

TEST(NameTemplate, RatioNames) {
    EXPECT_EQ(RatioName({1920, 1080}), "16x9");
    EXPECT_EQ(RatioName({1080, 1920}), "9x16");
    EXPECT_EQ(RatioName({1000, 1000}), "1x1");
    EXPECT_EQ(RatioName({1910, 1000}), "1.91x1");
    EXPECT_EQ(RatioName({400, 500}), "4x5");
    EXPECT_EQ(RatioName({700, 300}), "21x9");  // 7:3 is 21:9
    EXPECT_EQ(RatioName({700, 200}), "7x2");
    EXPECT_EQ(RatioName({1234, 567}), "2.18x1");
}

TEST(NameTemplate, PlanRefusesEveryImageOfATemplateThatCannotBeRead) {
    CropSettings settings;
    settings.outputFolder = "/out";
    settings.nameTemplate = "[FileName]_[Date:";
    const OutputPlan plan = PlanOutputs(settings, {"/p/a.jpg", "/p/b.jpg"}, ClashPolicy::Number);
    ASSERT_EQ(plan.images.size(), 2u);
    EXPECT_EQ(plan.images[1].refusal.rfind("the name template cannot be used: unclosed token", 0),
              0u);
}

TEST(PhotoFacts, ExifDates) {
    EXPECT_EQ(ExifCalendarTime("2024:05:17 14:03:09"), (CalendarTime{2024, 5, 17, 14, 3, 9}));
    EXPECT_FALSE(ExifCalendarTime("0000:00:00 00:00:00"));
    EXPECT_FALSE(ExifCalendarTime("    :  :     :  :  "));
    EXPECT_FALSE(ExifCalendarTime("2024:13:17 14:03:09"));
}

class PhotoFactsFiles : public ::testing::Test {
  protected:
    std::string Jpeg(const std::string& name, int width, int height) {
        const std::string path = dir.File(name);
        test::PhotoLikeImage(width, height).jpegsave(path.c_str());
        return path;
    }
    test::TempDir dir;
};

TEST_F(PhotoFactsFiles, ReadAsExiftoolWroteThem) {
    const std::string path = Jpeg("a.jpg", 64, 48);
    ASSERT_EQ(test::RunCommand("exiftool -q -overwrite_original "
                               "'-DateTimeOriginal=2021:12:24 18:30:15' '-Model=PEN-F ' " +
                               ShellQuote(path))
                  .exitCode,
              0);
    const PhotoFacts facts = ReadPhotoFacts(path);
    EXPECT_EQ(facts.taken, (CalendarTime{2021, 12, 24, 18, 30, 15}));
    EXPECT_EQ(test::RunCommand("exiftool -s3 -Model " + ShellQuote(path)).out, "PEN-F\n");
    EXPECT_EQ(facts.camera, "PEN-F");
}

TEST_F(PhotoFactsFiles, WithoutExifTheDateIsTheModificationTime) {
    const std::string path = Jpeg("b.jpg", 64, 48);
    ASSERT_EQ(test::RunCommand("touch -m -d '2019-03-02 07:08:09' " + ShellQuote(path)).exitCode,
              0);
    const PhotoFacts facts = ReadPhotoFacts(path);
    ASSERT_TRUE(facts.taken);
    std::string problem;
    const std::string shown = NameTemplate::Parse("[Date:yyyy-MM-dd HH:mm:ss]", problem)
                                  ->Expand({path, 0, {}, facts})
                                  .name;
    EXPECT_EQ(shown + "\n",
              test::RunCommand("date -r " + ShellQuote(path) + " '+%Y-%m-%d %H:%M:%S'").out);
    EXPECT_EQ(facts.camera, "");
}

TEST_F(PhotoFactsFiles, DamagedFileHasNoCameraAndItsFileTime) {
    const std::string path = dir.File("junk.jpg");
    std::ofstream(path) << "\xff\xd8\xff\xe1garbage";
    const PhotoFacts facts = ReadPhotoFacts(path);
    EXPECT_EQ(facts.camera, "");
    EXPECT_TRUE(facts.taken);
}

TEST_F(PhotoFactsFiles, GatheredFactsGiveThePlannedNames) {
    const std::string a = Jpeg("a.jpg", 400, 300);
    ASSERT_EQ(test::RunCommand("exiftool -q -overwrite_original "
                               "'-DateTimeOriginal=2020:01:02 03:04:05' -Model=X100V " +
                               ShellQuote(a))
                  .exitCode,
              0);
    CropSettings settings;
    settings.mode = CropMode::Auto;
    settings.autoCropRatio = RatioChoice::Ratio16x9;
    settings.outputFolder = dir.File("out");
    settings.nameTemplate = "[Date:yyyyMMdd-HHmmss]_[Camera]_[Width]x[Height]_[Ratio]";
    const std::vector<std::string> list = {a, dir.File("missing.jpg")};
    InProcessImageProcessor processor;
    const std::vector<ImageNameFacts> facts = GatherNameFacts(settings, list, processor, nullptr);
    ASSERT_EQ(facts.size(), 2u);
    const OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Number, &facts);
    EXPECT_EQ(plan.images[0].path, dir.File("out") + "/20200102-030405_X100V_400x225_16x9.jpg");
    EXPECT_EQ(EnglishLine(plan.images[0].warnings), "");
    EXPECT_EQ(plan.images[1].path, dir.File("out") + "/__x_.jpg");
    EXPECT_EQ(EnglishLine(plan.images[1].warnings),
              "[Date], [Camera], [Width], [Height], [Ratio] have no value: left empty in the name");
}

}  // namespace
}  // namespace vellumo
