// JPEG files get optimised Huffman tables when the encoder's coefficients fit
// its memory budget, and the standard tables beyond it: compared byte for
// byte with what the vips command line writes with and without optimised
// tables from the same pixels.

#include <gtest/gtest.h>

#include <string>

#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

// Crops nothing: writes the whole of a photo-like PNG of this size as JPG at
// quality 80, and beside it what `vips jpegsave` writes with `options`.
// Returns both files' bytes.
std::pair<std::string, std::string> WriteBoth(const test::TempDir& dir, int width, int height,
                                              const std::string& options) {
    const std::string source = dir.File("photo.png");
    test::PhotoLikeImage(width, height).pngsave(source.c_str());
    const LoadResult loaded = ImageTools::OpenImage(source);
    EXPECT_TRUE(loaded) << loaded.reason();
    const std::string ours = dir.File("ours.jpg");
    EXPECT_TRUE(ImageTools::TrySaveImage(*loaded, ours, OutputFormat::Jpg, 0.8).saved);
    const std::string theirs = dir.File("vips.jpg");
    const test::CommandResult vips =
        test::RunCommand("vips jpegsave " + test::ShellQuote(source) + " " +
                         test::ShellQuote(theirs) + " --Q 80 --strip " + options);
    EXPECT_EQ(vips.exitCode, 0);
    return {test::ReadFileBytes(ours), test::ReadFileBytes(theirs)};
}

TEST(JpegTables, ACropWithinTheBudgetGetsOptimisedTables) {
    test::TempDir dir;
    // 1600 x 1200: 5.8 MB of coefficients.
    const auto [ours, optimised] = WriteBoth(dir, 1600, 1200, "--optimize-coding");
    EXPECT_EQ(ours, optimised);
    ASSERT_EQ(test::RunCommand("vips jpegsave " + test::ShellQuote(dir.File("photo.png")) + " " +
                               test::ShellQuote(dir.File("standard.jpg")) + " --Q 80 --strip")
                  .exitCode,
              0);
    EXPECT_LT(ours.size(), test::ReadFileBytes(dir.File("standard.jpg")).size());
}

TEST(JpegTables, ACropBeyondTheBudgetGetsTheStandardTables) {
    test::TempDir dir;
    // 4800 x 3600: 52 MB of coefficients, more than the 32 MB budget.
    const auto [ours, standard] = WriteBoth(dir, 4800, 3600, "");
    EXPECT_EQ(ours, standard);
}

}  // namespace
}  // namespace vellumo
