#include "imaging/FileHandles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>

namespace vellumo::filehandles {

namespace {

constexpr std::string_view kPrefix = "/proc/self/fd/";

}  // namespace

std::optional<int> NamedDescriptor(const std::string& path) {
    if (path.size() <= kPrefix.size() || path.compare(0, kPrefix.size(), kPrefix) != 0) {
        return std::nullopt;
    }
    int fd = -1;
    const char* first = path.data() + kPrefix.size();
    const char* last = path.data() + path.size();
    const auto [end, error] = std::from_chars(first, last, fd);
    if (error != std::errc() || end != last || fd < 0) {
        return std::nullopt;
    }
    return fd;
}

std::string NameOf(int fd) {
    return std::string(kPrefix) + std::to_string(fd);
}

int OpenForReading(const std::string& path) {
    if (const std::optional<int> fd = NamedDescriptor(path)) {
        return fcntl(*fd, F_DUPFD_CLOEXEC, 0);
    }
    return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
}

ssize_t ReadAt(int fd, void* buffer, std::size_t size, off_t offset) {
    auto* next = static_cast<unsigned char*>(buffer);
    std::size_t done = 0;
    while (done < size) {
        ssize_t got = pread(fd, next + done, size - done, offset + static_cast<off_t>(done));
        if (got < 0 && errno == ESPIPE) {
            // A pipe has no offsets: it is read in order, from where it is.
            got = read(fd, next + done, size - done);
        }
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return -1;
        }
        if (got == 0) {
            break;
        }
        done += static_cast<std::size_t>(got);
    }
    return static_cast<ssize_t>(done);
}

}  // namespace vellumo::filehandles
