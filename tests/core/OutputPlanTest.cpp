// Where every image of a job goes: one output per path, originals never
// written unless they are replaced on purpose, numbered names for clashes.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/OutputPlan.h"
#include "tests/support/TempDir.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

class OutputPlanTest : public ::testing::Test {
  protected:
    OutputPlanTest() {
        settings.outputFolder = dir.File("out");
        settings.nameTemplate = "[FileName]";
        settings.outputFormat = OutputFormat::Jpg;  // JPG
        fs::create_directories(dir.File("out"));
        fs::create_directories(dir.File("a"));
        fs::create_directories(dir.File("b"));
    }
    std::string Touch(const std::string& name) {
        std::ofstream(dir.File(name)) << name;
        return dir.File(name);
    }

    test::TempDir dir;
    CropSettings settings;
};

TEST(NumberedPath, PutsTheNumberBeforeTheLastExtension) {
    EXPECT_EQ(NumberedPath("/out/x.jpg", 2), "/out/x (2).jpg");
    EXPECT_EQ(NumberedPath("/out/archive.tar.gz", 3), "/out/archive.tar (3).gz");
    EXPECT_EQ(NumberedPath("/o.d/name", 2), "/o.d/name (2)");
    EXPECT_EQ(NumberedPath("/out/.hidden", 2), "/out/.hidden (2)");
}

// The command line's --format and a profile's "format" name a format by its
// title; the output's extension is the title in lower case.
TEST(OutputFormat, EveryFormatIsNamedByItsTitleInAnyCaseAndBack) {
    ASSERT_EQ(kOutputFormats.size(), 14u);
    for (const OutputFormatInfo& row : kOutputFormats) {
        const std::string title(row.title);
        EXPECT_EQ(OutputFormatNamed(title), row.format) << title;
        EXPECT_EQ(OutputFormatNamed(OutputFormatExtension(row.format)), row.format) << title;
        EXPECT_EQ(InfoOf(row.format).title, row.title);
    }
    EXPECT_EQ(OutputFormatExtension(OutputFormat::WebP), "webp");
    EXPECT_EQ(OutputFormatNamed("Jxl"), OutputFormat::Jxl);
    EXPECT_FALSE(OutputFormatNamed("heif").has_value());  // read, never written
    EXPECT_FALSE(OutputFormatNamed("").has_value());
    EXPECT_EQ(OutputFormatTitles(" "),
              "JPG JPEG JPE JP2 JPX PNG TIFF TIF GIF BMP WEBP AVIF HEIC JXL");
}

TEST(OutputFormatOfPath, NamesTheFormatOfTheExtensionInAnyCase) {
    EXPECT_EQ(OutputFormatOfPath("/a/b.JPEG"), OutputFormat::Jpeg);
    EXPECT_EQ(OutputFormatOfPath("/a/b.jpx"), OutputFormat::Jpx);
    EXPECT_EQ(OutputFormatOfPath("/a/b.Tif"), OutputFormat::Tif);
    EXPECT_EQ(OutputFormatOfPath("/a/b.webp"), OutputFormat::WebP);
    EXPECT_EQ(OutputFormatOfPath("/a/b.JXL"), OutputFormat::Jxl);
    EXPECT_EQ(OutputFormatOfPath("/a/b.heif"), std::nullopt);  // read, never written
    EXPECT_EQ(OutputFormatOfPath("/a/b.psd"), std::nullopt);
    EXPECT_EQ(OutputFormatOfPath("/a/b"), std::nullopt);
}

TEST_F(OutputPlanTest, WithoutClashesEveryImageHasItsGeneratedPath) {
    const OutputPlan plan =
        PlanOutputs(settings, {Touch("a/x.png"), Touch("b/y.png")}, ClashPolicy::Refuse);
    ASSERT_EQ(plan.images.size(), 2u);
    EXPECT_EQ(plan.images[0].path, dir.File("out") + "/x.jpg");
    EXPECT_EQ(plan.images[1].path, dir.File("out") + "/y.jpg");
    EXPECT_TRUE(plan.images[0].refusal.empty());
    EXPECT_TRUE(plan.clashes.empty());
}

TEST_F(OutputPlanTest, LaterImagesOfOnePathAreRefusedAndTheClashNamesThemAll) {
    const std::vector<std::string> list = {Touch("a/x.png"), Touch("b/y.png"), Touch("b/x.png"),
                                           Touch("x.png")};
    const OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Refuse);
    EXPECT_TRUE(plan.images[0].refusal.empty());
    EXPECT_TRUE(plan.images[1].refusal.empty());
    EXPECT_EQ(plan.images[2].refusal, kClashReason);
    EXPECT_EQ(plan.images[3].refusal, kClashReason);
    ASSERT_EQ(plan.clashes.size(), 1u);
    EXPECT_EQ(plan.clashes[0].path, dir.File("out") + "/x.jpg");
    EXPECT_EQ(plan.clashes[0].images, (std::vector<long>{0, 2, 3}));
}

