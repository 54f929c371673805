#include "worker/MemoryFile.h"

#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vellumo {

MemoryFile::MemoryFile(const char* name) : fd_(memfd_create(name, MFD_CLOEXEC)) {}

MemoryFile::~MemoryFile() {
    if (fd_ >= 0) {
        close(fd_);
    }
}

bool MemoryFile::CopyFrom(int source) {
    if (fd_ < 0) {
        return false;
    }
    // In the kernel, without a copy through this process, when the source
    // is a regular file (from offset 0; its own offset is left alone).
    struct stat status {};
    if (fstat(source, &status) == 0 && S_ISREG(status.st_mode)) {
        off_t from = 0;
        while (from < status.st_size) {
            const ssize_t sent =
                sendfile(fd_, source, &from, static_cast<std::size_t>(status.st_size - from));
            if (sent <= 0 && !(sent < 0 && errno == EINTR)) {
                break;
            }
        }
        if (from == status.st_size) {
            return true;
        }
        if (ftruncate(fd_, 0) != 0 || lseek(fd_, 0, SEEK_SET) != 0) {
            return false;
        }
    }
    // pread: the engine's descriptor may be shared, its offset is not ours;
    // read for what has no offset (a named pipe in the list).
    char buffer[1 << 16];
    off_t at = 0;
    bool sequential = false;
    for (;;) {
        const ssize_t got = sequential ? read(source, buffer, sizeof buffer)
                                       : pread(source, buffer, sizeof buffer, at);
        if (got < 0 && errno == ESPIPE && !sequential) {
            sequential = true;
            continue;
        }
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return false;
        }
        if (got == 0) {
            return true;
        }
        for (ssize_t put = 0; put < got;) {
            const ssize_t wrote =
                pwrite(fd_, buffer + put, static_cast<std::size_t>(got - put), at + put);
            if (wrote < 0 && errno == EINTR) {
                continue;
            }
            if (wrote <= 0) {
                return false;
            }
            put += wrote;
        }
        at += got;
    }
}

std::string MemoryFile::Path() const {
    return "/proc/self/fd/" + std::to_string(fd_);
}

std::optional<std::string> MemoryFile::Bytes() const {
    struct stat status {};
    if (fd_ < 0 || fstat(fd_, &status) != 0) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t have = 0;
    while (have < bytes.size()) {
        const ssize_t got =
            pread(fd_, bytes.data() + have, bytes.size() - have, static_cast<off_t>(have));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            return std::nullopt;
        }
        have += static_cast<std::size_t>(got);
    }
    return bytes;
}

}  // namespace vellumo
