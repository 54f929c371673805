#include "imaging/ExivRuntime.h"

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

std::unique_ptr<Exiv2::Image> OpenFile(const std::string& path, std::vector<unsigned char>& bytes) {
    if (!filehandles::NamedDescriptor(path)) {
        return Open(Exiv2::ImageFactory::open(path));
    }
    std::string reason;
    std::optional<std::vector<unsigned char>> read = ReadFileBytes(path, reason);
    if (!read) {
        throw Exiv2::Error(Exiv2::kerDataSourceOpenFailed, path, reason);
    }
    bytes = std::move(*read);
    return Open(Exiv2::ImageFactory::open(bytes.data(), static_cast<long>(bytes.size())));
}

}  // namespace vellumo::exivruntime
