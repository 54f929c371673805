#include "imaging/VipsFileSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "imaging/FileHandles.h"

namespace vellumo::vipsfilesource {

namespace {

// One source's own view of the descriptor (a duplicate, closed with it).
struct Reader {
    int fd = -1;
    gint64 position = 0;
    gint64 size = 0;
};

gint64 Read(VipsSourceCustom* /*source*/, void* buffer, gint64 length, Reader* reader) {
    const ssize_t got = filehandles::ReadAt(reader->fd, buffer, static_cast<std::size_t>(length),
                                            static_cast<off_t>(reader->position));
    if (got > 0) {
        reader->position += got;
    }
    return got;
}

gint64 Seek(VipsSourceCustom* /*source*/, gint64 offset, int whence, Reader* reader) {
    gint64 base = 0;
    if (whence == SEEK_CUR) {
        base = reader->position;
    } else if (whence == SEEK_END) {
        base = reader->size;
    } else if (whence != SEEK_SET) {
        return -1;
    }
    if (base + offset < 0) {
        return -1;
    }
    reader->position = base + offset;
    return reader->position;
}

void Release(gpointer data, GClosure* /*closure*/) {
    auto* reader = static_cast<Reader*>(data);
    close(reader->fd);
    delete reader;
}

vips::VSource OfDescriptor(int given) {
    auto* reader = new Reader;
    reader->fd = fcntl(given, F_DUPFD_CLOEXEC, 0);
    struct stat status {};
    if (reader->fd < 0 || fstat(reader->fd, &status) != 0) {
        const int error = errno;
        if (reader->fd >= 0) {
            close(reader->fd);
        }
        delete reader;
        throw vips::VError(std::string("cannot read the file: ") +
                           std::generic_category().message(error));
    }
    reader->size = status.st_size;
    VipsSourceCustom* custom = vips_source_custom_new();
    g_signal_connect(custom, "read", G_CALLBACK(&Read), reader);
    // The last handler frees the reader when the source goes.
    g_signal_connect_data(custom, "seek", G_CALLBACK(&Seek), reader, &Release,
                          static_cast<GConnectFlags>(0));
    return vips::VSource(VIPS_SOURCE(custom), vips::STEAL);
}

}  // namespace

vips::VSource Of(const std::string& path) {
    if (const std::optional<int> fd = filehandles::NamedDescriptor(path)) {
        return OfDescriptor(*fd);
    }
    return vips::VSource::new_from_file(path.c_str());
}

}  // namespace vellumo::vipsfilesource
