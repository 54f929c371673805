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
#include "imaging/FileHandles.h"

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

Replacement::Replacement(std::string target) : target_(std::move(target)) {
    int error = 0;
    fd_ = CreateTemporary(FolderOf(target_), tempPath_, error);
    if (fd_ < 0) {
        reason_ = ReasonFromErrno(error);
        return;
    }
    Track(tempPath_, true);
}

Replacement::~Replacement() {
    if (fd_ >= 0) {
        close(fd_);
    }
    if (!tempPath_.empty() && !committed_) {
        unlink(tempPath_.c_str());
        Track(tempPath_, false);
    }
}

SaveResult Replacement::Commit() {
    if (fd_ < 0) {
        return SaveResult::Failed(reason_);
    }
    // Whoever filled the file wrote through a descriptor of its own;
    // flushing this one flushes the same file.
    if (fsync(fd_) != 0) {
        return SaveResult::Failed(ReasonFromErrno(errno));
    }
    const int closed = close(fd_);
    fd_ = -1;
    if (closed != 0) {
        return SaveResult::Failed(ReasonFromErrno(errno));
    }
    if (rename(tempPath_.c_str(), target_.c_str()) != 0) {
        return SaveResult::Failed(ReasonFromErrno(errno));
    }
    committed_ = true;
    Track(tempPath_, false);
    FlushFolder(FolderOf(target_));
    return SaveResult::Saved();
}

SaveResult Replace(const std::string& target, const Filler& fill) {
    // A file named by its descriptor is the sandboxed worker's output, made
    // by the engine, which puts it in place (worker/EngineFiles.h): it has
    // no folder the worker may write in, and is filled where it is.
    if (filehandles::NamedDescriptor(target)) {
        return fill(target);
    }
    Replacement replacement(target);
    if (replacement.Descriptor() < 0) {
        return SaveResult::Failed(replacement.Reason());
    }
    SaveResult filled = fill(replacement.TemporaryPath());
    if (!filled.saved) {
        return filled;
    }
    return replacement.Commit();
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

void RemoveTemporariesInProgress() {
    const std::lock_guard<std::mutex> lock(inProgressMutex);
    for (const std::string& path : InProgress()) {
        unlink(path.c_str());
    }
}

}  // namespace vellumo::atomicfile
