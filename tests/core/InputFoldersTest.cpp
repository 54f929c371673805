// Folders given as inputs: walked into their images in reading order, with
// what is left out counted, linked loops cut, and the tree each output
// keeps below the folder given.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/InputFolders.h"
#include "batch/OutputPlan.h"
#include "tests/support/TempDir.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

class InputFoldersTest : public ::testing::Test {
  protected:
    std::string Touch(const std::string& relative) {
        const std::string path = dir.File(relative);
        fs::create_directories(fs::path(path).parent_path());
        std::ofstream(path) << "x";
        return path;
    }
    std::string Root() { return dir.File("catalogue"); }
    test::TempDir dir;
};

TEST_F(InputFoldersTest, AFolderGivesItsImagesInReadingOrderAndCountsWhatItLeavesOut) {
    Touch("catalogue/img10.jpg");
    Touch("catalogue/img2.JPG");
    Touch("catalogue/notes.txt");
    Touch("catalogue/.hidden.jpg");
    Touch("catalogue/.cache/a.jpg");
    Touch("catalogue/shoes/a.png");
    const WalkedInputs flat = WalkInputs({Root()}, false);
    EXPECT_EQ(flat.images, (std::vector<std::string>{Root() + "/img2.JPG", Root() + "/img10.jpg"}));
    EXPECT_EQ(flat.roots, std::vector<std::string>{Root()});
    EXPECT_EQ(flat.hiddenSkipped, 2);
    EXPECT_EQ(flat.nonImagesSkipped, 1);

    const WalkedInputs deep = WalkInputs({Root()}, true);
    EXPECT_EQ(deep.images, (std::vector<std::string>{Root() + "/img2.JPG", Root() + "/img10.jpg",
                                                     Root() + "/shoes/a.png"}));
    // The hidden folder is left out whole, not walked.
    EXPECT_EQ(deep.hiddenSkipped, 2);
}

TEST_F(InputFoldersTest, FilesGivenStayAsGivenBeforeTheFoldersImages) {
    const std::string file = Touch("loose/readme.txt");
    Touch("catalogue/b.jpg");
    const WalkedInputs walked = WalkInputs({Root(), file}, false);
    EXPECT_EQ(walked.images, (std::vector<std::string>{file, Root() + "/b.jpg"}));
}

TEST_F(InputFoldersTest, ALinkBackUpIsCutButTwoLinksToOneFolderAreBothWalked) {
    Touch("catalogue/shoes/a.jpg");
    fs::create_directory_symlink(Root(), dir.File("catalogue/shoes/up"));
    fs::create_directory_symlink(dir.File("catalogue/shoes"), dir.File("catalogue/again"));
    const WalkedInputs walked = WalkInputs({Root()}, true);
    // "again" and "shoes" are one folder reached twice side by side; "up"
    // inside either leads back to the folder given.
    EXPECT_EQ(walked.images,
              (std::vector<std::string>{Root() + "/again/a.jpg", Root() + "/shoes/a.jpg"}));
    EXPECT_EQ(walked.loopsSkipped, 2);
}

TEST_F(InputFoldersTest, AFolderBelowTheDeepestRootHoldingTheImage) {
    EXPECT_EQ(FolderBelowRoots("/p/catalogue/shoes/red/a.jpg", {"/p/catalogue"}), "shoes/red");
    EXPECT_EQ(FolderBelowRoots("/p/catalogue/shoes/a.jpg", {"/p/catalogue", "/p/catalogue/shoes"}),
              "");
    EXPECT_EQ(FolderBelowRoots("/p/catalogue/a.jpg", {"/p/catalogue/"}), "");
    EXPECT_EQ(FolderBelowRoots("/q/a.jpg", {"/p/catalogue"}), "");
    EXPECT_EQ(FolderBelowRoots("/p/catalogue2/a.jpg", {"/p/catalogue"}), "");
    EXPECT_EQ(SharedFolder({"/p/c/shoes/a.jpg", "/p/c/bags/x/b.jpg"}), "/p/c");
    EXPECT_EQ(SharedFolder({"/p/c/a.jpg"}), "/p/c");
}

TEST(ReadingOrder, NumbersByTheirValue) {
    EXPECT_TRUE(ReadingOrderLess("img2.jpg", "img10.jpg"));
    EXPECT_FALSE(ReadingOrderLess("img10.jpg", "img2.jpg"));
    EXPECT_TRUE(ReadingOrderLess("a.jpg", "b.jpg"));
    EXPECT_TRUE(ReadingOrderLess("img1.jpg", "img01.jpg") !=
                ReadingOrderLess("img01.jpg", "img1.jpg"));
    EXPECT_FALSE(ReadingOrderLess("same", "same"));
}

TEST_F(InputFoldersTest, TheKeptTreeGivesSameNamedFilesTheirOwnFoldersAndNoClash) {
    CropSettings settings;
    settings.outputFolder = "/out";
    settings.nameTemplate = "[FileName]";
    const std::vector<std::string> images = {Root() + "/shoes/a.jpg", Root() + "/bags/a.jpg",
                                             Root() + "/c.jpg"};
    const std::vector<std::string> roots = {Root()};
    const OutputPlan flat = PlanOutputs(settings, images, ClashPolicy::Refuse, nullptr, &roots);
    ASSERT_EQ(flat.clashes.size(), 1u);

    settings.keepStructure = true;
    const OutputPlan kept = PlanOutputs(settings, images, ClashPolicy::Refuse, nullptr, &roots);
    EXPECT_TRUE(kept.clashes.empty());
    EXPECT_EQ(kept.images[0].path, "/out/shoes/a.jpg");
    EXPECT_EQ(kept.images[1].path, "/out/bags/a.jpg");
    EXPECT_EQ(kept.images[2].path, "/out/c.jpg");
    // Without roots the folder the images share is the root.
    const OutputPlan shared = PlanOutputs(settings, images, ClashPolicy::Refuse);
    EXPECT_EQ(shared.images[0].path, "/out/shoes/a.jpg");
}

}  // namespace
}  // namespace vellumo
