#include "imaging/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "imaging/FileErrors.h"
#include "imaging/FileHandles.h"

namespace vellumo {

std::optional<std::vector<unsigned char>> ReadFileBytes(const std::string& path,
                                                        std::string& reason) {
    const int fd = filehandles::OpenForReading(path);
    if (fd < 0) {
        reason = ReasonFromErrno(errno);
        return std::nullopt;
    }
    std::vector<unsigned char> bytes;
    struct stat info {};
    if (fstat(fd, &info) == 0 && info.st_size > 0) {
        bytes.reserve(static_cast<std::size_t>(info.st_size));
    }
    unsigned char chunk[65536];
    for (;;) {
        const ssize_t got =
            filehandles::ReadAt(fd, chunk, sizeof chunk, static_cast<off_t>(bytes.size()));
        if (got < 0) {
            reason = ReasonFromErrno(errno);
            close(fd);
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        bytes.insert(bytes.end(), chunk, chunk + got);
    }
    close(fd);
    return bytes;
}

namespace {

// Writes all of `bytes` at the start of `fd`, which holds nothing after them.
SaveResult WriteFromStart(int fd, const void* bytes, std::size_t size) {
    const auto* next = static_cast<const unsigned char*>(bytes);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t written = pwrite(fd, next + done, size - done, static_cast<off_t>(done));
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return SaveResult::Failed(ReasonFromErrno(errno));
        }
        done += static_cast<std::size_t>(written);
    }
    return SaveResult::Saved();
}

}  // namespace

SaveResult OverwriteFileBytes(const std::string& path, const void* bytes, std::size_t size) {
    if (const std::optional<int> given = filehandles::NamedDescriptor(path)) {
        if (ftruncate(*given, 0) != 0) {
            return SaveResult::Failed(ReasonFromErrno(errno));
        }
        return WriteFromStart(*given, bytes, size);
    }
    const int fd = open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (fd < 0) {
        return SaveResult::Failed(ReasonFromErrno(errno));
    }
    SaveResult written = WriteFromStart(fd, bytes, size);
    if (close(fd) != 0 && written.saved) {
        return SaveResult::Failed(ReasonFromErrno(errno));
    }
    return written;
}

}  // namespace vellumo
