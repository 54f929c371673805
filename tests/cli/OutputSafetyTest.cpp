// vellumo-cli never loses a file: two images never go to one path, an
// original is written only when replacing the originals was asked for,
// crops that leave an image whole say so, and the output folder is made.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>

#include "batch/OutputPlan.h"
#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

// Mean absolute difference of two decodings of one size (JPEG round trips).
double MeanDifference(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b) {
    if (a.size() != b.size() || a.empty()) {
        return 1e9;
    }
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += std::abs(static_cast<int>(a[i]) - static_cast<int>(b[i]));
    }
    return sum / static_cast<double>(a.size());
}

class OutputSafetyTest : public CliTest {
  protected:
    // Two different photos of one name, x.jpg, in folders a and b; the
    // command runs in the temporary folder (Here), so paths are typed as a
    // person would.
    void SetUp() override {
        fs::create_directories(dir.File("a"));
        fs::create_directories(dir.File("b"));
        test::PhotoLikeImage(300, 200).jpegsave(dir.File("a/x.jpg").c_str());
        test::CoordinateImage(160, 240).jpegsave(dir.File("b/x.jpg").c_str(),
                                                 vips::VImage::option()->set("Q", 95));
        originalA = test::ReadFile(dir.File("a/x.jpg"));
        originalB = test::ReadFile(dir.File("b/x.jpg"));
        fs::copy_file(dir.File("a/x.jpg"), dir.File("a-original.jpg"));
        fs::copy_file(dir.File("b/x.jpg"), dir.File("b-original.jpg"));
    }

    // vellumo-cli run in the temporary folder.
    CliRun Here(const std::string& arguments) {
        workingFolder = dir.path().string();
        return Cli("--max-pixels 100000000 " + arguments);
    }

    // The centred square of the original copy of `which` ("a" or "b"),
    // decoded by ImageMagick.
    std::vector<unsigned char> SquareOf(const std::string& which) {
        const bool a = which == "a";
        const std::string crop = a ? "-crop 200x200+50+0 +repage" : "-crop 160x160+0+40 +repage";
        return test::MagickPixels(dir.File(which + "-original.jpg"), crop, "rgb", 8);
    }

    std::string originalA;
    std::string originalB;
};

TEST_F(OutputSafetyTest, TwoPhotosOfOneNameNeverGoToOnePath) {
    const CliRun run =
        Here("--auto 1:1 --name \"[FileName]\" --overwrite none --output out a/x.jpg b/x.jpg");
    EXPECT_EQ(run.exitCode, 1) << run.out << run.err;
    EXPECT_NE(run.out.find("written   out/x.jpg (200 x 200)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find(std::string("failed    b/x.jpg: ") + kClashReason), std::string::npos)
        << run.out;
    EXPECT_EQ(run.out.find("written   out/x.jpg", run.out.find("failed")), std::string::npos);
    EXPECT_NE(run.err.find("Some images could not be cropped."), std::string::npos);
    EXPECT_NE(run.err.find("2 images: 1 written, 1 failed"), std::string::npos) << run.err;
    // The one file there is the crop of the first photo.
    EXPECT_LT(
        MeanDifference(test::MagickPixels(dir.File("out/x.jpg"), "", "rgb", 8), SquareOf("a")),
        3.0);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.File("out")), fs::directory_iterator()), 1);
}

TEST_F(OutputSafetyTest, OnClashNumberGivesTheLaterPhotoANumberedName) {
    // A file named like the first number is listed too: the numbering skips
    // past it.
    test::PhotoLikeImage(120, 80).jpegsave(dir.File("a/x (2).jpg").c_str());
    const CliRun run = Here(
        "--auto 1:1 --name \"[FileName]\" --on-clash number --json --output out a/x.jpg "
        "b/x.jpg 'a/x (2).jpg'");
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    ASSERT_EQ(run.objects.size(), 3u);
    EXPECT_EQ(run.objects[0]["output"], "out/x.jpg");
    EXPECT_EQ(run.objects[1]["output"], "out/x (3).jpg");
    EXPECT_EQ(run.objects[2]["output"], "out/x (2).jpg");
    for (const auto& object : run.objects) {
        EXPECT_EQ(object["status"], "written") << object.dump();
    }
    EXPECT_LT(
        MeanDifference(test::MagickPixels(dir.File("out/x.jpg"), "", "rgb", 8), SquareOf("a")),
        3.0);
    EXPECT_LT(
        MeanDifference(test::MagickPixels(dir.File("out/x (3).jpg"), "", "rgb", 8), SquareOf("b")),
        3.0);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("out/x (2).jpg")).width, 80);
}

