// Folders on the command line: walked like the window walks them, the tree
// kept below the output folder when asked, and the folder of the images
// refused as the output folder unless each crop goes beside its source.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

class FoldersCliTest : public CliTest {
  protected:
    FoldersCliTest() {
        Picture("catalogue/a.png", 400, 300);
        Picture("catalogue/shoes/a.png", 300, 400);
        Picture("catalogue/shoes/red/b.png", 200, 100);
        Picture("catalogue/bags/a.png", 500, 500);
        std::ofstream(dir.File("catalogue/notes.txt")) << "not an image";
        std::ofstream(dir.File("catalogue/.thumbs.png")) << "hidden";
    }
    void Picture(const std::string& relative, int width, int height) {
        fs::create_directories(fs::path(dir.File(relative)).parent_path());
        test::CoordinateImage(width, height).pngsave(dir.File(relative).c_str());
    }
    std::string Catalogue() { return dir.File("catalogue"); }
    std::string OutFile(const std::string& relative) { return Out() + "/" + relative; }
};

TEST_F(FoldersCliTest, AFolderIsCroppedAndWhatIsNoImageIsCounted) {
    const CliRun run = Cli("--auto 1:1 --format PNG --name '[FileName]' --output " +
                           ShellQuote(Out()) + " " + ShellQuote(Catalogue()));
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    EXPECT_EQ(test::MagickIdentifySize(OutFile("a.png")).width, 300);
    EXPECT_FALSE(fs::exists(OutFile("shoes")));
    EXPECT_NE(run.err.find("left out of the folders: 1 hidden file or folder, 1 file that is no "
                           "image"),
              std::string::npos)
        << run.err;
}

TEST_F(FoldersCliTest, TheKeptTreeMirrorsTheFoldersBelowTheOneGiven) {
    const CliRun run =
        Cli("--auto 1:1 --format PNG --name '[FileName]' --recursive "
            "--keep-structure --output " +
            ShellQuote(Out()) + " " + ShellQuote(Catalogue()));
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    EXPECT_EQ(test::MagickIdentifySize(OutFile("a.png")).width, 300);
    EXPECT_EQ(test::MagickIdentifySize(OutFile("shoes/a.png")).width, 300);
    EXPECT_EQ(test::MagickIdentifySize(OutFile("shoes/red/b.png")).height, 100);
    EXPECT_EQ(test::MagickIdentifySize(OutFile("bags/a.png")).width, 500);
    // Nothing else: the tree and its four files.
    long files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(Out())) {
        files += entry.is_regular_file() ? 1 : 0;
    }
    EXPECT_EQ(files, 4);
}

TEST_F(FoldersCliTest, WithoutTheTreeSameNamedFilesClashAndTheDryRunMakesNoFolder) {
    const CliRun flat = Cli("--auto 1:1 --format PNG --name '[FileName]' --recursive --output " +
                            ShellQuote(Out()) + " " + ShellQuote(Catalogue()));
    EXPECT_EQ(flat.exitCode, 1) << flat.err << flat.out;
    EXPECT_NE(flat.out.find("another image of this batch is written to this path"),
              std::string::npos)
        << flat.out;
    fs::remove_all(Out());
    const CliRun dry = Cli("--dry-run --auto 1:1 --recursive --keep-structure --output " +
                           ShellQuote(Out()) + " " + ShellQuote(Catalogue()));
    EXPECT_EQ(dry.exitCode, 0) << dry.err << dry.out;
    EXPECT_NE(dry.out.find(OutFile("shoes/red/")), std::string::npos) << dry.out;
    EXPECT_FALSE(fs::exists(Out()));
}

TEST_F(FoldersCliTest, TheImagesFolderAsOutputIsRefusedUnlessEachCropGoesBesideItsSource) {
    const CliRun refused =
        Cli("--auto 1:1 --output " + ShellQuote(Catalogue()) + " " + ShellQuote(Catalogue()));
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_EQ(refused.err, "vellumo-cli: --output: " + Catalogue() +
                               " is a folder of the images: give another folder, or "
                               "--keep-structure\n");
    const CliRun beside =
        Cli("--auto 1:1 --format PNG --name '[FileName]_square' --recursive "
            "--keep-structure --output " +
            ShellQuote(Catalogue()) + " " + ShellQuote(Catalogue()));
    ASSERT_EQ(beside.exitCode, 0) << beside.err << beside.out;
    EXPECT_EQ(test::MagickIdentifySize(dir.File("catalogue/shoes/red/b_square.png")).width, 100);
}

TEST_F(FoldersCliTest, AFolderWithoutImagesIsToldInOneLine) {
    fs::create_directories(dir.File("empty/sub"));
    Picture("empty/sub/x.png", 10, 10);
    const CliRun run =
        Cli("--auto 1:1 --output " + ShellQuote(Out()) + " " + ShellQuote(dir.File("empty")));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, "vellumo-cli: " + dir.File("empty") +
                           ": no image files in the folder (--recursive takes its subfolders "
                           "too)\n");
}

}  // namespace
}  // namespace vellumo
