// A file's creation date: its birth time where the file system records one,
// else its modification time, and the current time for a file that is gone.

#include <gtest/gtest.h>

#include <fstream>

#include "imaging/ImageTools.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"

namespace vellumo {
namespace {

long long Seconds(std::chrono::system_clock::time_point when) {
    return std::chrono::duration_cast<std::chrono::seconds>(when.time_since_epoch()).count();
}

TEST(ImageCreationDate, IsTheBirthTimeOrElseTheModificationTime) {
    test::TempDir dir;
    const std::string path = dir.File("a.jpg");
    std::ofstream(path) << "x";
    ASSERT_EQ(
        test::RunCommand("touch -m -d '1999-12-31 23:59:58' " + test::ShellQuote(path)).exitCode,
        0);
    const test::StatTimes times = test::StatSeconds(path);
    ASSERT_EQ(times.modification, 946684798);
    const long long expected = times.birth != 0 ? times.birth : times.modification;
    EXPECT_EQ(Seconds(ImageTools::CreationDate(path)), expected);
}

TEST(ImageCreationDate, FileThatVanishedGivesAboutTheCurrentTime) {
    test::TempDir dir;
    const auto before = std::chrono::system_clock::now();
    const auto date = ImageTools::CreationDate(dir.File("gone.jpg"));
    const auto after = std::chrono::system_clock::now();
    EXPECT_GE(date, before);
    EXPECT_LE(date, after);
}

TEST(ImageCreationDate, PathThroughAFileIsUnreadableAndGivesTheCurrentTime) {
    test::TempDir dir;
    std::ofstream(dir.File("plain")) << "x";
    const auto before = std::chrono::system_clock::now();
    const auto date = ImageTools::CreationDate(dir.File("plain/inside.jpg"));
    EXPECT_GE(date, before);
    EXPECT_LE(date, std::chrono::system_clock::now());
}

}  // namespace
}  // namespace vellumo
