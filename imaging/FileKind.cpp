#include "imaging/FileKind.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <system_error>

#include "imaging/FileHandles.h"

namespace vellumo {

namespace {

bool StartsWith(const unsigned char* bytes, std::size_t size, std::string_view prefix) {
    return size >= prefix.size() && std::memcmp(bytes, prefix.data(), prefix.size()) == 0;
}

// A short description of content Vellumo refuses, for the reason text.
std::string DescribeOther(const unsigned char* bytes, std::size_t size) {
    if (size == 0) {
        return "the file is empty";
    }
    std::string_view head(reinterpret_cast<const char*>(bytes), size);
    const auto has = [&](std::string_view needle) { return head.find(needle) != head.npos; };
    if (StartsWith(bytes, size, "%PDF"))
        return "not an image Vellumo reads (a PDF document)";
    if (StartsWith(bytes, size, "%!"))
        return "not an image Vellumo reads (a PostScript file)";
    if (has("<svg") || has("<?xml"))
        return "not an image Vellumo reads (an SVG or XML file)";
    if (StartsWith(bytes, size, "RIFF"))
        return "not an image Vellumo reads (a RIFF file that is not WebP)";
    if (size >= 12 && std::memcmp(bytes + 4, "ftyp", 4) == 0) {
        return "not an image Vellumo reads (an MP4 or QuickTime file)";
    }
    const bool text = std::all_of(bytes, bytes + size, [](unsigned char c) {
        return c == '\n' || c == '\r' || c == '\t' || (c >= 0x20 && c != 0x7f);
    });
    if (text)
        return "not an image Vellumo reads (a text file)";
    return "not a JPEG, JPEG 2000, PNG, GIF, TIFF, BMP, HEIC, AVIF, WebP or JPEG XL file";
}

// An ISO base media file ("ftyp" box first) whose major or compatible brands
// name a HEIF image (HEIC, AVIF, or the general image brands). A video (an
// MP4) carries other brands.
bool IsHeifImage(const unsigned char* bytes, std::size_t size) {
    if (size < 16 || std::memcmp(bytes + 4, "ftyp", 4) != 0) {
        return false;
    }
    const std::size_t box = (std::size_t{bytes[0]} << 24) | (std::size_t{bytes[1]} << 16) |
                            (std::size_t{bytes[2]} << 8) | std::size_t{bytes[3]};
    const std::size_t end = std::min(box, size);
    static constexpr std::string_view kBrands[] = {"heic", "heix", "hevc", "hevx", "heim",
                                                   "heis", "mif1", "msf1", "avif", "avis"};
    // The major brand at 8, the minor version at 12, compatible brands from 16.
    for (std::size_t at = 8; at + 4 <= end; at += at == 8 ? 8 : 4) {
        const std::string_view brand(reinterpret_cast<const char*>(bytes + at), 4);
        if (std::find(std::begin(kBrands), std::end(kBrands), brand) != std::end(kBrands)) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::optional<FileKind> SniffBytes(const unsigned char* bytes, std::size_t size) {
    if (StartsWith(bytes, size, "\xFF\xD8\xFF"))
        return FileKind::Jpeg;
    if (StartsWith(bytes, size, "\x89PNG\r\n\x1A\n"))
        return FileKind::Png;
    if (StartsWith(bytes, size, "GIF87a") || StartsWith(bytes, size, "GIF89a")) {
        return FileKind::Gif;
    }
    if (StartsWith(bytes, size, std::string_view("II*\0", 4)) ||
        StartsWith(bytes, size, std::string_view("MM\0*", 4)) ||
        StartsWith(bytes, size, std::string_view("II+\0", 4)) ||
        StartsWith(bytes, size, std::string_view("MM\0+", 4))) {
        return FileKind::Tiff;
    }
    // JP2 signature box, or a bare JPEG 2000 codestream (SOC then SIZ).
    if (StartsWith(bytes, size, std::string_view("\0\0\0\x0CjP  \r\n\x87\n", 12)) ||
        StartsWith(bytes, size, "\xFF\x4F\xFF\x51")) {
        return FileKind::Jpeg2000;
    }
    // "BA" is an OS/2 bitmap array, which holds BMP images.
    if (StartsWith(bytes, size, "BM") || StartsWith(bytes, size, "BA"))
        return FileKind::Bmp;
    if (IsHeifImage(bytes, size))
        return FileKind::Heif;
    if (size >= 12 && StartsWith(bytes, size, "RIFF") && std::memcmp(bytes + 8, "WEBP", 4) == 0) {
        return FileKind::WebP;
    }
    // A bare JPEG XL codestream, or the JPEG XL container's signature box.
    if (StartsWith(bytes, size, "\xFF\x0A") ||
        StartsWith(bytes, size, std::string_view("\0\0\0\x0CJXL \r\n\x87\n", 12))) {
        return FileKind::JpegXl;
    }
    return std::nullopt;
}

SniffedFile SniffFile(const std::string& path) {
    const int fd = filehandles::OpenForReading(path);
    if (fd < 0) {
        const int error = errno;
        if (error == EISDIR) {
            return {std::nullopt, "a folder, not an image file"};
        }
        return {std::nullopt, "cannot open: " + std::generic_category().message(error),
                FailureStage::Read};
    }
    struct stat status {};
    if (fstat(fd, &status) == 0 && S_ISDIR(status.st_mode)) {
        close(fd);
        return {std::nullopt, "a folder, not an image file"};
    }
    unsigned char head[64] = {};
    const ssize_t got = filehandles::ReadAt(fd, head, sizeof head, 0);
    close(fd);
    if (got < 0) {
        return {std::nullopt, "cannot read the file", FailureStage::Read};
    }
    const auto size = static_cast<std::size_t>(got);
    if (auto kind = SniffBytes(head, size)) {
        return {kind, {}};
    }
    return {std::nullopt, DescribeOther(head, size)};
}

}  // namespace vellumo
