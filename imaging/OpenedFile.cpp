#include "imaging/OpenedFile.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "imaging/FileBytes.h"
#include "imaging/ImageAccess.h"
#include "imaging/LosslessJpeg.h"
#include "imaging/VipsLoad.h"
#include "imaging/WebpFacts.h"

namespace vellumo {

namespace {

// Page headers read at most when sizing a multi-page TIFF.
constexpr int kMaxPages = 1000;

// The upright size of the file's pictures: the largest of the first
// `pages`, each turned by its own orientation.
Size UprightSize(const OpenedFile& file, const std::string& path, int pages) {
    Size size;
    for (int page = 0; page < pages; ++page) {
        vips::VImage header = file.first;
        if (page > 0) {
            vipsload::OpenOptions options;
            options.page = page;
            header = vipsload::Open(file.kind, path, options);
        }
        const Size upright =
            TurnedBy({static_cast<double>(header.width()), static_cast<double>(header.height())},
                     vipsload::Orientation(header));
        size.width = std::max(size.width, upright.width);
        size.height = std::max(size.height, upright.height);
    }
    return size;
}

// A WebP's header from its container; nothing when the demuxer refuses the
// file (libvips' loader then says why).
std::optional<OpenedFile> OpenWebp(const std::string& path) {
    std::string reason;
    const std::optional<std::vector<unsigned char>> bytes = ReadFileBytes(path, reason);
    const std::optional<WebpFacts> facts = bytes ? ReadWebpFacts(*bytes) : std::nullopt;
    if (!facts) {
        return std::nullopt;
    }
    OpenedFile file;
    file.kind = FileKind::WebP;
    file.stored = facts->stored;
    file.orientation = facts->orientation;
    file.header.pixelSize = TurnedBy(file.stored, file.orientation);
    file.header.pages = std::max(1, facts->frames);
    return file;
}

}  // namespace

std::optional<OpenedFile> OpenFile(const std::string& path, std::string& refused) {
    const SniffedFile sniffed = SniffFile(path);
    if (!sniffed.kind) {
        refused = sniffed.reason;
        return std::nullopt;
    }
    if (*sniffed.kind == FileKind::WebP) {
        if (std::optional<OpenedFile> webp = OpenWebp(path)) {
            return webp;
        }
    }
    OpenedFile file;
    file.kind = *sniffed.kind;
    file.first = vipsload::Open(file.kind, path);
    file.stored = {static_cast<double>(file.first.width()),
                   static_cast<double>(file.first.height())};
    file.orientation = vipsload::Orientation(file.first);
    // Pages of a TIFF and frames of a GIF or an animated WebP are pictures
    // of their own; the "pages" of a JPEG 2000 file are its resolution
    // levels, those of a HEIF file its other top-level images.
    const bool paged =
        file.kind == FileKind::Tiff || file.kind == FileKind::Gif || file.kind == FileKind::WebP;
    const int declared = paged ? vipsload::PageCount(file.first) : 1;
    // GIF and WebP frames share the canvas size; only TIFF pages differ.
    const int pages = file.kind == FileKind::Tiff ? std::min(declared, kMaxPages) : 1;
    file.header = ImageHeader{UprightSize(file, path, pages), declared, std::nullopt};
    if (file.kind == FileKind::Jpeg) {
        file.header.jpegGrid = ReadJpegGrid(path);
        if (file.header.jpegGrid) {
            file.header.jpegGrid->orientation = file.orientation;
        }
    }
    return file;
}

bool SameShape(const vips::VImage& picture, Size size) {
    constexpr double kLargestShapeDifference = 0.02;
    const double shape = static_cast<double>(picture.width()) / picture.height();
    return std::abs(shape / (size.width / size.height) - 1.0) <= kLargestShapeDifference;
}

Preview PreviewOf(const ImageHeader& header, vips::VImage picture) {
    const double width = picture.width();
    const double height = picture.height();
    return Preview{header.pixelSize, ImageAccess::Make(std::move(picture), width, height),
                   header.pages, header.jpegGrid};
}

}  // namespace vellumo
