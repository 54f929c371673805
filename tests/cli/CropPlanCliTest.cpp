// vellumo-cli --plan: a crop plan saved by the window, cropped headless —
// its images in order, its adjusted rectangles, its settings, and options
// given beside it; bad plans refused with one line and nothing written.

#include <fstream>

#include "batch/CropPlan.h"
#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

class CropPlanCliTest : public CliTest {
  protected:
    std::string Source(const std::string& name) {
        test::CoordinateImage(300, 200).pngsave(dir.File(name).c_str());
        return dir.File(name);
    }
    std::string WritePlan(const std::string& text) {
        const std::string path = dir.File("batch.vellumoplan");
        std::ofstream(path) << text;
        return path;
    }
};

TEST_F(CropPlanCliTest, CropsThePlansImagesByTheirRectanglesAndTheRule) {
    CropSettings settings;
    settings.mode = CropMode::Auto;             // 1:1
    settings.outputFormat = OutputFormat::Png;  // PNG
    settings.nameTemplate = "[FileName]";
    settings.outputFolder = Out();
    const std::string a = Source("a.png");
    const std::string b = Source("b.png");
    const CropPlan plan = MakeCropPlan(settings, {b, a}, {{a, {10, 20, 100, 50}}});
    ASSERT_TRUE(WriteCropPlan(dir.File("p.vellumoplan"), plan).saved);

    const CliRun run = Cli("--json --plan " + test::ShellQuote(dir.File("p.vellumoplan")));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(run.objects.size(), 2u);
    EXPECT_EQ(run.objects[0]["source"], b);  // in the plan's order
    EXPECT_EQ(test::MagickPixels(Out() + "/a.png", "", "rgb", 8),
              test::MagickPixels(a, "-crop 100x50+10+130 +repage", "rgb", 8));
    EXPECT_EQ(test::MagickPixels(Out() + "/b.png", "", "rgb", 8),
              test::MagickPixels(b, "-crop 200x200+50+0 +repage", "rgb", 8));
}

TEST_F(CropPlanCliTest, OptionsBesideThePlanOverrideItsSettings) {
    const std::string a = Source("a.png");
    CropSettings settings;
    settings.outputFolder = dir.File("elsewhere");
    ASSERT_TRUE(
        WriteCropPlan(dir.File("p.vellumoplan"), MakeCropPlan(settings, {a}, {{a, {0, 0, 40, 30}}}))
            .saved);
    const CliRun run =
        Cli("--plan " + test::ShellQuote(dir.File("p.vellumoplan")) + " --format png --name " +
            test::ShellQuote("[FileName]_cut") + " --output " + test::ShellQuote(Out()));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(test::MagickIdentifySize(Out() + "/a_cut.png").width, 40);
    EXPECT_FALSE(std::filesystem::exists(dir.File("elsewhere")));
}

TEST_F(CropPlanCliTest, BadPlansAreRefusedWithOneLineAndNothingWritten) {
    const std::string head = R"({"version": 1, "images": [{"path": "/a.png", "rect": )";
    const std::pair<std::string, std::string> cases[] = {
        {"{not json", "the file is not valid JSON"},
        {R"({"version": 7, "images": []})",
         "version 7 is not one this Vellumo reads (it reads version 1)"},
        {head + R"({"x": 0, "y": 0, "width": 10, "height": -1}}]})",
         "the rectangle of image 1 has a negative height"},
        {head + R"({"x": 0, "y": 0, "width": 2000000, "height": 1}}]})",
         "the rectangle of image 1 has a width beyond 1000000 pixels"},
    };
    for (const auto& [text, problem] : cases) {
        const std::string plan = WritePlan(text);
        const CliRun run =
            Cli("--plan " + test::ShellQuote(plan) + " --output " + test::ShellQuote(Out()));
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.err, "vellumo-cli: --plan: " + plan + ": " + problem + "\n");
        EXPECT_FALSE(std::filesystem::exists(Out()));
    }
    EXPECT_EQ(Cli("--plan " + test::ShellQuote(dir.File("none.vellumoplan"))).exitCode, 2);
    // The plan gives the images: not both.
    const CliRun both =
        Cli("--plan " + test::ShellQuote(WritePlan(R"({"version":1,"images":[]})")) + " " +
            test::ShellQuote(Source("a.png")) + " --output x");
    EXPECT_EQ(both.exitCode, 2);
    const CliRun neither = Cli("--output x");
    EXPECT_EQ(neither.exitCode, 2);
    EXPECT_EQ(neither.err, "vellumo-cli: FILE is required (or --inputs, or --plan)\n");
}

TEST_F(CropPlanCliTest, AnImageOfThePlanThatIsGoneFailsAloneWithItsReason) {
    const std::string a = Source("a.png");
    CropSettings settings;
    settings.outputFolder = Out();
    settings.outputFormat = OutputFormat::Png;
    ASSERT_TRUE(WriteCropPlan(dir.File("p.vellumoplan"),
                              MakeCropPlan(settings, {dir.File("gone.png"), a}, {}))
                    .saved);
    const CliRun run = Cli("--json --plan " + test::ShellQuote(dir.File("p.vellumoplan")));
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.objects.size(), 2u);
    EXPECT_EQ(run.objects[0]["status"], "failed");
    EXPECT_NE(run.objects[0]["reason"].get<std::string>(), "");
    EXPECT_EQ(run.objects[1]["status"], "written");
}

}  // namespace
}  // namespace vellumo
