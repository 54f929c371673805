// The overwrite questions before a job, answered by a script.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/OutputPath.h"
#include "batch/OverwritePrompts.h"
#include "tests/support/TempDir.h"

namespace vellumo {
namespace {

using D = OverwriteDecision;

class OverwritePromptsTest : public ::testing::Test {
  protected:
    // n listed images a0.png ... whose outputs are <folder>/a<i>.png.
    void List(int n) {
        for (int i = 0; i < n; ++i) {
            list.push_back("/pics/a" + std::to_string(i) + ".jpg");
        }
        settings.nameTemplate = "[FileName]";
        settings.outputFormat = OutputFormat::Png;
        settings.outputFolder = dir.path().string();
    }
    void Existing(int i) { std::ofstream(Output(i)) << "old"; }
    std::string Output(int i) { return GenerateOutputPathWithImageIndex(settings, list, i); }

    // Answers in turn, recording every question; "No to All" once the
    // answers have run out.
    OverwriteAsker Script(std::vector<OverwriteAnswer> answers) {
        return [this, answers, next = std::size_t{0}](const std::string& question) mutable {
            questions.push_back(question);
            return next < answers.size() ? answers[next++] : OverwriteAnswer::NoToAll;
        };
    }

    test::TempDir dir;
    CropSettings settings;
    std::vector<std::string> list;
    std::vector<std::string> questions;
};

TEST_F(OverwritePromptsTest, NoExistingFilesAsksNothing) {
    List(3);
    EXPECT_EQ(PromptOverwrites(settings, list, Script({})),
              (std::vector<D>{D::NoConflict, D::NoConflict, D::NoConflict}));
    EXPECT_TRUE(questions.empty());
}

TEST_F(OverwritePromptsTest, QuestionNamesTheFullPath) {
    List(1);
    Existing(0);
    PromptOverwrites(settings, list, Script({OverwriteAnswer::Yes}));
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_EQ(questions[0], Output(0));
    EXPECT_EQ(OverwriteQuestion(questions[0]),
              "The file " + Output(0) + " already exists. Do you want to overwrite it?");
    EXPECT_EQ(kOverwriteButtons,
              (std::vector<std::string>{"Yes", "Yes to All", "No", "No to All"}));
}

TEST_F(OverwritePromptsTest, YesToAllOnTheSecondOfFiveConflicts) {
    // Seven images; 1 and 4 have no existing output.
    List(7);
    for (int i : {0, 2, 3, 5, 6})
        Existing(i);
    const auto decisions =
        PromptOverwrites(settings, list, Script({OverwriteAnswer::No, OverwriteAnswer::YesToAll}));
    EXPECT_EQ(decisions, (std::vector<D>{D::Skip, D::NoConflict, D::Overwrite, D::Overwrite,
                                         D::NoConflict, D::Overwrite, D::Overwrite}));
    EXPECT_EQ(questions.size(), 2u);
}

TEST_F(OverwritePromptsTest, NoToAllOnTheFirstConflict) {
    List(4);
    for (int i : {0, 1, 3})
        Existing(i);
    const auto decisions = PromptOverwrites(settings, list, Script({OverwriteAnswer::NoToAll}));
    EXPECT_EQ(decisions, (std::vector<D>{D::Skip, D::Skip, D::NoConflict, D::Skip}));
    EXPECT_EQ(questions.size(), 1u);
}

TEST_F(OverwritePromptsTest, YesAndNoAskAgainEachTime) {
    List(3);
    for (int i : {0, 1, 2})
        Existing(i);
    const auto decisions = PromptOverwrites(
        settings, list, Script({OverwriteAnswer::Yes, OverwriteAnswer::No, OverwriteAnswer::Yes}));
    EXPECT_EQ(decisions, (std::vector<D>{D::Overwrite, D::Skip, D::Overwrite}));
    EXPECT_EQ(questions.size(), 3u);
}

TEST_F(OverwritePromptsTest, CoincidingOutputsWithoutAnExistingFileAreNoConflict) {
    List(2);
    settings.nameTemplate = "[FileName]";
    list = {"/a/x.jpg", "/b/x.png"};
    ASSERT_EQ(Output(0), Output(1));
    EXPECT_EQ(PromptOverwrites(settings, list, Script({})),
              (std::vector<D>{D::NoConflict, D::NoConflict}));
    EXPECT_TRUE(questions.empty());
}

TEST_F(OverwritePromptsTest, AFolderAtTheOutputPathIsAConflict) {
    List(1);
    std::filesystem::create_directory(Output(0));
    EXPECT_EQ(PromptOverwrites(settings, list, Script({OverwriteAnswer::Yes})),
              (std::vector<D>{D::Overwrite}));
    EXPECT_EQ(questions.size(), 1u);
}

}  // namespace
}  // namespace vellumo
