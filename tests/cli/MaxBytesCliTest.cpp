// --max-bytes from the command line: files no larger than the limit, the
// quality chosen in the report, and sizes refused with one line.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestData.h"

namespace vellumo {
namespace {

using test::ShellQuote;

class MaxBytesCliTest : public CliTest {};

TEST_F(MaxBytesCliTest, OutputsFitAndTheQualityIsReported) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string a = test::TestDataPath("faces/2007_007763.jpg");
    const std::string b = test::TestDataPath("faces/2008_002079.jpg");
    const CliRun run = Cli("--auto 1:1 --quality 95 --max-bytes 15K --json --output " +
                           ShellQuote(Out()) + Files({a, b}));
    ASSERT_EQ(run.exitCode, 0) << run.err << run.out;
    ASSERT_EQ(run.objects.size(), 2u);
    for (const nlohmann::json& image : run.objects) {
        const std::string output = image["output"].get<std::string>();
        EXPECT_LE(std::filesystem::file_size(output), 15000u) << output;
        ASSERT_TRUE(image.contains("quality")) << image.dump();
        EXPECT_GE(image["quality"].get<int>(), 1);
        EXPECT_LT(image["quality"].get<int>(), 95);
        // Read whole by an independent decoder.
        EXPECT_EQ(test::MagickIdentifySize(output).width, image["size"][0].get<long>());
    }
    const CliRun text = Cli("--auto 1:1 --quality 95 --max-bytes 15K --overwrite all --output " +
                            ShellQuote(Out()) + Files({a}));
    EXPECT_NE(text.out.find(", quality "), std::string::npos) << text.out;
}

TEST_F(MaxBytesCliTest, TooSmallALimitFailsWithTheSmallestSizeOrScalesDown) {
    VELLUMO_REQUIRE_TESTDATA();
    const std::string a = test::TestDataPath("faces/2007_007763.jpg");
    const CliRun failed = Cli("--auto 1:1 --format webp --max-bytes 700 --json --output " +
                              ShellQuote(Out()) + Files({a}));
    EXPECT_EQ(failed.exitCode, 1) << failed.out;
    ASSERT_EQ(failed.objects.size(), 1u);
    EXPECT_NE(failed.objects[0]["reason"].get<std::string>().find(
                  "does not fit in 700 bytes: the smallest encoding reached was "),
              std::string::npos)
        << failed.out;
    EXPECT_TRUE(std::filesystem::is_empty(Out()));
    const CliRun scaled =
        Cli("--auto 1:1 --format webp --max-bytes 700 --max-bytes-resize "
            "--json --output " +
            ShellQuote(Out()) + Files({a}));
    ASSERT_EQ(scaled.exitCode, 0) << scaled.out << scaled.err;
    const std::string output = scaled.objects[0]["output"].get<std::string>();
    EXPECT_LE(std::filesystem::file_size(output), 700u);
    EXPECT_EQ(test::MagickIdentifySize(output).width, scaled.objects[0]["size"][0].get<long>());
    EXPECT_LT(scaled.objects[0]["size"][0].get<long>(), 375);
}

TEST_F(MaxBytesCliTest, ZeroNegativeOrWordsAreRefusedWithOneLine) {
    const std::string a = dir.File("a.png");
    for (const std::string size : {"0", "-5K", "5X", "K", "1.5M"}) {
        const CliRun run =
            Cli("--auto 1:1 --max-bytes=" + size + " --output " + ShellQuote(Out()) + Files({a}));
        EXPECT_EQ(run.exitCode, 2) << size;
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_NE(run.err.find("--max-bytes"), std::string::npos) << run.err;
    }
}

}  // namespace
}  // namespace vellumo
