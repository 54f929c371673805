#include "worker/MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>

#include "imaging/FileHandles.h"

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
    char buffer[1 << 16];
    off_t at = 0;
    for (;;) {
        // At offsets where the source has them; a pipe is read in order.
        const ssize_t got = filehandles::ReadAt(source, buffer, sizeof buffer, at);
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
    return filehandles::NameOf(fd_);
}

}  // namespace vellumo
