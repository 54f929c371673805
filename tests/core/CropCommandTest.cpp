// The crop command both front ends drive: what it asks, in which order,
// what each answer does to the files, and what it tells its observer.
// Real images, cropped in this process; every question answered by a
// recording answerer.

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>

#include "batch/CropCommand.h"
#include "batch/OutputFolder.h"
#include "batch/Preconditions.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;

// Answers from queues (yes, and Yes for overwrites, once a queue is
// empty) and notes every question in the order asked.
class RecordingQuestions final : public CropQuestions {
  public:
    Answer ReplaceOriginals(std::size_t count) override {
        return Note("replace " + std::to_string(count));
    }
    Answer CreateFolder(const std::string& folder) override { return Note("create " + folder); }
    Answer WriteUncroppedCopies() override { return Note("uncropped"); }
    Answer NumberClashes(const std::vector<OutputClash>& clashes,
                         const std::vector<std::string>&) override {
        return Note("clashes " + std::to_string(clashes.size()));
    }
    OverwriteAnswer Overwrite(const std::string& path) override {
        asked.push_back(path);
        if (overwrites.empty()) {
            return OverwriteAnswer::Yes;
        }
        const OverwriteAnswer answer = overwrites.front();
        overwrites.pop_front();
        return answer;
    }

    std::vector<std::string> asked;
    std::deque<Answer> answers;
    std::deque<OverwriteAnswer> overwrites;

  private:
    Answer Note(const std::string& question) {
        asked.push_back(question);
        if (answers.empty()) {
            return Answer::Yes;
        }
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

class RecordingObserver final : public CropObserver {
  public:
    void Preparing() override { events.push_back("preparing"); }
    void Planned(const BatchPart& part) override {
        events.push_back("planned " + std::to_string(part.list.size()));
    }
    bool Starting(const BatchPart&, std::string& reason) override {
        events.push_back("starting");
        reason = refusal;
        return refusal.empty();
    }
    void ImageDone(const ImageReport& report) override {
        events.push_back("done " + std::to_string(report.index));
    }
    std::vector<std::string> events;
    std::string refusal;  // given, Starting refuses with it
};

class CropCommandTest : public ::testing::Test {
  protected:
    CropCommandTest() {
        request.settings.outputFolder = dir.File("out");
        request.settings.nameTemplate = "[FileName]";
        request.settings.outputFormat = OutputFormat::Png;  // PNG
        request.settings.mode = CropMode::Auto;
    }
    std::string Image(const std::string& name, int width = 300, int height = 200) {
        const std::string path = dir.File(name);
        fs::create_directories(fs::path(path).parent_path());
        test::CoordinateImage(width, height).pngsave(path.c_str());
        request.images.push_back(path);
        return path;
    }
    // Agree, then Run when agreed, as both front ends do.
    CropCommandResult Crop() {
        const CropCommand command(request, processor);
        CropCommandResult result = command.Agree(questions);
        if (result.ending == CropCommandResult::Ending::Agreed) {
            result = command.Run(questions, observer);
        }
        return result;
    }
    bool OutputsAreEmpty() const {
        return !fs::exists(request.settings.outputFolder) ||
               fs::is_empty(request.settings.outputFolder);
    }

    test::TempDir dir;
    CropRequest request;
    InProcessImageProcessor processor;
    RecordingQuestions questions;
    RecordingObserver observer;
};

using Ending = CropCommandResult::Ending;

TEST_F(CropCommandTest, AnEmptyListIsRefusedWithTheWindowsNotice) {
    const CropCommandResult result = Crop();
    EXPECT_EQ(result.ending, Ending::Refused);
    ASSERT_TRUE(result.refusal);
    EXPECT_EQ(result.refusal->kind, CropRefusal::Kind::Unready);
    EXPECT_EQ(result.refusal->detail.English(), kNoImagesToCrop);
    EXPECT_TRUE(questions.asked.empty());
}

TEST_F(CropCommandTest, AFileInTheOutputFoldersPlaceIsRefusedBeforeAnyQuestion) {
    Image("a.png");
    std::ofstream(request.settings.outputFolder) << "a file";
    const CropCommandResult result = Crop();
    ASSERT_TRUE(result.refusal);
    EXPECT_EQ(result.refusal->kind, CropRefusal::Kind::NotAFolder);
    EXPECT_EQ(result.refusal->folder, request.settings.outputFolder);
    EXPECT_TRUE(questions.asked.empty());
    EXPECT_TRUE(observer.events.empty());
}

TEST_F(CropCommandTest, AMissingFolderIsAskedForAndMadeOnlyWhenTheJobStarts) {
    Image("a.png");
    questions.answers = {Answer::No};
    EXPECT_EQ(Crop().ending, Ending::Declined);
    EXPECT_EQ(questions.asked, std::vector<std::string>{"create " + request.settings.outputFolder});
    EXPECT_FALSE(fs::exists(request.settings.outputFolder));

    // Agreed, but a later question declined: still nothing made.
    request.settings.mode = CropMode::Pixels;  // 0 x 0 pixels: every image whole
    questions.asked.clear();
    questions.answers = {Answer::Yes, Answer::No};
    EXPECT_EQ(Crop().ending, Ending::Declined);
    EXPECT_EQ(questions.asked,
              (std::vector<std::string>{"create " + request.settings.outputFolder, "uncropped"}));
    EXPECT_FALSE(fs::exists(request.settings.outputFolder));

    questions.asked.clear();
    questions.answers = {Answer::Yes, Answer::Yes};
    const CropCommandResult result = Crop();
    EXPECT_EQ(result.ending, Ending::Finished);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("out/a.png")).width, 300);
}

