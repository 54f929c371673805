// Damaged and hostile JPEGs on the way that decodes a crop made smaller
// straight from the file (ImageTools::LoadCutResized), which runs on files
// from anywhere inside the worker: each one is written or fails with a
// stage, never ends the process, and fares in the sandboxed worker as in
// the engine's own process.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "batch/CropJob.h"
#include "batch/ImageProcessor.h"
#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestData.h"
#include "tests/support/TestImages.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

// The shop's job: the centred square, written at 300 x 300.
CropSettings SquareAt300() {
    CropSettings settings;
    settings.outputFormat = OutputFormat::Jpg;
    settings.nameTemplate = "[FileName]-[FileIndex]";
    settings.mode = CropMode::Auto;
    settings.autoCropRatio = RatioChoice::Ratio1x1;
    settings.resize.mode = ResizeMode::Exact;
    settings.resize.width = 300;
    settings.resize.height = 300;
    return settings;
}

// A photo-like 2400 x 1600 JPEG cut off after `fraction` of its bytes, and
// one whose bytes from the middle on are overwritten with noise.
std::vector<std::string> DamagedCopies(const test::TempDir& dir) {
    const std::string whole = dir.File("whole.jpg");
    test::PhotoLikeImage(2400, 1600).jpegsave(whole.c_str());
    const std::string bytes = test::ReadFile(whole);
    std::vector<std::string> paths;
    for (const double fraction : {0.02, 0.3, 0.6, 0.95}) {
        const std::string path = dir.File("cut-" + std::to_string(paths.size()) + ".jpg");
        std::ofstream(path, std::ios::binary)
            << bytes.substr(0, static_cast<std::size_t>(bytes.size() * fraction));
        paths.push_back(path);
    }
    std::string noisy = bytes;
    for (std::size_t i = noisy.size() / 2; i + 2 < noisy.size(); i += 7) {
        noisy[i] = static_cast<char>((i * 131) & 0xFE);
    }
    paths.push_back(dir.File("noisy.jpg"));
    std::ofstream(paths.back(), std::ios::binary) << noisy;
    return paths;
}

std::vector<std::string> HostileJpegs(const test::TempDir& dir) {
    std::vector<std::string> paths = DamagedCopies(dir);
    for (const char* name : {"bad/corrupted.jpg", "bad/32d08f4a5eb10332506ebedbb9bc7257.jpg",
                             "bad/truncated_jpeg.jpg", "bad/c8c1a5675f82021d92b928a10c597bad.jpg",
                             "bad/junk_jpeg_header.jpg", "bad/beach.jpg", "bad/image01088.jpg"}) {
        paths.push_back(test::TestDataPath(name));
    }
    return paths;
}

TEST(PlannedDecodeHostileTest, DamagedFilesFailWithAStageOrAreWrittenWholeInBothProcesses) {
    VELLUMO_REQUIRE_TESTDATA();
    const test::TempDir dir;
    const std::vector<std::string> files = HostileJpegs(dir);
    CropSettings settings = SquareAt300();
    const std::vector<OverwriteDecision> decisions(files.size(), OverwriteDecision::NoConflict);

    InProcessImageProcessor own;
    settings.outputFolder = dir.File("own");
    fs::create_directory(settings.outputFolder);
    const JobReport inProcess = RunCropJob(settings, files, decisions, own);

    WorkerLimits limits;
    limits.requireSandbox = true;
    WorkerImageProcessor sandboxed(limits);
    settings.outputFolder = dir.File("sandboxed");
    fs::create_directory(settings.outputFolder);
    const JobReport inWorkers = RunCropJob(settings, files, decisions, sandboxed);

    ASSERT_EQ(inProcess.images.size(), files.size());
    ASSERT_EQ(inWorkers.images.size(), files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        const ImageOutcome& a = inProcess.images[i].outcome;
        const ImageOutcome& b = inWorkers.images[i].outcome;
        EXPECT_EQ(a.status, b.status) << files[i] << ": " << b.Reason();
        EXPECT_EQ(a.Reason(), b.Reason()) << files[i];
        // The verdict of the whole decode, as before the plan: damage it
        // lets pass (junk before the markers, noise that still decodes) is
        // written, whatever the plan found.
        EXPECT_EQ(a.failure.has_value(), !ImageTools::LoadImage(files[i])) << files[i];
        if (a.failure) {
            EXPECT_EQ(a.failure->stage, FailureStage::Decode) << files[i] << ": " << a.Reason();
        } else {
            // What is written is the square at its size (a photo smaller than
            // 300 pixels is not enlarged), read back by an independent decoder.
            ASSERT_EQ(a.status, ImageStatus::Written) << files[i];
            const test::MagickSize written = test::MagickIdentifySize(inProcess.images[i].output);
            ASSERT_TRUE(a.outputSize) << files[i];
            EXPECT_EQ(written.width, a.outputSize->width) << files[i];
            EXPECT_EQ(written.height, a.outputSize->height) << files[i];
        }
    }
}

// The planned decode itself fails on each damaged file whose damage lies
// under the cut or above it (at once, or when the pixels are read), so that
// the usual decoder says why it fails.
TEST(PlannedDecodeHostileTest, DamageUnderOrAboveTheCutIsLeftToTheUsualDecoder) {
    VELLUMO_REQUIRE_TESTDATA();
    const test::TempDir dir;
    for (const std::string& path : DamagedCopies(dir)) {
        const std::optional<Size> size = ImageTools::PixelSizeOfFile(path);
        if (!size) {
            continue;  // not even a header: the plan is never asked
        }
        // The centred square reaches the last row: every damage is under it.
        const Rect cut{(size->width - size->height) / 2, 0, size->height, size->height};
        EXPECT_FALSE(test::ReadsWhole(ImageTools::LoadCutResized(path, cut, {300, 300}))) << path;
    }
    for (const char* name : {"bad/corrupted.jpg", "bad/32d08f4a5eb10332506ebedbb9bc7257.jpg",
                             "bad/truncated_jpeg.jpg"}) {
        const std::string path = test::TestDataPath(name);
        const std::optional<Size> size = ImageTools::PixelSizeOfFile(path);
        ASSERT_TRUE(size) << name;
        const double side = std::min(size->width, size->height);
        const Rect cut{std::floor((size->width - side) / 8) * 4,
                       std::floor((size->height - side) / 8) * 4, side, side};
        EXPECT_FALSE(test::ReadsWhole(ImageTools::LoadCutResized(path, cut, {300, 300}))) << name;
    }
}

}  // namespace
}  // namespace vellumo
