// Every failure of an image's work says at which stage it failed, with the
// line a person reads; the stage travels to and from the worker process.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/ImageProcessor.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"
#include "worker/WorkerProtocol.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

class FailureStageTest : public ::testing::Test {
  protected:
    FailureStageTest() {
        task.settings.outputFormat = OutputFormat::Png;
        task.settings.mode = CropMode::Pixels;
        task.settings.pixelsOriginX = 10;
        task.settings.pixelsOriginY = 20;
        task.settings.pixelsWidth = 100;
        task.settings.pixelsHeight = 50;
        task.output = dir.File("out.png");
    }
    ImageOutcome Process() {
        InProcessImageProcessor processor;
        return processor.Process(task);
    }
    test::TempDir dir;
    ImageTask task;
};

TEST_F(FailureStageTest, AFileThatCannotBeOpenedFailsAtRead) {
    task.source = dir.File("missing.png");
    const ImageOutcome outcome = Process();
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->stage, FailureStage::Read);
    EXPECT_EQ(outcome.failure->reason, "cannot open: No such file or directory");
}

TEST_F(FailureStageTest, AFileThatIsNoImageFailsAtDecode) {
    task.source = dir.File("text.png");
    std::ofstream(task.source) << "not a picture";
    const ImageOutcome outcome = Process();
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->stage, FailureStage::Decode);
    EXPECT_EQ(outcome.failure->reason, "cannot decode: not an image Vellumo reads (a text file)");
}

// The truncated JPEG opens; its damage is found only while the save reads
// its pixels, and is told as the decoder's, without decoding it again.
TEST_F(FailureStageTest, ATruncatedJpegFailsAtDecodeWhileItIsWritten) {
    test::PhotoLikeImage(300, 200).jpegsave(dir.File("whole.jpg").c_str());
    const std::string bytes = test::ReadFile(dir.File("whole.jpg"));
    task.source = dir.File("cut.jpg");
    std::ofstream(task.source, std::ios::binary) << bytes.substr(0, bytes.size() / 3);
    const ImageOutcome outcome = Process();
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->stage, FailureStage::Decode);
    EXPECT_EQ(outcome.failure->reason, "cannot decode: premature end of input file");
    EXPECT_FALSE(fs::exists(task.output));
}

// A PNG whose damage libpng names only in a warning, raised on the thread
// that decodes for the save, before it fails with "libpng read error".
TEST_F(FailureStageTest, ADamagedPngIsToldByItsDecodersWarning) {
    VELLUMO_REQUIRE_TESTDATA();
    task.source = test::TestDataPath("bad/586914b5d01d3889fb7bb5c44fe29771.png");
    task.settings.mode = CropMode::Auto;
    const ImageOutcome outcome = Process();
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->stage, FailureStage::Decode);
    EXPECT_EQ(outcome.failure->reason, "cannot decode: bKGD: CRC error");
    EXPECT_FALSE(fs::exists(task.output));
}

TEST_F(FailureStageTest, AnOutputFolderThatIsGoneFailsAtWrite) {
    task.source = dir.File("a.png");
    test::CoordinateImage(300, 200).pngsave(task.source.c_str());
    task.output = dir.File("gone/out.png");
    const ImageOutcome outcome = Process();
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->stage, FailureStage::Write);
    EXPECT_EQ(outcome.failure->reason, "cannot write: the folder does not exist");
}

TEST(FailureStage, EveryStageReadsBackByItsNameAndIsWordedAsBefore) {
    for (const FailureStage stage :
         {FailureStage::Read, FailureStage::Decode, FailureStage::Crop, FailureStage::Encode,
          FailureStage::Write, FailureStage::Metadata}) {
        EXPECT_EQ(StageFromName(StageName(stage)), stage) << StageName(stage);
    }
    EXPECT_FALSE(StageFromName("cropping").has_value());
    EXPECT_EQ(Failure::At(FailureStage::Decode, "not a JPEG file").reason,
              "cannot decode: not a JPEG file");
    EXPECT_EQ(Failure::At(FailureStage::Write, "permission denied").reason,
              "cannot write: permission denied");
    // An encoder's refusal reads as the output not written, as it always has.
    EXPECT_EQ(Failure::At(FailureStage::Encode, "the image is too large to write").reason,
              "cannot write: the image is too large to write");
    // A file that cannot be opened says so itself.
    EXPECT_EQ(Failure::At(FailureStage::Read, "cannot open: Permission denied").reason,
              "cannot open: Permission denied");
}

TEST(FailureStage, AFailureTravelsFromTheWorkerWithItsStage) {
    ImageOutcome outcome;
    outcome.failure = Failure::At(FailureStage::Write, "no space left on device");
    const auto reply = workerprotocol::DecodeReply(
        workerprotocol::Encode(workerprotocol::Reply(workerprotocol::OutcomeReply{outcome})));
    ASSERT_TRUE(reply);
    const auto* back = std::get_if<workerprotocol::OutcomeReply>(&*reply);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->outcome.failure, outcome.failure);
    EXPECT_EQ(back->outcome.Reason(), "cannot write: no space left on device");

    const auto none = workerprotocol::DecodeReply(
        workerprotocol::Encode(workerprotocol::Reply(workerprotocol::OutcomeReply{})));
    ASSERT_TRUE(none);
    EXPECT_FALSE(std::get<workerprotocol::OutcomeReply>(*none).outcome.failure.has_value());
}

}  // namespace
}  // namespace vellumo
