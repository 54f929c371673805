// The worker process: hostile files, dead and stopped workers, limits.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "batch/CropJob.h"
#include "batch/OutputPath.h"
#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"
#include "tests/support/WorkerWatch.h"
#include "worker/WorkerImageProcessor.h"
#include "worker/WorkerPool.h"
#include "worker/WorkerProtocol.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using D = OverwriteDecision;

class WorkerTest : public ::testing::Test {
  protected:
    WorkerTest() {
        settings.outputFolder = dir.File("out");
        fs::create_directory(settings.outputFolder);
        settings.outputFormat = OutputFormat::Png;  // PNG
        settings.nameTemplate = "[FileName]";
        settings.mode = CropMode::Auto;
        settings.autoCropRatio = RatioChoice::Ratio16x9;
    }
    // A quickly made PNG: coordinates as colours.
    std::string Picture(const std::string& name, int w, int h) {
        test::CoordinateImage(w, h).pngsave(dir.File(name).c_str(),
                                            vips::VImage::option()->set("compression", 1));
        return dir.File(name);
    }
    // Every file left in the output folder: outputs only, never a
    // temporary file.
    std::vector<std::string> OutputFolder() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(settings.outputFolder)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    test::TempDir dir;
    CropSettings settings;
};

// The nice value of a running process, read from /proc (field 19 of stat,
// after the command name in parentheses).
int NiceOf(pid_t pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string text((std::istreambuf_iterator<char>(stat)), std::istreambuf_iterator<char>());
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string field;
    for (int i = 3; i <= 19; ++i) {
        fields >> field;
    }
    return std::stoi(field);
}

TEST(WorkerPriority, BackgroundWorkersRunAtTheLowestPriorityAndOthersAtTheEnginesOwn) {
    WorkerLimits background;
    background.background = true;
    WorkerProcess low(background);
    WorkerProcess normal;
    test::TempDir dir;
    test::CoordinateImage(64, 48).pngsave(dir.File("a.png").c_str());
    const auto request = workerprotocol::PreviewRequest{dir.File("a.png"), 32, 1'000'000};
    ASSERT_TRUE(low.Exchange(request).message);
    ASSERT_TRUE(normal.Exchange(request).message);
    EXPECT_EQ(NiceOf(low.Pid()), 19);
    EXPECT_EQ(NiceOf(normal.Pid()), NiceOf(getpid()));
}

TEST_F(WorkerTest, AFileThatCrashesItsDecoderGoesToTheSecondInAFreshWorker) {
    VELLUMO_REQUIRE_TESTDATA();
    // The JPEG 2000 file crashes libvips' OpenJPEG path, and with it the
    // worker; ImageMagick reads it.
    const std::string hostile = test::TestDataPath("bad/issue254.jp2");
    const std::vector<std::string> list = {Picture("a.png", 64, 48), hostile,
                                           Picture("c.png", 64, 48)};
    WorkerImageProcessor processor;
    const JobReport report =
        RunCropJob(settings, list, {D::NoConflict, D::NoConflict, D::NoConflict}, processor);
    EXPECT_TRUE(report.allSucceeded);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(report.images[i].outcome.status, ImageStatus::Written) << i;
    }
    EXPECT_EQ(OutputFolder(), (std::vector<std::string>{"a.png", "c.png", "issue254.png"}));
    // The crop is ImageMagick's reading of the file, cut where the rule says.
    const Rect r = *report.images[1].outcome.rect;
    const Size out = *report.images[1].outcome.outputSize;
    const int height = test::MagickIdentifySize(hostile).height;
    const std::string crop =
        "-crop " + std::to_string(static_cast<int>(out.width)) + "x" +
        std::to_string(static_cast<int>(out.height)) + "+" + std::to_string(std::lround(r.x)) +
        "+" + std::to_string(height - std::lround(r.y) - static_cast<int>(out.height)) + " +repage";
    EXPECT_TRUE(test::MagickPixels(settings.outputFolder + "/issue254.png", "", "rgb", 8) ==
                test::MagickPixels(hostile, crop, "rgb", 8));
}

