#include "imaging/ExivRuntime.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <mutex>
#include <optional>

#include "imaging/FileBytes.h"
#include "imaging/FileHandles.h"

namespace vellumo::exivruntime {

void EnsureStarted() {
    static std::once_flag once;
    std::call_once(once, [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::XmpParser::initialize();
    });
}

std::vector<unsigned char> BytesOf(Exiv2::Image& image) {
    Exiv2::BasicIo& io = image.io();
    if (io.open() != 0) {
        throw Exiv2::Error(Exiv2::kerDataSourceOpenFailed, io.path(), "cannot reopen");
    }
    Exiv2::IoCloser closer(io);
    std::vector<unsigned char> bytes(io.size());
    io.seek(0, Exiv2::BasicIo::beg);
    if (!bytes.empty() &&
        io.read(bytes.data(), static_cast<long>(bytes.size())) != static_cast<long>(bytes.size())) {
        throw Exiv2::Error(Exiv2::kerFailedToReadImageData);
    }
    return bytes;
}

SourceBytes::~SourceBytes() {
    if (mapped_ != nullptr) {
        munmap(mapped_, mappedSize_);
    }
}

bool SourceBytes::Take(const std::string& path, std::string& reason) {
    const std::optional<int> fd = filehandles::NamedDescriptor(path);
    struct stat status {};
    if (fd && fstat(*fd, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0) {
        void* mapped =
            mmap(nullptr, static_cast<std::size_t>(status.st_size), PROT_READ, MAP_PRIVATE, *fd, 0);
        if (mapped != MAP_FAILED) {
            mapped_ = mapped;
            mappedSize_ = static_cast<std::size_t>(status.st_size);
            return true;
        }
    }
    std::optional<std::vector<unsigned char>> read = ReadFileBytes(path, reason);
    if (!read) {
        return false;
    }
    read_ = std::move(*read);
    return true;
}

const unsigned char* SourceBytes::Data() const {
    return mapped_ != nullptr ? static_cast<const unsigned char*>(mapped_) : read_.data();
}

std::size_t SourceBytes::Size() const {
    return mapped_ != nullptr ? mappedSize_ : read_.size();
}

std::unique_ptr<Exiv2::Image> OpenFile(const std::string& path, SourceBytes& bytes) {
    if (!filehandles::NamedDescriptor(path)) {
        return Open(Exiv2::ImageFactory::open(path));
    }
    std::string reason;
    if (!bytes.Take(path, reason)) {
        throw Exiv2::Error(Exiv2::kerDataSourceOpenFailed, path, reason);
    }
    // Exiv2's memory source parses these bytes where they are; it copies
    // them only to write, which is never asked of it here.
    return Open(Exiv2::ImageFactory::open(bytes.Data(), static_cast<long>(bytes.Size())));
}

}  // namespace vellumo::exivruntime
