#include "imaging/FileDigest.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <vector>

namespace vellumo {

namespace {

using Checksum = std::unique_ptr<GChecksum, decltype(&g_checksum_free)>;

}  // namespace

std::optional<FileDigest> DigestOfFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return std::nullopt;
    }
    const Checksum checksum(g_checksum_new(G_CHECKSUM_SHA256), &g_checksum_free);
    std::vector<unsigned char> chunk(1 << 20);
    FileDigest digest;
    for (;;) {
        const ssize_t got = ::read(fd, chunk.data(), chunk.size());
        if (got == 0) {
            break;
        }
        if (got < 0) {
            if (errno == EINTR) {
                continue;
            }
            ::close(fd);
            return std::nullopt;
        }
        g_checksum_update(checksum.get(), chunk.data(), got);
        digest.bytes += static_cast<std::uint64_t>(got);
    }
    ::close(fd);
    digest.sha256 = g_checksum_get_string(checksum.get());
    return digest;
}

std::string Sha256OfText(std::string_view text) {
    gchar* hex = g_compute_checksum_for_data(
        G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(text.data()), text.size());
    std::string result(hex);
    g_free(hex);
    return result;
}

}  // namespace vellumo
