#include "imaging/TiffHandle.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <optional>

#include "imaging/FileHandles.h"

namespace vellumo::tiffhandle {

namespace {

using Options = std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)>;

int KeepError(TIFF* /*tiff*/, void* first, const char* /*module*/, const char* format,
              va_list arguments) {
    auto* reason = static_cast<std::string*>(first);
    if (reason->empty()) {
        char text[512];
        std::vsnprintf(text, sizeof text, format, arguments);
        *reason = text;
    }
    return 1;
}

int IgnoreWarning(TIFF* /*tiff*/, void* /*data*/, const char* /*module*/, const char* /*format*/,
                  va_list /*arguments*/) {
    return 1;
}

// A descriptor's file (FileHandles.h), read at this handle's own offsets.
struct Reader {
    int fd = -1;
    toff_t position = 0;
};

Reader* ReaderOf(thandle_t handle) {
    return static_cast<Reader*>(handle);
}

tmsize_t ReadProc(thandle_t handle, void* buffer, tmsize_t size) {
    Reader* reader = ReaderOf(handle);
    const ssize_t got = filehandles::ReadAt(reader->fd, buffer, static_cast<std::size_t>(size),
                                            static_cast<off_t>(reader->position));
    if (got > 0) {
        reader->position += static_cast<toff_t>(got);
    }
    return got;
}

tmsize_t WriteProc(thandle_t /*handle*/, void* /*buffer*/, tmsize_t /*size*/) {
    return -1;  // opened for reading only
}

toff_t SizeProc(thandle_t handle) {
    struct stat status {};
    return fstat(ReaderOf(handle)->fd, &status) == 0 ? static_cast<toff_t>(status.st_size) : 0;
}

toff_t SeekProc(thandle_t handle, toff_t offset, int whence) {
    Reader* reader = ReaderOf(handle);
    if (whence == SEEK_CUR) {
        offset += reader->position;
    } else if (whence == SEEK_END) {
        offset += SizeProc(handle);
    }
    reader->position = offset;
    return offset;
}

int CloseProc(thandle_t handle) {
    Reader* reader = ReaderOf(handle);
    close(reader->fd);
    delete reader;
    return 0;
}

int MapProc(thandle_t /*handle*/, void** /*base*/, toff_t* /*size*/) {
    return 0;  // never mapped, as "m" says for files
}

void UnmapProc(thandle_t /*handle*/, void* /*base*/, toff_t /*size*/) {}

Tiff OpenDescriptor(int given, const std::string& name, TIFFOpenOptions* options) {
    auto* reader = new Reader{fcntl(given, F_DUPFD_CLOEXEC, 0), 0};
    if (reader->fd < 0) {
        delete reader;
        return {nullptr, &TIFFClose};
    }
    TIFF* tiff = TIFFClientOpenExt(name.c_str(), "rm", reader, &ReadProc, &WriteProc, &SeekProc,
                                   &CloseProc, &SizeProc, &MapProc, &UnmapProc, options);
    if (tiff == nullptr) {
        CloseProc(reader);  // a handle that failed to open is not closed by libtiff
    }
    return {tiff, &TIFFClose};
}

}  // namespace

Tiff Open(const std::string& path, std::string* error) {
    const Options options(TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), &KeepError, error);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), &IgnoreWarning, nullptr);
    if (const std::optional<int> fd = filehandles::NamedDescriptor(path)) {
        return OpenDescriptor(*fd, path, options.get());
    }
    // "m": read, not mapped; a mapped file's pages read so far count as
    // the process's memory, the whole page's worth by the end.
    return {TIFFOpenExt(path.c_str(), "rm", options.get()), &TIFFClose};
}

}  // namespace vellumo::tiffhandle
