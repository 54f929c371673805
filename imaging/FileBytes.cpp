#include "imaging/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "imaging/FileErrors.h"

namespace vellumo {

std::optional<std::vector<unsigned char>> ReadFileBytes(const std::string& path,
                                                        std::string& reason) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
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
        const ssize_t got = read(fd, chunk, sizeof chunk);
        if (got == 0) {
            break;
        }
        if (got < 0) {
            if (errno == EINTR) {
                continue;
            }
            reason = ReasonFromErrno(errno);
            close(fd);
            return std::nullopt;
        }
        bytes.insert(bytes.end(), chunk, chunk + got);
    }
    close(fd);
    return bytes;
}

SaveResult OverwriteFileBytes(const std::string& path, const void* bytes, std::size_t size) {
    const int fd = open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (fd < 0) {
        return SaveResult::Failed(ReasonFromErrno(errno));
    }
    const auto* next = static_cast<const unsigned char*>(bytes);
    std::size_t left = size;
    while (left > 0) {
        const ssize_t written = write(fd, next, left);
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            const int error = errno;
            close(fd);
            return SaveResult::Failed(ReasonFromErrno(error));
        }
        next += written;
        left -= static_cast<std::size_t>(written);
    }
    if (close(fd) != 0) {
        return SaveResult::Failed(ReasonFromErrno(errno));
    }
    return SaveResult::Saved();
}

}  // namespace vellumo
