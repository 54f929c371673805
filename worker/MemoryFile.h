#pragma once

// Inside the worker only: a file that lives in memory (memfd) and is named by
// this process's descriptor ("/proc/self/fd/N"). The worker decodes its
// inputs and encodes its outputs through such files: every decoder and
// encoder that wants a file name gets one, yet no name of the user's file
// system is ever opened (the sandbox forbids it), and the output's bytes go
// back to the engine, which writes them.

#include <optional>
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

    // The whole content, as it is now; nothing when it cannot be read.
    std::optional<std::string> Bytes() const;

  private:
    int fd_ = -1;
};

}  // namespace vellumo
