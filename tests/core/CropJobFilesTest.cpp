// The job on real files: decisions, metadata, failures and the safety of
// sources and existing outputs.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/CropJob.h"
#include "batch/OutputPath.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using D = OverwriteDecision;

class CropJobFilesTest : public ::testing::Test {
  protected:
    CropJobFilesTest() {
        settings.outputFolder = dir.File("out");
        fs::create_directory(settings.outputFolder);
        settings.outputFormat = OutputFormat::Png;  // PNG
        settings.nameTemplate = "[FileName]";
        settings.mode = CropMode::Pixels;
        settings.pixelsOriginX = 10;
        settings.pixelsOriginY = 20;
        settings.pixelsWidth = 100;
        settings.pixelsHeight = 50;
    }
    std::string Source(const std::string& name, int w = 300, int h = 200) {
        test::CoordinateImage(w, h).pngsave(dir.File(name).c_str());
        return dir.File(name);
    }
    JobReport Run(const std::vector<std::string>& list, const std::vector<D>& decisions) {
        InProcessImageProcessor processor;
        return RunCropJob(settings, list, decisions, processor);
    }

    test::TempDir dir;
    CropSettings settings;
};

TEST_F(CropJobFilesTest, WritesTheCropOfEveryImage) {
    const std::vector<std::string> list = {Source("a.png"), Source("b.png", 120, 90)};
    const JobReport report = Run(list, {D::NoConflict, D::NoConflict});
    EXPECT_TRUE(report.allSucceeded);
    for (long i = 0; i < 2; ++i) {
        const std::string out = GenerateOutputPathWithImageIndex(settings, list, i);
        EXPECT_EQ(report.images[i].outcome.status, ImageStatus::Written);
        const test::MagickSize size = test::MagickIdentifySize(out);
        EXPECT_EQ(size.width, 100);
        EXPECT_EQ(size.height, 50);
    }
    // Pixels: top row of the cut is 200 - 20 - 50 = 130.
    const std::string out0 = GenerateOutputPathWithImageIndex(settings, list, 0);
    EXPECT_EQ(test::MagickPixels(out0, "", "rgb", 8),
              test::MagickPixels(list[0], "-crop 100x50+10+130 +repage", "rgb", 8));
    EXPECT_EQ(report.images[0].outcome.outputSize, (Size{100, 50}));
}

TEST_F(CropJobFilesTest, AZeroRectangleOrNoModeKeepsTheWholeImage) {
    const std::vector<std::string> list = {Source("a.png")};
    settings.pixelsWidth = 0;  // pixel mode, width 0
    EXPECT_EQ(Run(list, {D::NoConflict}).images[0].outcome.outputSize, (Size{300, 200}));
    settings.pixelsWidth = 100;
    settings.mode = CropMode::None;
    const JobReport report = Run(list, {D::Overwrite});
    EXPECT_EQ(report.images[0].outcome.rect, (Rect{0, 0, 0, 0}));
    EXPECT_EQ(test::MagickIdentifySize(GenerateOutputPathWithImageIndex(settings, list, 0)).width,
              300);
}

TEST_F(CropJobFilesTest, OverwriteReplacesTheExistingFile) {
    const std::vector<std::string> list = {Source("a.png")};
    const std::string out = GenerateOutputPathWithImageIndex(settings, list, 0);
    std::ofstream(out) << "old contents";
    const JobReport report = Run(list, {D::Overwrite});
    EXPECT_TRUE(report.allSucceeded);
    EXPECT_EQ(test::MagickIdentifySize(out).width, 100);
}

TEST_F(CropJobFilesTest, SkipLeavesTheExistingFileAlone) {
    const std::vector<std::string> list = {Source("a.png")};
    const std::string out = GenerateOutputPathWithImageIndex(settings, list, 0);
    std::ofstream(out) << "old contents";
    const JobReport report = Run(list, {D::Skip});
    EXPECT_TRUE(report.allSucceeded);
    EXPECT_EQ(report.images[0].outcome.status, ImageStatus::Skipped);
    EXPECT_EQ(test::ReadFile(out), "old contents");
}