TEST_F(OutputSafetyTest, AnOutputOverAnotherOriginalIsNeverWrittenEvenWithOverwriteAll) {
    const CliRun run =
        Here("--auto 1:1 --name \"[FileName]\" --overwrite all --output b a/x.jpg b/x.jpg");
    EXPECT_EQ(run.exitCode, 1) << run.out << run.err;
    EXPECT_NE(run.out.find(std::string("failed    a/x.jpg: ") + kOriginalReason), std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find(std::string("failed    b/x.jpg: ") + kOriginalReason), std::string::npos)
        << run.out;
    EXPECT_EQ(test::ReadFile(dir.File("a/x.jpg")), originalA);
    EXPECT_EQ(test::ReadFile(dir.File("b/x.jpg")), originalB);
}

TEST_F(OutputSafetyTest, AnOriginalIsKnownByItsInodeWhateverItsSpellingOrLink) {
    fs::create_directories(dir.File("out"));
    // out/x.jpg is the same file as a/x.jpg (a hard link); out/link is a
    // symbolic link to b; the outputs are spelled through both.
    fs::create_hard_link(dir.File("a/x.jpg"), dir.File("out/x.jpg"));
    fs::create_directory_symlink(dir.File("b"), dir.File("out/link"));
    CliRun run =
        Here("--auto 1:1 --name \"[FileName]\" --overwrite all --json --output out a/x.jpg");
    ASSERT_EQ(run.objects.size(), 1u) << run.out << run.err;
    EXPECT_EQ(run.objects[0]["reason"], kOriginalReason);
    run = Here(
        "--auto 1:1 --name \"[FileName]\" --overwrite all --json --output ./out/../out/link/. "
        "b/x.jpg");
    ASSERT_EQ(run.objects.size(), 1u) << run.out << run.err;
    EXPECT_EQ(run.objects[0]["reason"], kOriginalReason);
    EXPECT_EQ(test::ReadFile(dir.File("a/x.jpg")), originalA);
    EXPECT_EQ(test::ReadFile(dir.File("b/x.jpg")), originalB);
}

TEST_F(OutputSafetyTest, InPlaceReplacesEachPhotoByItsOwnCropOnlyOnce) {
    // b is listed a second time under another spelling: it is replaced once,
    // and its crop is cut from the original, not from a crop.
    const CliRun run =
        Here("--in-place --percents 10,10,80,80 --json a/x.jpg b/x.jpg ./b/../b/x.jpg");
    EXPECT_EQ(run.exitCode, 1) << run.out << run.err;
    ASSERT_EQ(run.objects.size(), 3u) << run.out << run.err;
    EXPECT_EQ(run.objects[0]["status"], "written");
    EXPECT_EQ(run.objects[0]["output"], "a/x.jpg");
    EXPECT_EQ(run.objects[1]["status"], "written");
    EXPECT_EQ(run.objects[2]["status"], "failed");
    EXPECT_EQ(run.objects[2]["reason"], kClashReason);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("a/x.jpg")).width, 240);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("b/x.jpg")).width, 128);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("b/x.jpg")).height, 192);
    EXPECT_LT(MeanDifference(test::MagickPixels(dir.File("a/x.jpg"), "", "rgb", 8),
                             test::MagickPixels(dir.File("a-original.jpg"),
                                                "-crop 240x160+30+20 +repage", "rgb", 8)),
              3.0);
    EXPECT_LT(MeanDifference(test::MagickPixels(dir.File("b/x.jpg"), "", "rgb", 8),
                             test::MagickPixels(dir.File("b-original.jpg"),
                                                "-crop 128x192+16+24 +repage", "rgb", 8)),
              3.0);
    // Nothing else was left in the folders.
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.File("b")), fs::directory_iterator()), 1);
}

