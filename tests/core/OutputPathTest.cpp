// Output file names from the template, the folder and the format.

#include <gtest/gtest.h>

#include "batch/OutputPath.h"

namespace vellumo {
namespace {

constexpr OutputFormat kJpg = OutputFormat::Jpg, kPng = OutputFormat::Png;

std::string PathFor(const std::string& nameTemplate, const std::vector<std::string>& list,
                    long index, const std::string& folder, OutputFormat format) {
    CropSettings s;
    s.nameTemplate = nameTemplate;
    s.outputFolder = folder;
    s.outputFormat = format;
    return GenerateOutputPathWithImageIndex(s, list, index);
}

TEST(OutputPath, DefaultTemplate) {
    EXPECT_EQ(PathFor("[FileName]_cropped ([FileIndex])", {"/pics/Beach.JPG"}, 0, "/out", kPng),
              "/out/Beach_cropped (1).png");
}

TEST(OutputPath, EmptyTemplateGivesTheBareFileName) {
    const std::vector<std::string> list = {"/p/0.jpg", "/p/1.jpg", "/p/2.jpg", "/p/3.jpg",
                                           "/pics/a.tif"};
    EXPECT_EQ(PathFor("", list, 4, "/out", kJpg), "/out/a.jpg");
}

TEST(OutputPath, TemplateWithoutTokensGetsTheIndex) {
    const std::vector<std::string> list = {"/p/a.png", "/p/b.png", "/p/c.png"};
    EXPECT_EQ(PathFor("photo", list, 2, "/out", kJpg), "/out/photo (3).jpg");
    EXPECT_EQ(PathFor("photo [FileIndex]", list, 2, "/out", kJpg), "/out/photo 3.jpg");
}

TEST(OutputPath, SameBaseNameInDifferentFoldersGivesTheSamePath) {
    const std::vector<std::string> list = {"/a/x.png", "/b/x.jpg"};
    EXPECT_EQ(PathFor("[FileName]", list, 0, "/out", kPng),
              PathFor("[FileName]", list, 1, "/out", kPng));
    EXPECT_EQ(PathFor("[FileName]", list, 1, "/out", kPng), "/out/x.png");
}

TEST(OutputPath, FileNameTokenRepeats) {
    EXPECT_EQ(PathFor("[FileName]-[FileName]", {"/p/cat.gif"}, 0, "/o", kJpg), "/o/cat-cat.jpg");
}

TEST(OutputPath, OnlyTheLastExtensionIsRemoved) {
    EXPECT_EQ(PathFor("[FileName]", {"/pics/archive.tar.gz"}, 0, "/out", kJpg),
              "/out/archive.tar.jpg");
}

TEST(OutputPath, FolderIsConcatenatedAsItIs) {
    EXPECT_EQ(PathFor("[FileName]_cropped ([FileIndex])", {"/pics/Beach.JPG"}, 0, "/out/", kPng),
              "/out//Beach_cropped (1).png");
    EXPECT_EQ(PathFor("[FileName]", {"/pics/Beach.JPG"}, 0, "", kPng), "/Beach.png");
}

TEST(OutputPath, FileNameIsPutInBeforeTheIndex) {
    // A file name that itself holds the index token gets the index too.
    EXPECT_EQ(PathFor("[FileName]", {"/p/shot [FileIndex].png"}, 0, "/o", kPng), "/o/shot 1.png");
}

TEST(OutputPath, TokensAreCaseSensitive) {
    // "[filename]" is no token: refused rather than written as it is.
    EXPECT_EQ(NameTemplateProblem("[filename]").value_or(""),
              "unknown token [filename] (known: [FileName] [FileIndex] [Folder] [Ext] [Date] "
              "[Date:pattern] [Camera] [Width] [Height] [Ratio])");
    EXPECT_DEATH(PathFor("[filename]", {"/p/a.png"}, 0, "/o", kPng), "unknown token");
}

TEST(OutputPath, ExtensionIsTheLowerCasedFormatTitle) {
    const char* expected[] = {"jpg", "jpeg", "jpe", "jp2", "jpx",
                              "png", "tiff", "tif", "gif", "bmp"};
    for (long position = 0; position < 10; ++position) {
        EXPECT_EQ(PathFor("[FileName]", {"/p/a.png"}, 0, "/o", *OutputFormatAtPosition(position)),
                  std::string("/o/a.") + expected[position]);
    }
}

TEST(OutputPath, IndexOutsideTheListStopsTheProgram) {
    EXPECT_DEATH(PathFor("", {"/p/a.png"}, 1, "/o", kPng), "index 1");
}

}  // namespace
}  // namespace vellumo