TEST_F(CropJobFilesTest, ASkippedImageWithTheOptionGetsTheSourcesMetadataOnItsKeptFile) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string source = dir.File("camera.jpg");
    fs::copy_file(test::TestDataPath("orientation/Samsung GT-I9000 (Galaxy S).jpg"), source);
    const std::vector<std::string> list = {source};
    settings.keepMetadata = true;
    settings.outputFormat = OutputFormat::Jpg;  // JPG
    const std::string out = GenerateOutputPathWithImageIndex(settings, list, 0);
    // The kept file: a plain JPEG without metadata.
    test::CoordinateImage(64, 48).jpegsave(out.c_str(), vips::VImage::option()->set("strip", true));
    const std::vector<unsigned char> pixelsBefore = test::MagickPixels(out, "", "rgb", 8);
    ASSERT_EQ(test::ExifToolValue(out, "Model"), "");

    const JobReport report = Run(list, {D::Skip});
    EXPECT_TRUE(report.allSucceeded);
    EXPECT_EQ(test::ExifToolValue(out, "Model"), test::ExifToolValue(source, "Model"));
    EXPECT_NE(test::ExifToolValue(out, "Model"), "");
    EXPECT_EQ(test::MagickPixels(out, "", "rgb", 8), pixelsBefore);  // pixels left alone
}

TEST_F(CropJobFilesTest, AFailedSaveStopsMetadataForTheRestButNotTheSaves) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string camera = test::TestDataPath("orientation/Samsung GT-I9000 (Galaxy S).jpg");
    fs::copy_file(camera, dir.File("first.jpg"));
    fs::copy_file(camera, dir.File("second.jpg"));
    const std::vector<std::string> list = {dir.File("first.jpg"), dir.File("second.jpg")};
    settings.keepMetadata = true;
    settings.outputFormat = OutputFormat::Jpg;
    // A non-empty folder in the way of the first output: the save fails.
    const std::string blocked = GenerateOutputPathWithImageIndex(settings, list, 0);
    fs::create_directory(blocked);
    std::ofstream(blocked + "/keep") << "x";

    const JobReport report = Run(list, {D::Overwrite, D::NoConflict});
    ASSERT_FALSE(report.images[0].outcome.notes.empty());
    EXPECT_EQ(report.images[0].outcome.notes[0].kind, NoteKind::RemoveFailed);
    EXPECT_FALSE(report.allSucceeded);
    EXPECT_EQ(report.images[0].outcome.status, ImageStatus::Failed);
    EXPECT_FALSE(report.images[0].outcome.Reason().empty());
    EXPECT_TRUE(fs::exists(blocked + "/keep"));

    const std::string second = GenerateOutputPathWithImageIndex(settings, list, 1);
    EXPECT_EQ(report.images[1].outcome.status, ImageStatus::Written);
    EXPECT_EQ(test::MagickIdentifySize(second).width, 100);
    EXPECT_EQ(test::ExifToolValue(second, "Model"), "");  // no metadata after a failure
}

TEST_F(CropJobFilesTest, AnEmptyFolderInTheWayIsRemovedAndReplaced) {
    const std::vector<std::string> list = {Source("a.png")};
    const std::string out = GenerateOutputPathWithImageIndex(settings, list, 0);
    fs::create_directory(out);
    ::testing::internal::CaptureStdout();
    const JobReport report = Run(list, {D::Overwrite});
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(report.allSucceeded);
    EXPECT_TRUE(fs::is_regular_file(out));
}