TEST_F(WorkerTest, AFileWhoseDecodersBothCrashFailsAloneWithTheCrashAsReason) {
    // Both workers that take the large picture die of a segmentation fault
    // (sent from here as soon as each is writing its output): the first
    // decoder's, then the second's in a fresh worker.
    const std::vector<std::string> list = {Picture("big.png", 4000, 3000),
                                           Picture("small.png", 64, 48)};
    WorkerImageProcessor processor;
    std::atomic<bool> done{false};
    std::vector<long> crashed;
    std::thread crasher([&] {
        while (!done.load() && crashed.size() < 2) {
            for (const pid_t pid : test::WorkersWriting()) {
                if (std::find(crashed.begin(), crashed.end(), pid) == crashed.end()) {
                    kill(static_cast<pid_t>(pid), SIGSEGV);
                    crashed.push_back(pid);
                }
            }
            std::this_thread::sleep_for(std::chrono::microseconds(500));
        }
    });
    const JobReport report = RunCropJob(settings, list, {D::NoConflict, D::NoConflict}, processor);
    done.store(true);
    crasher.join();
    ASSERT_EQ(crashed.size(), 2u);
    EXPECT_NE(crashed[0], crashed[1]);
    EXPECT_EQ(report.images[0].outcome.status, ImageStatus::Failed);
    EXPECT_EQ(report.images[0].outcome.Reason(),
              "cannot decode: the image decoder crashed on this file");
    EXPECT_EQ(report.images[1].outcome.status, ImageStatus::Written);
    // Neither dead worker left its temporary file.
    EXPECT_EQ(OutputFolder(), (std::vector<std::string>{"small.png"}));
}

TEST_F(WorkerTest, AWorkerKilledMidImageFailsThatImageAndTheJobGoesOn) {
    // Large enough that writing each takes a good part of a second.
    std::vector<std::string> list;
    for (int i = 0; i < 4; ++i)
        list.push_back(Picture("p" + std::to_string(i) + ".png", 4000, 3000));
    WorkerImageProcessor processor;
    std::thread killer;
    JobCallbacks callbacks;
    callbacks.progress = [&](long index, const ImageReport&) {
        if (index == 0) {
            // Image 1 is next: stop its worker as soon as it is writing the
            // output.
            const long pid = processor.WorkerPid();
            killer = std::thread([pid] {
                for (int tries = 0; tries < 20000; ++tries) {
                    for (const pid_t writing : test::WorkersWriting()) {
                        if (writing == pid) {
                            kill(static_cast<pid_t>(pid), SIGKILL);
                            return;
                        }
                    }
                    std::this_thread::sleep_for(std::chrono::microseconds(500));
                }
            });
        }
    };
    const JobReport report =
        RunCropJob(settings, list, std::vector<D>(4, D::NoConflict), processor, callbacks);
    killer.join();
    EXPECT_FALSE(report.allSucceeded);
    EXPECT_EQ(report.images[1].outcome.status, ImageStatus::Failed);
    EXPECT_EQ(
        report.images[1].outcome.Reason(),
        "cannot decode: the image worker was stopped from outside while working on this file");
    for (int i : {0, 2, 3})
        EXPECT_EQ(report.images[i].outcome.status, ImageStatus::Written) << i;
    // No partial file anywhere: not at the output path, not as a temporary.
    EXPECT_EQ(OutputFolder(), (std::vector<std::string>{"p0.png", "p2.png", "p3.png"}));
    for (const std::string& name : OutputFolder()) {
        EXPECT_EQ(test::MagickIdentifySize(settings.outputFolder + "/" + name).width, 4000) << name;
    }
}

TEST_F(WorkerTest, AnImageOverTheTimeLimitFailsWithTheLimitInItsReason) {
    const std::vector<std::string> list = {Picture("slow.png", 4000, 3000),
                                           Picture("quick.png", 32, 32)};
    WorkerLimits limits;
    limits.timeout = std::chrono::milliseconds(150);
    WorkerImageProcessor processor(limits);
    const JobReport report = RunCropJob(settings, list, {D::NoConflict, D::NoConflict}, processor);
    EXPECT_EQ(report.images[0].outcome.Reason(), "cannot decode: decoding took longer than 0.15 s");
    EXPECT_EQ(report.images[1].outcome.status, ImageStatus::Written);
    EXPECT_EQ(OutputFolder(), (std::vector<std::string>{"quick.png"}));
}

