// The worker's memory files (MemoryFile.h) are named "/proc/self/fd/N".
// ImageMagick resolves every name it is given with realpath() before its
// path policy lets it read the file, and a memory file resolves to no path
// ("/memfd:vellumo (deleted)"): ImageMagick would refuse every file of the
// worker ("not allowed by the security policy"). Its other ways in need a
// file of its own (a descriptor, "fd:N", or bytes of a format it cannot
// read from memory, such as JPEG 2000, go to a temporary file first, which
// the sandbox forbids). So in the worker, and only for those names,
// realpath() answers with the name itself; every other name is resolved by
// the C library as always. The worker's executable exports this realpath
// (see CMakeLists.txt) so that it comes before the C library's for the
// libraries libvips loads.

#include <dlfcn.h>

#include <cstdlib>
#include <cstring>

extern "C" char* realpath(const char* path, char* resolved) noexcept {
    using RealPath = char* (*)(const char*, char*);
    static const RealPath next = reinterpret_cast<RealPath>(dlsym(RTLD_NEXT, "realpath"));
    static constexpr char kMemoryFile[] = "/proc/self/fd/";
    if (path != nullptr && std::strncmp(path, kMemoryFile, sizeof kMemoryFile - 1) == 0 &&
        std::strlen(path) < 4096) {
        if (resolved != nullptr) {
            return std::strcpy(resolved, path);
        }
        return strdup(path);
    }
    return next(path, resolved);
}