TEST_F(CropJobFilesTest, AnUndecodableImageFailsAndTheOthersAreWritten) {
    const std::string broken = dir.File("broken.png");
    std::ofstream(broken) << "not a picture";
    const std::vector<std::string> list = {Source("a.png"), broken, Source("c.png")};
    const JobReport report = Run(list, {D::NoConflict, D::NoConflict, D::NoConflict});
    EXPECT_FALSE(report.allSucceeded);
    EXPECT_EQ(report.images[1].outcome.status, ImageStatus::Failed);
    EXPECT_EQ(report.images[1].outcome.Reason(),
              "cannot decode: not an image Vellumo reads (a text file)");
    EXPECT_FALSE(fs::exists(GenerateOutputPathWithImageIndex(settings, list, 1)));
    EXPECT_TRUE(fs::exists(GenerateOutputPathWithImageIndex(settings, list, 2)));
}

TEST_F(CropJobFilesTest, DamageFoundWhileWritingIsReportedAsADecodeFailure) {
    test::PhotoLikeImage(300, 200).jpegsave(dir.File("whole.jpg").c_str());
    const std::string bytes = test::ReadFile(dir.File("whole.jpg"));
    std::ofstream(dir.File("cut.jpg"), std::ios::binary) << bytes.substr(0, bytes.size() / 3);
    const std::vector<std::string> list = {dir.File("cut.jpg")};
    const JobReport report = Run(list, {D::NoConflict});
    EXPECT_FALSE(report.allSucceeded);
    EXPECT_EQ(report.images[0].outcome.Reason(), "cannot decode: premature end of input file");
    EXPECT_TRUE(fs::is_empty(settings.outputFolder));  // not even a temporary file
}

TEST_F(CropJobFilesTest, ASourceThatIsItsOwnOutputIsNeverWrittenEvenWhenTheAnswerWasYes) {
    settings.outputFolder = dir.path().string();
    const std::string source = Source("a.png");
    const std::vector<std::string> list = {source};
    ASSERT_EQ(GenerateOutputPathWithImageIndex(settings, list, 0), source);
    const std::string before = test::ReadFile(source);

    EXPECT_FALSE(Run(list, {D::Skip}).allSucceeded);
    EXPECT_EQ(test::ReadFile(source), before);

    const JobReport report = Run(list, {D::Overwrite});
    EXPECT_FALSE(report.allSucceeded);
    EXPECT_EQ(report.images[0].outcome.Reason(), kOriginalReason);
    EXPECT_EQ(test::ReadFile(source), before);
}

TEST_F(CropJobFilesTest, ReplacingTheOriginalsCutsEachFromItsOwnPixelsAndKeepsItsFormat) {
    settings.replaceOriginals = true;
    settings.outputFormat = OutputFormat::Jpg;  // JPG: not used, each file keeps its own format
    const std::string source = Source("a.png");
    const std::vector<unsigned char> expected =
        test::MagickPixels(source, "-crop 100x50+10+130 +repage", "rgb", 8);
    InProcessImageProcessor processor;
    const std::vector<std::string> list = {source};
    const OutputPlan plan = PlanOutputs(settings, list, ClashPolicy::Refuse);
    EXPECT_TRUE(RunCropJob(settings, list, plan, {D::Overwrite}, processor).allSucceeded);
    EXPECT_EQ(test::MagickPixels(source, "", "rgb", 8), expected);  // lossless: still a PNG
    EXPECT_EQ(test::ReadFile(source).substr(1, 3), "PNG");
}

TEST_F(CropJobFilesTest, ADryRunWritesNothingAndMeasures) {
    const std::vector<std::string> list = {Source("a.png")};
    InProcessImageProcessor processor;
    JobOptions options;
    options.dryRun = true;
    const JobReport report = RunCropJob(settings, list, {D::NoConflict}, processor, {}, options);
    EXPECT_EQ(report.images[0].outcome.status, ImageStatus::Planned);
    EXPECT_EQ(report.images[0].outcome.outputSize, (Size{100, 50}));
    EXPECT_TRUE(fs::is_empty(settings.outputFolder));
}

}  // namespace
}  // namespace vellumo