// A PNG whose header declares `width` x `height` pixels (the data is
// a tiny image's).
std::string DeclaringPng(const test::TempDir& dir, unsigned width, unsigned height) {
    test::CoordinateImage(4, 4).pngsave(dir.File("tiny.png").c_str());
    std::string bytes = test::ReadFileBytes(dir.File("tiny.png"));
    for (int i = 0; i < 4; ++i) {
        bytes[16 + i] = static_cast<char>((width >> (24 - 8 * i)) & 0xff);
        bytes[20 + i] = static_cast<char>((height >> (24 - 8 * i)) & 0xff);
    }
    const unsigned crc = test::Crc32(bytes.substr(12, 17));
    for (int i = 0; i < 4; ++i)
        bytes[29 + i] = static_cast<char>((crc >> (24 - 8 * i)) & 0xff);
    std::ofstream(dir.File("huge.png"), std::ios::binary) << bytes;
    return dir.File("huge.png");
}

// The reason names the header's size: nothing was decoded (a decode would
// fail on the tiny image's data instead).
TEST_F(WorkerTest, AFileDeclaringMorePixelsThanTheLimitFailsFromItsHeader) {
    const std::string huge = DeclaringPng(dir, 100000, 100000);
    WorkerImageProcessor processor;
    const JobReport report = RunCropJob(settings, {huge}, {D::NoConflict}, processor);
    EXPECT_EQ(report.images[0].outcome.Reason(),
              "cannot decode: the image declares 100000 x 100000 pixels, more than the limit of "
              "1000 megapixels");
}

TEST_F(WorkerTest, AHeicLargerThanThePixelLimitIsRefusedFromItsHeader) {
    // 300 x 200 against a limit of 50,000 pixels: the header says enough.
    // (Encoded by the vips command line: the HEVC encoder leaks a little,
    // which the leak checker would blame on this test.)
    const std::string png = Picture("phone.png", 300, 200);
    const std::string heic = dir.File("phone.heic");
    ASSERT_EQ(test::RunCommand("vips heifsave " + test::ShellQuote(png) + " " +
                               test::ShellQuote(heic) + " --compression hevc")
                  .exitCode,
              0);
    WorkerLimits limits;
    limits.maxPixels = 50'000;
    WorkerImageProcessor processor(limits);
    const JobReport report = RunCropJob(settings, {heic}, {D::NoConflict}, processor);
    EXPECT_EQ(report.images[0].outcome.Reason(),
              "cannot decode: the image declares 300 x 200 pixels, more than the limit of "
              "0.05 megapixels");
}

TEST_F(WorkerTest, AnImageNeedingMoreMemoryThanTheWorkerMayHaveFailsAlone) {
    // 12000 x 12000, stored on its side: turning it upright needs all of its
    // 432 MB decoded at once, more than the worker may have here.
    vips::VImage sideways = test::CoordinateImage(12000, 12000).copy();
    sideways.set(VIPS_META_ORIENTATION, 6);
    sideways.jpegsave(dir.File("big.jpg").c_str());
    const std::vector<std::string> list = {dir.File("big.jpg"), Picture("small.png", 40, 30)};
    WorkerLimits limits;
    limits.addressSpaceBytes = 400ull * 1024 * 1024;
    WorkerImageProcessor processor(limits);
    const JobReport report = RunCropJob(settings, list, {D::NoConflict, D::NoConflict}, processor);
    EXPECT_EQ(report.images[0].outcome.status, ImageStatus::Failed);
    EXPECT_EQ(report.images[0].outcome.Reason().rfind("cannot decode: ", 0), 0u);
    EXPECT_NE(report.images[0].outcome.Reason().find("memory"), std::string::npos)
        << report.images[0].outcome.Reason();
    EXPECT_EQ(report.images[1].outcome.status, ImageStatus::Written);
}