// The command line refuses these before the command; a window's settings
// (a profile, a format chosen after the fill) reach it.
TEST_F(CropCommandTest, RulesThatClashAreRefusedBeforeAnyQuestionOrFolder) {
    Image("a.png");
    request.settings.pad.on = true;  // after the auto-crop
    CropCommandResult result = Crop();
    EXPECT_EQ(result.ending, Ending::Refused);
    ASSERT_TRUE(result.refusal);
    EXPECT_EQ(result.refusal->kind, CropRefusal::Kind::RulesClash);
    EXPECT_EQ(result.refusal->clash, RuleClash::PadAfterCut);

    request.settings.mode = CropMode::None;
    request.settings.pad.background = PadBackground::Transparent;
    request.settings.outputFormat = OutputFormat::Jpg;
    result = Crop();
    ASSERT_TRUE(result.refusal);
    EXPECT_EQ(result.refusal->clash, RuleClash::TransparentWithoutAlpha);
    EXPECT_TRUE(questions.asked.empty());
    EXPECT_FALSE(fs::exists(request.settings.outputFolder));

    // A trim goes with the whole image or the auto-crop, not a typed rectangle.
    request.settings.pad.on = false;
    request.settings.trim.on = true;
    for (const CropMode mode : {CropMode::Pixels, CropMode::Percents}) {
        request.settings.mode = mode;
        result = Crop();
        ASSERT_TRUE(result.refusal);
        EXPECT_EQ(result.refusal->clash, RuleClash::TrimOfRectangle);
    }
    EXPECT_TRUE(questions.asked.empty());
    EXPECT_FALSE(fs::exists(request.settings.outputFolder));
    request.settings.trim.on = false;
    request.settings.pad.on = true;
    request.settings.mode = CropMode::None;

    // Replaced originals keep their own formats: asked, not refused.
    request.settings.replaceOriginals = true;
    questions.answers = {Answer::No};
    EXPECT_EQ(Crop().ending, Ending::Declined);
    EXPECT_EQ(questions.asked, std::vector<std::string>{"replace 1"});
}

// A padded image is put on a canvas, not copied: nothing to ask.
TEST_F(CropCommandTest, PaddingTheWholeImageAsksNotAboutUncroppedCopies) {
    Image("a.png", 300, 200);
    request.settings.mode = CropMode::None;
    request.settings.pad.on = true;
    const CropCommandResult result = Crop();
    EXPECT_EQ(result.ending, Ending::Finished);
    EXPECT_EQ(questions.asked, std::vector<std::string>{"create " + request.settings.outputFolder});
    EXPECT_EQ(test::MagickIdentifySize(dir.File("out/a.png")).width, 300);
    EXPECT_EQ(test::MagickIdentifySize(dir.File("out/a.png")).height, 300);
}

TEST_F(CropCommandTest, ReplacingTheOriginalsIsAskedWithTheirCount) {
    const std::string a = Image("a.png", 300, 200);
    Image("b.png", 200, 300);
    request.settings.replaceOriginals = true;
    request.settings.outputFolder.clear();
    questions.answers = {Answer::No};
    EXPECT_EQ(Crop().ending, Ending::Declined);
    EXPECT_EQ(questions.asked, std::vector<std::string>{"replace 2"});
    EXPECT_EQ(test::MagickIdentifySize(a).width, 300);

    questions.asked.clear();
    EXPECT_EQ(Crop().ending, Ending::Finished);
    EXPECT_EQ(test::MagickIdentifySize(a).width, 200);  // 1:1 of 300 x 200
    EXPECT_EQ(test::MagickIdentifySize(dir.File("b.png")).height, 200);
}

