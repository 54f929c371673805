#pragma once

// Inside the core only: reaching the files the decoders read and the
// encoders write. A process that holds a file open can name it by its
// descriptor, "/proc/self/fd/N". The sandboxed worker is handed its files
// that way (worker/RequestFiles.h) and may open no path: opening such a
// name would open the file anew, which its sandbox refuses. So wherever the
// core opens a file, a descriptor's name means that descriptor itself:
// read at offsets (pread), never through its shared position, and written
// from its start. Every other path is opened as usual.

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>

namespace vellumo::filehandles {

// The descriptor `path` names in this process, or nothing.
std::optional<int> NamedDescriptor(const std::string& path);

// The name of descriptor `fd` in this process.
std::string NameOf(int fd);

// A new descriptor of the file at `path`, for reading, close-on-exec; -1
// with errno set when it cannot be had. For a descriptor's name it is a
// duplicate that shares the descriptor's position: read it with ReadAt.
int OpenForReading(const std::string& path);

// Reads up to `size` bytes at `offset`, retrying short reads until the file
// ends; the number read, or -1 with errno set. A pipe, which has no
// offsets, is read from where it stands.
ssize_t ReadAt(int fd, void* buffer, std::size_t size, off_t offset);

}  // namespace vellumo::filehandles