TEST_F(OutputPlanTest, PathsThatAreSpelledDifferentlyStillClash) {
    // Two images named apart by the template, whose paths meet in one
    // folder reached through "..", a doubled separator and a link.
    fs::create_directory_symlink(dir.File("out"), dir.File("link"));
    settings.outputFolder = dir.File("a") + "/../link/";
    settings.nameTemplate = "[FileName]";
    const std::vector<std::string> list = {Touch("a/x.png"), Touch("b/x.png")};
    const OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Refuse);
    EXPECT_EQ(plan.images[0].path, dir.File("a") + "/../link//x.jpg");
    EXPECT_EQ(plan.images[1].refusal, kClashReason);
    // The same folder spelled plainly is the same path too.
    settings.outputFolder = dir.File("out");
    const OutputPlan plain = PlanOutputs(settings, list, ClashPolicy::Refuse);
    EXPECT_EQ(plain.images[1].refusal, kClashReason);
}

TEST_F(OutputPlanTest, NumberingSkipsNamesOtherImagesUseOrRead) {
    // b/x (2).png is itself listed, and its output is out/x (2).jpg.
    const std::vector<std::string> list = {Touch("a/x.png"), Touch("b/x.png"), Touch("b/x (2).png"),
                                           Touch("x.png")};
    const OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Number);
    EXPECT_EQ(plan.images[0].path, dir.File("out") + "/x.jpg");
    EXPECT_EQ(plan.images[1].path, dir.File("out") + "/x (3).jpg");
    EXPECT_EQ(plan.images[2].path, dir.File("out") + "/x (2).jpg");
    EXPECT_EQ(plan.images[3].path, dir.File("out") + "/x (4).jpg");
    for (const PlannedOutput& image : plan.images) {
        EXPECT_TRUE(image.refusal.empty()) << image.path;
    }
    ASSERT_EQ(plan.clashes.size(), 1u);
    EXPECT_EQ(plan.clashes[0].images, (std::vector<long>{0, 1, 3}));
}

TEST_F(OutputPlanTest, AnExistingFileIsOnePathWhateverLinksLeadToIt) {
    // out/x.jpg exists; out/y.jpg is a hard link to it, out/z.jpg a symbolic
    // link: the three outputs are one file.
    Touch("out/x.jpg");
    fs::create_hard_link(dir.File("out/x.jpg"), dir.File("out/y.jpg"));
    fs::create_symlink(dir.File("out/x.jpg"), dir.File("out/z.jpg"));
    const OutputPlan plan = PlanOutputs(
        settings, {Touch("a/x.png"), Touch("a/y.png"), Touch("a/z.png")}, ClashPolicy::Refuse);
    EXPECT_TRUE(plan.images[0].refusal.empty());
    EXPECT_EQ(plan.images[1].refusal, kClashReason);
    EXPECT_EQ(plan.images[2].refusal, kClashReason);
}

TEST_F(OutputPlanTest, AnOutputThatIsAnyListedImageIsRefused) {
    settings.outputFolder = dir.File("b");
    settings.outputFormat = OutputFormat::Png;  // PNG: b/x.png is the output of a/x.png
    const std::vector<std::string> list = {Touch("a/x.png"), Touch("b/x.png")};
    const OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Number);
    EXPECT_EQ(plan.images[0].refusal, kOriginalReason);
    EXPECT_EQ(plan.images[1].refusal, kOriginalReason);
    EXPECT_TRUE(plan.clashes.empty());
}

TEST_F(OutputPlanTest, AHardLinkToAnOriginalIsThatOriginal) {
    settings.outputFormat = OutputFormat::Png;
    const std::string source = Touch("a/p.png");
    fs::create_hard_link(source, dir.File("out/p.png"));
    const OutputPlan plan = PlanOutputs(settings, {source}, ClashPolicy::Number);
    EXPECT_EQ(plan.images[0].refusal, kOriginalReason);
}

TEST_F(OutputPlanTest, ReplacingOriginalsWritesEachFileInItsOwnFormatAndAFileListedTwiceOnce) {
    settings.replaceOriginals = true;
    const std::vector<std::string> list = {Touch("a/x.png"), Touch("b/y.TIF"),
                                           dir.File("a") + "/./x.png", Touch("b/z.heif")};
    const OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Number);
    EXPECT_EQ(plan.images[0].path, list[0]);
    EXPECT_EQ(plan.images[0].format, OutputFormat::Png);
    EXPECT_EQ(plan.images[0].target, OutputTarget::Source);
    EXPECT_TRUE(plan.images[0].refusal.empty());
    EXPECT_EQ(plan.images[1].format, OutputFormat::Tif);
    EXPECT_EQ(plan.images[1].target, OutputTarget::Source);
    // Even when numbering: the second entry would read the file after it
    // was replaced.
    EXPECT_EQ(plan.images[2].refusal, kClashReason);
    EXPECT_FALSE(plan.images[3].refusal.empty());
}

}  // namespace
}  // namespace vellumo
