// Replacing files: readers never see a part of one, failures leave the old
// file as it was and no temporary file behind, and a failure has a reason a
// person can read.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/VipsRuntime.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

using test::MakeImage;
using test::ReadFile;
using test::TempDir;

std::vector<std::string> FileNames(const TempDir& dir) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir.path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

void WriteText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

TEST(AtomicWrite, ReaderPollingDuringRepeatedOverwritesNeverSeesAPartialFile) {
    TempDir dir;
    // Two pictures whose files differ in content and size.
    const Image first = MakeImage(test::PhotoLikeImage(500, 400).copy_memory());
    const Image second = MakeImage(test::CoordinateImage(640, 360));
    ASSERT_TRUE(ImageTools::SaveImage(first, dir.File("first.png"), OutputFormat::Png, 0.8));
    ASSERT_TRUE(ImageTools::SaveImage(second, dir.File("second.png"), OutputFormat::Png, 0.8));
    const std::string firstBytes = ReadFile(dir.File("first.png"));
    const std::string secondBytes = ReadFile(dir.File("second.png"));
    ASSERT_NE(firstBytes.size(), secondBytes.size());

    const std::string target = dir.File("target.png");
    ASSERT_TRUE(ImageTools::SaveImage(first, target, OutputFormat::Png, 0.8));

    std::atomic<bool> writing{true};
    std::atomic<int> reads{0};
    std::atomic<int> partial{0};
    std::thread reader([&] {
        while (writing.load()) {
            const std::string seen = ReadFile(target);
            if (seen != firstBytes && seen != secondBytes) {
                ++partial;
            }
            reads.fetch_add(1);
            reads.notify_all();
        }
    });
    // Before each write the writer waits for the reader to finish a read
    // begun after the previous write, so the reads interleave with every
    // write however the threads are scheduled.
    const auto waitForFreshRead = [&reads] {
        const int seen = reads.load();
        for (int now = seen; now < seen + 2; now = reads.load()) {
            reads.wait(now);
        }
    };
    constexpr int kWrites = 30;
    int saved = 0;
    for (int i = 0; i < kWrites; ++i) {
        waitForFreshRead();
        saved += ImageTools::SaveImage(i % 2 == 0 ? second : first, target, OutputFormat::Png, 0.8)
                     ? 1
                     : 0;
    }
    waitForFreshRead();
    writing = false;
    reader.join();

    EXPECT_EQ(saved, kWrites);
    EXPECT_EQ(partial.load(), 0) << "of " << reads.load() << " reads";
    EXPECT_GT(reads.load(), kWrites);
    EXPECT_EQ(ReadFile(target), firstBytes);
}

TEST(AtomicWrite, ReplacesTheFileInsteadOfWritingIntoIt) {
    TempDir dir;
    const std::string target = dir.File("out.jpg");
    WriteText(target, "the old content");
    // A second name for the old file: writing into the file would change it.
    std::filesystem::create_hard_link(target, dir.File("old-link"));
    ASSERT_TRUE(ImageTools::SaveImage(MakeImage(test::CoordinateImage(80, 60)), target,
                                      OutputFormat::Jpg, 0.8));
    EXPECT_EQ(ReadFile(dir.File("old-link")), "the old content");
    EXPECT_EQ(test::MagickIdentifySize(target).width, 80);
    EXPECT_EQ(FileNames(dir), (std::vector<std::string>{"old-link", "out.jpg"}));
}

TEST(AtomicWrite, NewFileHasTheUsualPermissions) {
    TempDir dir;
    const mode_t previous = umask(027);
    const bool saved = ImageTools::SaveImage(MakeImage(test::CoordinateImage(20, 20)),
                                             dir.File("a.png"), OutputFormat::Png, 0.8);
    umask(previous);
    ASSERT_TRUE(saved);
    struct stat info {};
    ASSERT_EQ(stat(dir.File("a.png").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0640u);
}

TEST(AtomicWrite, MissingFolderIsAFailureWithAReason) {
    TempDir dir;
    const SaveResult result =
        ImageTools::TrySaveImage(MakeImage(test::CoordinateImage(20, 20)),
                                 dir.File("nowhere/a.png"), OutputFormat::Png, 0.8);
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, "the folder does not exist");
    EXPECT_TRUE(FileNames(dir).empty());
}

// While alive, this thread's file accesses are checked as an ordinary
// user's (nobody) when the test runs as the superuser, who may write into
// any folder: the file-system user id is the thread's own, and changing it
// from 0 drops the thread's file capabilities until it is changed back.
class AsOrdinaryUser {
  public:
    static constexpr uid_t kNobody = 65534;
    AsOrdinaryUser() : changed_(geteuid() == 0) {
        if (changed_) {
            setfsgid(kNobody);
            setfsuid(kNobody);
        }
    }
    ~AsOrdinaryUser() {
        if (changed_) {
            setfsuid(0);
            setfsgid(0);
        }
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
    // Who the accesses are checked as: the folder under test must be theirs.
    static uid_t User() { return geteuid() == 0 ? kNobody : geteuid(); }

  private:
    const bool changed_;
};

TEST(AtomicWrite, FolderWithoutWritePermissionIsAFailureWithAReason) {
    TempDir dir;
    namespace fs = std::filesystem;
    fs::permissions(dir.path(), fs::perms::others_exec, fs::perm_options::add);
    const fs::path locked = dir.path() / "locked";
    fs::create_directory(locked);
    WriteText((locked / "a.png").string(), "old");
    ASSERT_EQ(chown(locked.c_str(), AsOrdinaryUser::User(), static_cast<gid_t>(-1)), 0);
    fs::permissions(locked, fs::perms::owner_read | fs::perms::owner_exec);
    SaveResult result;
    {
        const AsOrdinaryUser user;
        result = ImageTools::TrySaveImage(MakeImage(test::CoordinateImage(20, 20)),
                                          (locked / "a.png").string(), OutputFormat::Png, 0.8);
    }
    fs::permissions(locked, fs::perms::owner_all);
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, "permission denied");
    EXPECT_EQ(ReadFile((locked / "a.png").string()), "old");
}