TEST_F(WorkerTest, PreviewsComeFromTheWorkerAlsoWhenTheFirstDecoderCrashesIt) {
    VELLUMO_REQUIRE_TESTDATA();
    WorkerPreviewDecoder previews;
    // Its first decoder crashes the worker; the second, in a fresh one,
    // reads it.
    const std::string hostile = test::TestDataPath("bad/issue254.jp2");
    const PreviewResult recovered = previews.Decode(hostile, 400);
    ASSERT_TRUE(recovered) << recovered.reason();
    EXPECT_EQ(recovered->fullSize.width, test::MagickIdentifySize(hostile).width);
    EXPECT_EQ(recovered->fullSize.height, test::MagickIdentifySize(hostile).height);
    const PreviewResult photo =
        previews.Decode(test::TestDataPath("orientation/Landscape_6.jpg"), 300);
    ASSERT_TRUE(photo) << photo.reason();
    EXPECT_EQ(photo->fullSize, (Size{1800, 1200}));
    EXPECT_EQ(photo->picture.Width(), 300);
    EXPECT_EQ(photo->picture.Height(), 200);
    const auto local =
        ImageTools::LoadPreview(test::TestDataPath("orientation/Landscape_6.jpg"), 300);
    EXPECT_EQ(ImageTools::RenderRgba8(photo->picture)->pixels,
              ImageTools::RenderRgba8(local->picture)->pixels);
}

// A camera's embedded thumbnail is read in the sandboxed worker too, the
// same as in the process; a file without one says so.
TEST_F(WorkerTest, EmbeddedThumbnailsComeFromTheWorker) {
    VELLUMO_REQUIRE_TESTDATA();
    WorkerPreviewDecoder previews;
    const std::string camera = test::TestDataPath("orientation/Canon PowerShot A85.jpg");
    const PreviewResult embedded = previews.DecodeEmbedded(camera, 160);
    ASSERT_TRUE(embedded) << embedded.reason();
    const PreviewResult local = ImageTools::LoadEmbeddedThumbnail(camera, 160);
    ASSERT_TRUE(local) << local.reason();
    EXPECT_EQ(embedded->fullSize, local->fullSize);
    EXPECT_EQ(ImageTools::RenderRgba8(embedded->picture)->pixels,
              ImageTools::RenderRgba8(local->picture)->pixels);
    const PreviewResult none =
        previews.DecodeEmbedded(test::TestDataPath("orientation/Landscape_6.jpg"), 160);
    ASSERT_FALSE(none);
    EXPECT_EQ(none.reason(), "the file has no embedded thumbnail");
}

// Files of other kinds are not sent to a worker for one: the engine's sniff
// of the file's first bytes refuses them.
TEST_F(WorkerTest, OnlyJpegFilesAreSentForAnEmbeddedThumbnail) {
    VELLUMO_REQUIRE_TESTDATA();
    WorkerPreviewDecoder previews;
    const std::vector<pid_t> before = test::Workers();
    const PreviewResult png = previews.DecodeEmbedded(Picture("a.png", 640, 480), 160);
    ASSERT_FALSE(png);
    EXPECT_EQ(png.reason(), "the file has no embedded thumbnail");
    EXPECT_EQ(test::Workers(), before);
    const PreviewResult camera =
        previews.DecodeEmbedded(test::TestDataPath("orientation/Canon PowerShot A85.jpg"), 160);
    ASSERT_TRUE(camera) << camera.reason();
    EXPECT_FALSE(test::Workers().empty());
}

}  // namespace
}  // namespace vellumo

namespace vellumo {
namespace {

// A worker is not tied to the thread that started it: after that thread has
// ended, the same worker process goes on serving.
TEST(WorkerPreviews, AWorkerOutlivesTheThreadThatStartedIt) {
    test::TempDir dir;
    const std::string file = dir.File("p.png");
    test::CoordinateImage(300, 200).pngsave(file.c_str());
    WorkerPool pool;
    long first = 0;
    std::thread([&] {
        const WorkerPool::Loan worker = pool.Borrow();
        const auto reply = worker->Exchange(workerprotocol::PreviewRequest{file, 64, 1'000'000});
        ASSERT_TRUE(reply.message.has_value()) << reply.failure;
        first = worker->Pid();
    }).join();
    ASSERT_NE(first, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const WorkerPool::Loan worker = pool.Borrow();
    EXPECT_EQ(worker->Pid(), first);
    EXPECT_EQ(kill(static_cast<pid_t>(first), 0), 0);
    const auto reply = worker->Exchange(workerprotocol::PreviewRequest{file, 64, 1'000'000});
    ASSERT_TRUE(reply.message.has_value()) << reply.failure;
    EXPECT_EQ(worker->Pid(), first);
}

}  // namespace
}  // namespace vellumo