TEST_F(OutputSafetyTest, InPlaceKeepsEachFilesFormatPermissionsAndMetadata) {
    test::CoordinateImage(100, 50).pngsave(dir.File("p.png").c_str());
    fs::permissions(dir.File("p.png"),
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ASSERT_EQ(std::system(("exiftool -q -overwrite_original -Artist=Someone " +
                           ShellQuote(dir.File("a/x.jpg")))
                              .c_str()),
              0);
    const CliRun run = Here("--in-place --keep-metadata --pixels 10,10,20,20 a/x.jpg p.png");
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(test::MagickFormat(dir.File("p.png")), "PNG");
    EXPECT_EQ(test::MagickFormat(dir.File("a/x.jpg")), "JPEG");
    EXPECT_EQ(test::ExifToolValue(dir.File("a/x.jpg"), "Artist"), "Someone");
    EXPECT_EQ(fs::status(dir.File("p.png")).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    // 10, 10 from the lower-left corner: the top row of the cut is 50 - 10 - 20.
    EXPECT_EQ(test::MagickPixels(dir.File("p.png"), "", "rgb", 8),
              test::RawBytes(test::CoordinateImage(100, 50).extract_area(10, 20, 20, 20)));
}

TEST_F(OutputSafetyTest, ARectangleBeyondThePhotoWritesItWholeWithAWarning) {
    test::PhotoLikeImage(100, 68).jpegsave(dir.File("photo.jpg").c_str());
    const CliRun run = Here("--pixels 100,100,300,200 --format png --json --output out photo.jpg");
    EXPECT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["status"], "written");
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json({100, 68}));
    EXPECT_EQ(run.objects[0]["warning"], "Whole image: the rectangle lies outside this image");
    const std::string output = run.objects[0]["output"];
    EXPECT_EQ(test::MagickPixels(dir.File(output), "", "rgb", 8),
              test::MagickPixels(dir.File("photo.jpg"), "", "rgb", 8));

    const CliRun text = Here(
        "--pixels 100,100,300,200 --format png --overwrite all --output out "
        "photo.jpg");
    EXPECT_NE(text.out.find("warning: Whole image: the rectangle lies outside this image"),
              std::string::npos)
        << text.out;
    EXPECT_NE(text.out.find("1 image: 1 written; 1 with a warning"), std::string::npos) << text.out;
}

TEST_F(OutputSafetyTest, TheDefaultEmptyRectangleSaysTheCopiesAreWhole) {
    const CliRun run = Here("--json --output out a/x.jpg b/x.jpg");
    EXPECT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), 2u);
    for (const auto& object : run.objects) {
        EXPECT_EQ(object["warning"], "Whole image: the rectangle is empty");
    }
    EXPECT_EQ(run.objects[1]["size"], nlohmann::json({160, 240}));
}

TEST_F(OutputSafetyTest, AClippedRectangleSaysToWhatSize) {
    const CliRun run = Here("--pixels -20,0,100,300 --json --format png --output out b/x.jpg");
    ASSERT_EQ(run.objects.size(), 1u) << run.err;
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json({80, 240}));
    EXPECT_EQ(run.objects[0]["warning"], "Clipped to 80 \u00d7 240");
    EXPECT_EQ(test::MagickIdentifySize(dir.File(run.objects[0]["output"])).width, 80);
}

TEST_F(OutputSafetyTest, AMissingOutputFolderIsMadeWithItsParents) {
    const CliRun run = Here("--auto 4:3 --output new/deeper/still a/x.jpg");
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_TRUE(fs::is_directory(dir.File("new/deeper/still")));
    EXPECT_EQ(test::MagickIdentifySize(dir.File("new/deeper/still/x_cropped (1).jpg")).width, 266);
}

TEST_F(OutputSafetyTest, AnOutputThatIsAFileIsRefused) {
    const CliRun run = Here("--output a/x.jpg b/x.jpg");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.err.find("The output folder a/x.jpg is a file, not a folder."), std::string::npos)
        << run.err;
    EXPECT_EQ(test::ReadFile(dir.File("a/x.jpg")), originalA);
}

TEST_F(OutputSafetyTest, AnAnimatedGifSaysOnlyItsFirstFrameIsCropped) {
    vips::VImage frames = test::CoordinateImage(40, 40 * 12);
    frames.set("page-height", 40);
    frames.gifsave(dir.File("anim.gif").c_str());
    const CliRun run = Here("--auto 1:1 --format png --json --output out anim.gif");
    ASSERT_EQ(run.objects.size(), 1u) << run.err;
    EXPECT_EQ(run.objects[0]["warning"], "first frame only (of 12)");
    EXPECT_EQ(run.objects[0]["size"], nlohmann::json({40, 40}));
}

}  // namespace
}  // namespace vellumo
