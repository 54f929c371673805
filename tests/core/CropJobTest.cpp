// The job's order, flags and reports, with a scripted image processor.

#include <gtest/gtest.h>

#include "batch/CropJob.h"
#include "batch/JobSummary.h"
#include "batch/Preconditions.h"

namespace vellumo {
namespace {

using D = OverwriteDecision;

// Records every task and answers with scripted outcomes.
class ScriptedProcessor : public ImageProcessor {
  public:
    explicit ScriptedProcessor(std::vector<ImageOutcome> outcomes)
        : outcomes_(std::move(outcomes)) {}
    ImageOutcome Process(const ImageTask& task) override {
        tasks.push_back(task);
        return outcomes_.at(tasks.size() - 1);
    }
    std::vector<ImageTask> tasks;

  private:
    std::vector<ImageOutcome> outcomes_;
};

ImageOutcome Written() {
    ImageOutcome o;
    o.status = ImageStatus::Written;
    return o;
}
ImageOutcome Skipped() {
    ImageOutcome o;
    o.status = ImageStatus::Skipped;
    return o;
}
ImageOutcome Failed(Failure failure) {
    ImageOutcome o;
    o.status = ImageStatus::Failed;
    o.failure = std::move(failure);
    return o;
}

class CropJobTest : public ::testing::Test {
  protected:
    CropJobTest() {
        settings.outputFolder = "/out";
        settings.nameTemplate = "[FileName]";
        settings.keepMetadata = true;
    }
    std::vector<std::string> List(int n) {
        std::vector<std::string> list;
        for (int i = 0; i < n; ++i)
            list.push_back("/in/p" + std::to_string(i) + ".jpg");
        return list;
    }
    CropSettings settings;
};

TEST_F(CropJobTest, ReportsProgressAfterEachImageWithTheIndexJustHandled) {
    ScriptedProcessor processor({Written(), Written(), Written()});
    std::vector<double> progress;
    const auto list = List(3);
    JobCallbacks callbacks;
    callbacks.progress = [&](long index, const ImageReport&) {
        progress.push_back(static_cast<double>(index) / static_cast<double>(list.size()));
    };
    const JobReport report = RunCropJob(
        settings, list, {D::NoConflict, D::NoConflict, D::NoConflict}, processor, callbacks);
    EXPECT_EQ(progress, (std::vector<double>{0.0, 1.0 / 3.0, 2.0 / 3.0}));
    EXPECT_TRUE(report.allSucceeded);
    ASSERT_EQ(processor.tasks.size(), 3u);
    for (long i = 0; i < 3; ++i) {
        EXPECT_EQ(processor.tasks[i].index, i);  // strictly in list order
        EXPECT_EQ(processor.tasks[i].source, list[i]);
        EXPECT_EQ(processor.tasks[i].output, "/out/p" + std::to_string(i) + ".jpg");
    }
}

TEST_F(CropJobTest, AFailedFirstSaveStopsMetadataButNotTheSaves) {
    ScriptedProcessor processor(
        {Failed(Failure::At(FailureStage::Write, "permission denied")), Written(), Written()});
    const JobReport report =
        RunCropJob(settings, List(3), {D::NoConflict, D::NoConflict, D::NoConflict}, processor);
    EXPECT_FALSE(report.allSucceeded);
    ASSERT_EQ(processor.tasks.size(), 3u);
    EXPECT_EQ(processor.tasks[0].kind, TaskKind::CropCarryingMetadata);
    EXPECT_EQ(processor.tasks[1].kind, TaskKind::Crop);
    EXPECT_EQ(processor.tasks[2].kind, TaskKind::Crop);
    EXPECT_EQ(report.images[1].outcome.status, ImageStatus::Written);
    EXPECT_EQ(report.images[0].outcome.Reason(), "cannot write: permission denied");
}

TEST_F(CropJobTest, AnImageThatCannotBeDecodedFailsAndTheJobGoesOn) {
    ScriptedProcessor processor(
        {Written(), Failed(Failure::At(FailureStage::Decode, "not a JPEG file")), Written()});
    const JobReport report =
        RunCropJob(settings, List(3), {D::NoConflict, D::NoConflict, D::NoConflict}, processor);
    EXPECT_FALSE(report.allSucceeded);
    EXPECT_EQ(processor.tasks.size(), 3u);
    EXPECT_EQ(processor.tasks[1].kind, TaskKind::CropCarryingMetadata);
    EXPECT_EQ(processor.tasks[2].kind, TaskKind::Crop);
}

TEST_F(CropJobTest, ASkippedImageStillGoesThroughTheMetadataStep) {
    ScriptedProcessor processor({Skipped(), Written()});
    const JobReport report = RunCropJob(settings, List(2), {D::Skip, D::NoConflict}, processor);
    EXPECT_TRUE(report.allSucceeded);
    EXPECT_EQ(processor.tasks[0].decision, D::Skip);
    EXPECT_EQ(processor.tasks[0].kind, TaskKind::CropCarryingMetadata);
}

TEST_F(CropJobTest, EveryImageAnsweredNoStillSucceeds) {
    ScriptedProcessor processor({Skipped(), Skipped()});
    EXPECT_TRUE(RunCropJob(settings, List(2), {D::Skip, D::Skip}, processor).allSucceeded);
}

TEST_F(CropJobTest, AFailedRemovalIsANoteAndDoesNotLowerAllSucceeded) {
    ImageOutcome removeFailed = Written();
    removeFailed.notes = {
        {NoteKind::RemoveFailed, "could not remove /out/p0.jpg: Permission denied"},
        {NoteKind::DateNotSet, "the creation date cannot be set"},
        {NoteKind::MetadataNotCarried, "the source's metadata cannot be read"}};
    ScriptedProcessor processor({removeFailed});
    ::testing::internal::CaptureStdout();
    const JobReport report = RunCropJob(settings, List(1), {D::Overwrite}, processor);
    // The job itself prints nothing; its clients print what the notes say.
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(report.allSucceeded);
    EXPECT_EQ(ConsoleLines(report.images[0].outcome),
              (std::vector<std::string>{
                  "Remove failed: could not remove /out/p0.jpg: Permission denied", "ERROR"}));
}

TEST_F(CropJobTest, AStopEndsTheJobBeforeTheNextImage) {
    ScriptedProcessor processor({Written(), Written(), Written()});
    std::stop_source stop;
    JobCallbacks callbacks;
    callbacks.progress = [&](long index, const ImageReport&) {
        if (index == 0) {
            stop.request_stop();
        }
    };
    JobOptions options;
    options.stop = stop.get_token();
    const JobReport report =
        RunCropJob(settings, List(3), {D::NoConflict, D::NoConflict, D::NoConflict}, processor,
                   callbacks, options);
    EXPECT_TRUE(report.stopped);
    EXPECT_EQ(report.images.size(), 1u);
    EXPECT_EQ(processor.tasks.size(), 1u);
}

TEST_F(CropJobTest, WithoutTheOptionNoImageCarriesMetadata) {
    settings.keepMetadata = false;
    ScriptedProcessor processor({Written(), Skipped()});
    RunCropJob(settings, List(2), {D::NoConflict, D::Skip}, processor);
    EXPECT_EQ(processor.tasks[0].kind, TaskKind::Crop);
    EXPECT_EQ(processor.tasks[1].kind, TaskKind::Crop);
}

TEST_F(CropJobTest, EmptyListRunsNothing) {
    ScriptedProcessor processor({});
    const JobReport report = RunCropJob(settings, {}, {}, processor);
    EXPECT_TRUE(report.allSucceeded);
    EXPECT_TRUE(report.images.empty());
}

TEST(CropJobRefusal, EmptyListIsToldBeforeAnEmptyFolder) {
    CropSettings settings;
    settings.outputFolder = "";
    EXPECT_EQ(CropJobRefusal({}, settings)->English(), "There are no images to crop.");
    EXPECT_EQ(CropJobRefusal({"/a.png"}, settings)->English(), "Please select an output folder.");
    settings.outputFolder = " ";
    EXPECT_EQ(CropJobRefusal({"/a.png"}, settings), std::nullopt);
}

}  // namespace
}  // namespace vellumo
