#include "imaging/AtomicFile.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <random>
#include <set>

#include "imaging/FileBytes.h"
#include "imaging/FileErrors.h"

namespace vellumo::atomicfile {

namespace {

// Enough tries to get past names left by a crashed run or taken by another
// writer in the same folder at the same moment.
constexpr int kNameAttempts = 100;

std::string RandomSuffix() {
    static std::atomic<unsigned> counter{0};
    thread_local std::mt19937_64 random{std::random_device{}() ^
                                        (static_cast<std::uint64_t>(getpid()) << 32)};
    static const char kDigits[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::uint64_t bits = random() ^ counter.fetch_add(1);
    std::string suffix;
    for (int i = 0; i < 12; ++i) {
        suffix += kDigits[bits % 36];
        bits /= 36;
    }
    return suffix;
}

std::string TemporaryPrefix(long pid) {
    return "/.vellumo-" + std::to_string(pid) + "-";
}

// The temporary file being written, for a signal handler to remove: a fixed
// buffer, since a handler may not allocate. One write at a time per process
// is what the worker does; other callers never use the handler.
char currentTemporary[4096];
std::atomic<bool> haveCurrentTemporary{false};

void SetCurrentTemporary(const std::string& path) {
    if (path.size() < sizeof currentTemporary) {
        haveCurrentTemporary = false;
        std::memcpy(currentTemporary, path.c_str(), path.size() + 1);
        haveCurrentTemporary = true;
    }
}

// Every temporary file being written in this process (the engine writes
// several at once, one per image in flight), for a program that ends in the
// middle of one to remove them on its way out.
std::mutex inProgressMutex;
std::set<std::string>& InProgress() {
    static auto* paths = new std::set<std::string>;  // outlives static destructors
    return *paths;
}

void Track(const std::string& tempPath, bool writing) {
    static std::once_flag registered;
    // The window ends with quick_exit, the rest with exit.
    std::call_once(registered, [] {
        std::atexit(&RemoveTemporariesInProgress);
        std::at_quick_exit(&RemoveTemporariesInProgress);
    });
    const std::lock_guard<std::mutex> lock(inProgressMutex);
    if (writing) {
        InProgress().insert(tempPath);
    } else {
        InProgress().erase(tempPath);
    }
}

std::string FolderOf(const std::string& target) {
    const std::filesystem::path folder = std::filesystem::path(target).parent_path();
    return folder.empty() ? std::string(".") : folder.string();
}

// Creates an empty, hidden file in `folder` that no one else has, with the
// permissions of any new file (the kernel applies the umask to 0666).
int CreateTemporary(const std::string& folder, std::string& tempPath, int& error) {
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        tempPath = folder + TemporaryPrefix(getpid()) + RandomSuffix() + ".tmp";
        const int fd = open(tempPath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0) {
            return fd;
        }
        if (errno != EEXIST) {
            error = errno;
            return -1;
        }
    }
    error = EEXIST;
    return -1;
}

// The rename itself is made durable by flushing the folder; a folder that
// cannot be flushed still holds the new name, so that is not a failure.
void FlushFolder(const std::string& folder) {
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        (void)fsync(fd);
        close(fd);
    }
}

}  // namespace

SaveResult Replace(const std::string& target, const Filler& fill) {
    // A memory file the worker names by its descriptor (worker/MemoryFile.h)
    // is nobody else's and has no folder to make a second name in: it is
    // filled in place, and the engine writes its bytes atomically.
    if (target.rfind("/proc/self/fd/", 0) == 0) {
        return fill(target);
    }
    const std::string folder = FolderOf(target);
    std::string tempPath;
    int error = 0;
    int fd = CreateTemporary(folder, tempPath, error);
    if (fd < 0) {
        return SaveResult::Failed(ReasonFromErrno(error));
    }
    SetCurrentTemporary(tempPath);
    Track(tempPath, true);
    const auto fail = [&](SaveResult result) {
        if (fd >= 0) {
            close(fd);
        }
        unlink(tempPath.c_str());
        haveCurrentTemporary = false;
        Track(tempPath, false);
        return result;
    };

    SaveResult filled = fill(tempPath);
    if (!filled.saved) {
        return fail(std::move(filled));
    }
    // The filler wrote through its own descriptor; flushing ours flushes the
    // same file.
    if (fsync(fd) != 0) {
        return fail(SaveResult::Failed(ReasonFromErrno(errno)));
    }
    const int closed = close(fd);
    fd = -1;
    if (closed != 0) {
        return fail(SaveResult::Failed(ReasonFromErrno(errno)));
    }
    if (rename(tempPath.c_str(), target.c_str()) != 0) {
        return fail(SaveResult::Failed(ReasonFromErrno(errno)));
    }
    haveCurrentTemporary = false;
    Track(tempPath, false);
    FlushFolder(folder);
    return SaveResult::Saved();
}

SaveResult ReplaceWithBytes(const std::string& target, const void* bytes, std::size_t size) {
    return Replace(target, [&](const std::string& tempPath) {
        return OverwriteFileBytes(tempPath, bytes, size);
    });
}

int RemoveLeftoversOfEndedProcesses(const std::string& folder) {
    static const std::string prefix = TemporaryPrefix(0).substr(1, 9);  // ".vellumo-"
    std::error_code error;
    int removed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name.rfind(prefix, 0) != 0 || name.size() < 4 ||
            name.compare(name.size() - 4, 4, ".tmp") != 0) {
            continue;
        }
        const long pid = std::strtol(name.c_str() + prefix.size(), nullptr, 10);
        // Only a process that no longer exists: another's work in progress
        // stays.
        if (pid > 0 && kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH &&
            std::filesystem::remove(entry.path(), error)) {
            ++removed;
        }
    }
    return removed;
}

std::string KeepAside(const std::string& path) {
    const std::string folder = FolderOf(path);
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        std::string aside = folder + TemporaryPrefix(getpid()) + RandomSuffix() + ".tmp";
        if (link(path.c_str(), aside.c_str()) == 0) {
            return aside;
        }
        if (errno == EEXIST) {
            continue;
        }
        std::error_code error;
        namespace fs = std::filesystem;
        if (!fs::copy_file(path, aside, fs::copy_options::none, error)) {
            return {};
        }
        fs::last_write_time(aside, fs::last_write_time(path, error), error);
        return aside;
    }
    return {};
}

int RemoveLeftovers(const std::string& folder, long pid) {
    const std::string prefix = TemporaryPrefix(pid).substr(1);
    std::error_code error;
    int removed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name.rfind(prefix, 0) == 0 && name.size() > 4 &&
            name.compare(name.size() - 4, 4, ".tmp") == 0) {
            if (std::filesystem::remove(entry.path(), error)) {
                ++removed;
            }
        }
    }
    return removed;
}

void RemoveTemporariesInProgress() {
    const std::lock_guard<std::mutex> lock(inProgressMutex);
    for (const std::string& path : InProgress()) {
        unlink(path.c_str());
    }
}

void RemoveCurrentTemporaryFromSignalHandler() {
    if (haveCurrentTemporary) {
        unlink(currentTemporary);
    }
}

}  // namespace vellumo::atomicfile