TEST(AtomicWrite, FolderInTheWayOfTheTargetIsAFailure) {
    TempDir dir;
    std::filesystem::create_directory(dir.path() / "a.png");
    std::ofstream(dir.path() / "a.png" / "inside.txt") << "kept";
    const SaveResult result = ImageTools::TrySaveImage(MakeImage(test::CoordinateImage(20, 20)),
                                                       dir.File("a.png"), OutputFormat::Png, 0.8);
    EXPECT_FALSE(result.saved);
    EXPECT_FALSE(result.reason.empty());
    EXPECT_EQ(ReadFile(dir.File("a.png/inside.txt")), "kept");
    EXPECT_EQ(FileNames(dir), std::vector<std::string>{"a.png"});
}

// While alive, any write past `bytes` in a file fails with EFBIG (as a full
// disk makes a write fail halfway), instead of stopping the process.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        previousHandler_ = signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &previous_);
        rlimit limit = previous_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &previous_);
        signal(SIGXFSZ, previousHandler_);
    }

  private:
    rlimit previous_{};
    sighandler_t previousHandler_;
};

class FailedWrite : public ::testing::TestWithParam<std::pair<OutputFormat, const char*>> {};

TEST_P(FailedWrite, LeavesTheOldFileAsItWasAndNoTemporaryFile) {
    const auto [format, name] = GetParam();
    TempDir dir;
    const std::string target = dir.File(name);
    WriteText(target, "the old file, short enough to fit under the limit");
    // Photo-like pixels with a colour profile: every step of every writer
    // (including the profile added after JPEG and JPEG 2000 encoding) has
    // more than 4 kB to write.
    vips::VImage pixels = test::PhotoLikeImage(400, 300).copy_memory();
    const std::string profile(3000, 'p');
    std::string icc = profile;
    icc.replace(16, 4, "RGB ");
    pixels.set(VIPS_META_ICC_NAME, nullptr, icc.data(), icc.size());
    SaveResult result;
    {
        FileSizeLimit limit(4096);
        result = ImageTools::TrySaveImage(MakeImage(pixels), target, format, 1.0);
    }
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, "the file is too large");
    EXPECT_EQ(ReadFile(target), "the old file, short enough to fit under the limit");
    EXPECT_EQ(FileNames(dir), std::vector<std::string>{name});
}

INSTANTIATE_TEST_SUITE_P(
    Encoders, FailedWrite,
    ::testing::Values(std::pair{OutputFormat::Jpg, "a.jpg"}, std::pair{OutputFormat::Jp2, "a.jp2"},
                      std::pair{OutputFormat::Png, "a.png"}, std::pair{OutputFormat::Tiff, "a.tif"},
                      std::pair{OutputFormat::Gif, "a.gif"}, std::pair{OutputFormat::Bmp, "a.bmp"}),
    [](const auto& info) { return std::to_string(PositionOfOutputFormat(info.param.first)); });

TEST(AtomicWrite, ImageFoundDamagedWhileWritingIsAFailureWithTheDecodersReason) {
    TempDir dir;
    // A JPEG cut short, opened lazily: its damage shows only when the
    // pixels are read, that is while the output is being written.
    const std::string damaged = dir.File("damaged.jpg");
    test::PhotoLikeImage(800, 600).jpegsave(damaged.c_str());
    std::filesystem::resize_file(damaged, std::filesystem::file_size(damaged) / 2);
    vipsruntime::EnsureStarted();
    const vips::VImage lazy =
        vips::VImage::jpegload(damaged.c_str(), vips::VImage::option()
                                                    ->set("access", VIPS_ACCESS_SEQUENTIAL)
                                                    ->set("fail_on", VIPS_FAIL_ON_TRUNCATED));
    const std::string target = dir.File("out.png");
    WriteText(target, "old");
    const SaveResult result = ImageTools::TrySaveImage(
        ImageAccess::Make(lazy, lazy.width(), lazy.height()), target, OutputFormat::Png, 0.8);
    EXPECT_FALSE(result.saved);
    EXPECT_NE(result.reason.find("premature end"), std::string::npos) << result.reason;
    EXPECT_EQ(ReadFile(target), "old");
    EXPECT_EQ(FileNames(dir), (std::vector<std::string>{"damaged.jpg", "out.png"}));
}

}  // namespace
}  // namespace vellumo
