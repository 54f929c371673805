// Worker processes and the threads that use them: a decode that waits does
// not hold up another thread's, and a worker ends with its engine. Each test
// waits for the state it needs (a worker holding a file open), never for a
// while.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <thread>

#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"
#include "worker/WorkerImageProcessor.h"
#include "worker/WorkerProcess.h"
#include "worker/WorkerProtocol.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// True once process `pid` holds `path` open (a worker has begun reading it).
bool HoldsOpen(long pid, const std::string& path) {
    std::error_code error;
    for (const auto& fd : fs::directory_iterator("/proc/" + std::to_string(pid) + "/fd", error)) {
        if (fs::read_symlink(fd.path(), error) == fs::path(path)) {
            return true;
        }
    }
    return false;
}

// Waits until `done()` holds, checking again every few milliseconds; false
// after `limit` (a failure, never the path a passing test takes).
template <class Condition>
bool WaitUntil(Condition done, std::chrono::milliseconds limit = 60s) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

// Threads that decode at once each get a worker of their own: while one
// worker waits for a file that has not come yet (a named pipe nobody writes
// to), other threads' pictures still come, each the one asked for. With one
// worker shared by every thread, the other decodes would wait behind it.
TEST(WorkerPreviews, ThreadsDecodingAtOnceEachGetTheirOwnPicture) {
    test::TempDir dir;
    std::vector<std::string> files;
    for (int i = 0; i < 4; ++i) {
        // Appended piece by piece: GCC 12 at -O3 warns, wrongly, of an
        // overlapping copy in "literal" + std::string (its -Wrestrict).
        std::string name = "p";
        name += std::to_string(i);
        files.push_back(dir.File(name + ".png"));
        test::CoordinateImage(800 + 37 * i, 600 - 23 * i)
            .pngsave(files.back().c_str(), vips::VImage::option()->set("compression", 1));
    }
    const std::string waiting = dir.File("waiting.png");
    ASSERT_EQ(mkfifo(waiting.c_str(), 0600), 0);
    WorkerPreviewDecoder decoder;
    auto stuck = std::async(std::launch::async, [&] { return decoder.Decode(waiting, 256); });
    // Opening the pipe's writing end returns once a worker opened it to read.
    // (Not inherited by the workers started after it, which would hold the
    // pipe open for writing.)
    const int writer = open(waiting.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_GE(writer, 0);

    std::atomic<int> wrong{0};
    auto others = std::async(std::launch::async, [&] {
        std::vector<std::thread> threads;
        for (int t = 0; t < 3; ++t) {
            threads.emplace_back([&, t] {
                for (int k = 0; k < 20; ++k) {
                    const int i = (t + k) % 4;
                    const PreviewResult preview = decoder.Decode(files[i], 256);
                    if (!preview || preview->fullSize != Size{800.0 + 37 * i, 600.0 - 23 * i}) {
                        ++wrong;
                    }
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    });
    const bool othersDone = others.wait_for(60s) == std::future_status::ready;
    // The waiting worker gets an empty file, however often it opens it.
    close(writer);
    ASSERT_TRUE(WaitUntil([&] {
        const int fd = open(waiting.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd >= 0) {
            close(fd);
        }
        return stuck.wait_for(0s) == std::future_status::ready;
    }));
    ASSERT_TRUE(othersDone) << "the other threads waited behind the worker reading the pipe";
    EXPECT_EQ(wrong.load(), 0);
    EXPECT_FALSE(stuck.get());
    EXPECT_LE(decoder.WorkerCount(), 4u);
    EXPECT_GE(decoder.WorkerCount(), 2u);
}

// A worker ends when its engine ends, however it ends, also in the middle of
// a file: here the engine is a process that asks for a file whose bytes
// never come (a named pipe held open by this test, which writes nothing)
// and dies without a word once its worker is reading it.
TEST(WorkerPreviews, AWorkerEndsWhenItsEngineDiesWhileItWorks) {
    test::TempDir dir;
    const std::string neverComes = dir.File("never.png");
    ASSERT_EQ(mkfifo(neverComes.c_str(), 0600), 0);
    // Reading and writing end at once: never blocks, and the worker's reads
    // see no end of file while this test lives.
    const int holder = open(neverComes.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(holder, 0);
    int pipeFds[2];
    ASSERT_EQ(pipe(pipeFds), 0);
    const pid_t engine = fork();
    ASSERT_GE(engine, 0);
    if (engine == 0) {
        close(pipeFds[0]);
        auto* worker = new WorkerProcess();  // never destroyed: the engine dies
        std::thread([worker, neverComes] {
            worker->Exchange(workerprotocol::PreviewRequest{neverComes, 16, 1'000'000});
        }).detach();
        const bool reading =
            WaitUntil([&] { return worker->Pid() != 0 && HoldsOpen(worker->Pid(), neverComes); });
        const long pid = reading ? worker->Pid() : 0;
        (void)!write(pipeFds[1], &pid, sizeof pid);
        _exit(0);
    }
    close(pipeFds[1]);
    long worker = 0;
    ASSERT_EQ(read(pipeFds[0], &worker, sizeof worker), static_cast<ssize_t>(sizeof worker));
    close(pipeFds[0]);
    int status = 0;
    ASSERT_EQ(waitpid(engine, &status, 0), engine);
    ASSERT_GT(worker, 0) << "the worker never opened the file";
    // Its parent gone, the worker ends (and is left for the system to reap:
    // an ended process still listed is a zombie, "Z").
    const auto ended = [worker] {
        std::ifstream stat("/proc/" + std::to_string(worker) + "/stat");
        std::string pid, name, state;
        return !(stat >> pid >> name >> state) || state == "Z";
    };
    EXPECT_TRUE(WaitUntil(ended)) << "worker " << worker << " outlived its engine";
    close(holder);
}

}  // namespace
}  // namespace vellumo
