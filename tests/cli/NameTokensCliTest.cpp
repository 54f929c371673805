// Output names made of what the photo holds, from the command line: dates
// and cameras exiftool wrote, sizes identify reads back, folders and
// extensions of the sources; templates refused before anything is written.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::ShellQuote;

class NameTokensCliTest : public CliTest {
  protected:
    // A JPEG in `folder` with the Exif date and camera given (none when
    // empty).
    std::string Photo(const std::string& folder, const std::string& name, int width, int height,
                      const std::string& date, const std::string& model) {
        std::filesystem::create_directories(dir.File(folder));
        const std::string path = dir.File(folder + "/" + name);
        test::PhotoLikeImage(width, height).jpegsave(path.c_str());
        std::string tags;
        if (!date.empty()) {
            tags += " " + ShellQuote("-DateTimeOriginal=" + date);
        }
        if (!model.empty()) {
            tags += " " + ShellQuote("-Model=" + model);
        }
        if (!tags.empty()) {
            EXPECT_EQ(
                test::RunCommand("exiftool -q -overwrite_original" + tags + " " + ShellQuote(path))
                    .exitCode,
                0);
        }
        return path;
    }
};

TEST_F(NameTokensCliTest, NamesFromDateCameraSizeRatioFolderAndExtension) {
    const std::string a = Photo("shoes", "a.jpeg", 400, 300, "2023:07:14 09:05:03", "EOS R/5");
    const std::string b = Photo("bags", "b.jpg", 300, 400, "2022:01:02 03:04:05", "X100V");
    const CliRun run = Cli("--auto 16:9 --json --output " + ShellQuote(Out()) +
                           " --name '[Date:yyyy-MM-dd_HHmm]_[Camera]_[Width]x[Height]_[Ratio]_"
                           "[Folder]_[Ext]'" +
                           Files({a, b}));
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    const std::string first = Out() + "/2023-07-14_0905_EOS R_5_400x225_16x9_shoes_jpeg.jpg";
    const std::string second = Out() + "/2022-01-02_0304_X100V_225x400_9x16_bags_jpg.jpg";
    ASSERT_TRUE(std::filesystem::exists(first)) << run.out;
    ASSERT_TRUE(std::filesystem::exists(second)) << run.out;
    EXPECT_EQ(test::MagickIdentifySize(first).width, 400);
    EXPECT_EQ(test::MagickIdentifySize(first).height, 225);
    EXPECT_EQ(test::MagickIdentifySize(second).width, 225);
    EXPECT_EQ(test::MagickIdentifySize(second).height, 400);
    ASSERT_EQ(run.objects.size(), 2u);
    EXPECT_TRUE(run.objects[0]["warning"].is_null());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Out()), {}), 2);
}

TEST_F(NameTokensCliTest, MissingCameraIsLeftEmptyWithAWarning) {
    const std::string a = Photo("in", "plain.jpg", 200, 100, "", "");
    ASSERT_EQ(test::RunCommand("touch -m -d '2018-05-06 07:08:09' " + ShellQuote(a)).exitCode, 0);
    const CliRun run = Cli("--auto 1:1 --json --output " + ShellQuote(Out()) +
                           " --name '[Camera]-[Date:yyyyMMdd]-[FileName]'" + Files({a}));
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    const std::string date =
        test::RunCommand("date -r " + ShellQuote(a) + " +%Y%m%d").out.substr(0, 8);
    EXPECT_TRUE(std::filesystem::exists(Out() + "/-" + date + "-plain.jpg")) << run.out;
    ASSERT_EQ(run.objects.size(), 1u);
    EXPECT_EQ(run.objects[0]["warning"], "[Camera] has no value: left empty in the name");
}

TEST_F(NameTokensCliTest, UnknownOrUnclosedTokenIsRefusedWithOneLine) {
    const std::string a = Photo("in", "a.jpg", 64, 64, "", "");
    for (const std::string name : {"'x_[Date:'", "'[Width]_[Size]'", "'[Date:yyyy-QQ]'"}) {
        const CliRun run =
            Cli("--auto 1:1 --output " + ShellQuote(Out()) + " --name " + name + Files({a}));
        EXPECT_EQ(run.exitCode, 2) << name;
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_NE(run.err.find("--name: "), std::string::npos) << run.err;
        EXPECT_FALSE(std::filesystem::exists(Out()));
    }
    const CliRun unclosed =
        Cli("--auto 1:1 --output " + ShellQuote(Out()) + " --name 'x_[Date:'" + Files({a}));
    EXPECT_NE(unclosed.err.find("unclosed token [Date:"), std::string::npos) << unclosed.err;
}

TEST_F(NameTokensCliTest, SameDateNamesAreNumberedOrRefused) {
    const std::string a = Photo("one", "a.jpg", 100, 100, "2020:02:02 10:00:00", "Cam");
    const std::string b = Photo("two", "b.jpg", 100, 100, "2020:02:02 10:00:00", "Cam");
    const CliRun refused =
        Cli("--auto 1:1 --output " + ShellQuote(Out()) + " --name '[Date]'" + Files({a, b}));
    EXPECT_EQ(refused.exitCode, 1) << refused.out;
    EXPECT_TRUE(std::filesystem::exists(Out() + "/2020-02-02.jpg"));
    const CliRun numbered = Cli("--auto 1:1 --on-clash number --overwrite all --output " +
                                ShellQuote(Out()) + " --name '[Date]'" + Files({a, b}));
    EXPECT_EQ(numbered.exitCode, 0) << numbered.out << numbered.err;
    EXPECT_TRUE(std::filesystem::exists(Out() + "/2020-02-02 (2).jpg"));
}

}  // namespace
}  // namespace vellumo
