// A job with several images in flight decides what depends on the images
// before each one (the metadata) in list order, whatever order they finish
// in, and is stopped at once.

#include <gtest/gtest.h>

#include <condition_variable>
#include <filesystem>
#include <mutex>

#include "batch/CropJob.h"
#include "batch/OutputPath.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

// The worker processor, with the first image's result held back until the
// second image is done (when they are in flight together): the first image
// finishes last, for certain.
class FirstFinishesLast final : public ImageProcessor {
  public:
    explicit FirstFinishesLast(bool together) : together_(together) {}
    ImageOutcome Process(const ImageTask& task) override {
        ImageOutcome outcome = inner_.Process(task);
        if (task.kind == TaskKind::CarryMetadataOnly || !together_) {
            return outcome;
        }
        std::unique_lock lock(mutex_);
        if (task.index == 1) {
            secondDone_ = true;
            changed_.notify_all();
        } else if (task.index == 0) {
            changed_.wait(lock, [this] { return secondDone_; });
        }
        // The order in which the job is given the results.
        order_.push_back(task.index);
        return outcome;
    }
    int ImagesAtOnce() const override { return inner_.ImagesAtOnce(); }
    std::vector<long> order() const {
        const std::lock_guard lock(mutex_);
        return order_;
    }

  private:
    const bool together_;
    WorkerImageProcessor inner_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    bool secondDone_ = false;
    std::vector<long> order_;
};

TEST(ParallelJob, AFailedSaveOfTheImageThatFinishesLastStillEndsTheMetadataOfTheLaterOnes) {
    VELLUMO_REQUIRE_TESTDATA();
    test::TempDir dir;
    const std::vector<std::string> list = {dir.File("first.png"),
                                           test::TestDataPath("jpeg/Canon_40D.jpg")};
    test::CoordinateImage(300, 200).pngsave(list[0].c_str());
    const auto run = [&](const std::string& folder, int jobs) {
        CropSettings settings;
        settings.outputFolder = dir.File(folder);
        settings.nameTemplate = "[FileName]";
        settings.keepMetadata = true;  // JPG, the whole image
        fs::create_directories(settings.outputFolder);
        // The first image's output is a folder that cannot be replaced: its
        // save fails.
        fs::create_directories(GenerateOutputPathWithImageIndex(settings, list, 0) + "/inside");
        FirstFinishesLast processor(jobs > 1);
        JobOptions options;
        options.jobs = jobs;
        const JobReport report = RunCropJob(
            settings, list, {OverwriteDecision::Overwrite, OverwriteDecision::NoConflict},
            processor, {}, options);
        if (jobs > 1) {
            EXPECT_EQ(processor.order(), (std::vector<long>{1, 0}));
        }
        return report;
    };
    const JobReport two = run("two", 2);
    const JobReport one = run("one", 1);
    ASSERT_EQ(two.images.size(), 2u);
    EXPECT_FALSE(two.allSucceeded);
    EXPECT_EQ(two.images[0].outcome.status, ImageStatus::Failed);
    EXPECT_EQ(two.images[1].outcome.status, ImageStatus::Written);
    EXPECT_EQ(two.images[0].outcome.Reason(), one.images[0].outcome.Reason());
    // No metadata for the second image: the first, before it in the list,
    // failed, however late.
    const std::string second = dir.File("two/Canon_40D.jpg");
    EXPECT_EQ(test::RunCommand("exiftool -s3 -Model " + test::ShellQuote(second)).out, "");
    EXPECT_EQ(test::ReadFileBytes(second), test::ReadFileBytes(dir.File("one/Canon_40D.jpg")));
}

TEST(ParallelJob, WithTheFirstImageSucceedingTheMetadataIsCarriedAsOneAtATimeWould) {
    VELLUMO_REQUIRE_TESTDATA();
    test::TempDir dir;
    const std::vector<std::string> list = {test::TestDataPath("orientation/Landscape_3.jpg"),
                                           test::TestDataPath("jpeg/Canon_40D.jpg")};
    const auto run = [&](const std::string& folder, int jobs) {
        CropSettings settings;
        settings.outputFolder = dir.File(folder);
        settings.nameTemplate = "[FileName]";
        settings.keepMetadata = true;
        settings.mode = CropMode::Auto;
        fs::create_directories(settings.outputFolder);
        FirstFinishesLast processor(jobs > 1);
        JobOptions options;
        options.jobs = jobs;
        return RunCropJob(settings, list,
                          {OverwriteDecision::NoConflict, OverwriteDecision::NoConflict}, processor,
                          {}, options);
    };
    EXPECT_TRUE(run("two", 2).allSucceeded);
    EXPECT_TRUE(run("one", 1).allSucceeded);
    const std::string second = dir.File("two/Canon_40D.jpg");
    EXPECT_EQ(test::RunCommand("exiftool -s3 -Model " + test::ShellQuote(second)).out,
              "Canon EOS 40D\n");
    for (const char* name : {"Landscape_3.jpg", "Canon_40D.jpg"}) {
        EXPECT_EQ(test::ReadFileBytes(dir.File(std::string("two/") + name)),
                  test::ReadFileBytes(dir.File(std::string("one/") + name)))
            << name;
    }
}

}  // namespace
}  // namespace vellumo