TEST_F(CropCommandTest, OnlyARuleThatCropsNoImageAsksAboutUncroppedCopies) {
    fs::create_directory(request.settings.outputFolder);
    Image("a.png");
    Image("b.png");
    EXPECT_EQ(Crop().ending, Ending::Finished);  // auto: always cropped
    EXPECT_TRUE(questions.asked.empty());

    fs::remove_all(request.settings.outputFolder);
    fs::create_directory(request.settings.outputFolder);
    request.settings.mode = CropMode::Pixels;
    request.settings.pixelsWidth = 10;
    request.settings.pixelsHeight = 10;
    request.settings.pixelsOriginX = 5000;  // outside both images
    questions.answers = {Answer::No};
    EXPECT_EQ(Crop().ending, Ending::Declined);
    EXPECT_EQ(questions.asked, std::vector<std::string>{"uncropped"});
    EXPECT_TRUE(OutputsAreEmpty());

    // An adjusted rectangle crops one image: nothing asked.
    questions.asked.clear();
    request.adjustments[request.images[1]] = Rect{0, 0, 50, 40};
    EXPECT_EQ(Crop().ending, Ending::Finished);
    EXPECT_TRUE(questions.asked.empty());
    EXPECT_EQ(test::MagickIdentifySize(dir.File("out/b.png")).width, 50);
}

TEST_F(CropCommandTest, ClashesAreAskedAboutUnlessAPolicyIsGiven) {
    fs::create_directory(request.settings.outputFolder);
    Image("one/a.png", 300, 200);
    Image("two/a.png", 400, 200);
    questions.answers = {Answer::No};
    EXPECT_EQ(Crop().ending, Ending::Declined);
    EXPECT_EQ(questions.asked, std::vector<std::string>{"clashes 1"});
    EXPECT_TRUE(OutputsAreEmpty());

    questions.asked.clear();
    const CropCommandResult numbered = Crop();
    ASSERT_EQ(numbered.ending, Ending::Finished);
    EXPECT_TRUE(numbered.report.allSucceeded);
    EXPECT_TRUE(fs::exists(dir.File("out/a.png")));
    EXPECT_TRUE(fs::exists(dir.File("out/a (2).png")));

    fs::remove_all(request.settings.outputFolder);
    fs::create_directory(request.settings.outputFolder);
    questions.asked.clear();
    request.clashes = ClashPolicy::Refuse;
    const CropCommandResult refused = Crop();
    EXPECT_TRUE(questions.asked.empty());
    EXPECT_EQ(refused.report.images[1].outcome.Reason(), kClashReason);
    EXPECT_FALSE(fs::exists(dir.File("out/a (2).png")));
}

TEST_F(CropCommandTest, AnExistingOutputIsAskedAboutAndKeptOnNo) {
    fs::create_directory(request.settings.outputFolder);
    Image("a.png");
    std::ofstream(dir.File("out/a.png")) << "precious";
    questions.overwrites = {OverwriteAnswer::No};
    const CropCommandResult result = Crop();
    EXPECT_EQ(questions.asked, std::vector<std::string>{dir.File("out/a.png")});
    ASSERT_EQ(result.report.images.size(), 1u);
    EXPECT_EQ(result.report.images[0].outcome.status, ImageStatus::Skipped);
    EXPECT_EQ(test::ReadFileBytes(dir.File("out/a.png")), "precious");
}

TEST_F(CropCommandTest, TheObserverHearsEachStepAndMayStopTheJobBeforeItStarts) {
    fs::create_directory(request.settings.outputFolder);
    Image("a.png");
    Image("b.png");
    observer.refusal = "the manifest cannot be opened";
    const CropCommandResult refused = Crop();
    ASSERT_TRUE(refused.refusal);
    EXPECT_EQ(refused.refusal->kind, CropRefusal::Kind::NotStarted);
    EXPECT_EQ(refused.refusal->detail.English(), "the manifest cannot be opened");
    EXPECT_TRUE(OutputsAreEmpty());

    observer.refusal.clear();
    observer.events.clear();
    EXPECT_EQ(Crop().ending, Ending::Finished);
    EXPECT_EQ(observer.events,
              (std::vector<std::string>{"preparing", "planned 2", "starting", "done 0", "done 1"}));
}

TEST_F(CropCommandTest, ADryRunMakesNoFolderAndWritesNothing) {
    Image("a.png");
    request.dryRun = true;
    const CropCommandResult result = Crop();
    ASSERT_EQ(result.ending, Ending::Finished);
    EXPECT_EQ(result.report.images[0].outcome.status, ImageStatus::Planned);
    EXPECT_FALSE(fs::exists(request.settings.outputFolder));
}

}  // namespace
}  // namespace vellumo
