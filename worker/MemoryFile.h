#pragma once

// Inside the worker only: a file that lives in memory (memfd) and is named by
// this process's descriptor ("/proc/self/fd/N", imaging/FileHandles.h). A
// source the engine hands over that is no regular file (a named pipe) is
// copied into one, so that every decoder can read it at any offset.

#include <string>

namespace vellumo {

class MemoryFile {
  public:
    // Empty. `name` shows in /proc/PID/fd as "/memfd:NAME (deleted)".
    explicit MemoryFile(const char* name);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    // False when no memory file could be made (too many descriptors).
    bool valid() const { return fd_ >= 0; }

    // Copies the whole content of the open file `source` (from its start;
    // its offset is left alone). False when it could not be read.
    bool CopyFrom(int source);

    // The name this process opens the file by.
    std::string Path() const;

  private:
    int fd_ = -1;
};

}  // namespace vellumo
