#pragma once

// Inside the core only: the one way Vellumo replaces a file. The new content
// goes to a temporary file in the target's folder, is flushed to the disk,
// and then takes the target's name in one rename. A reader sees the old file
// or the new one, never a part of either; a failure leaves the target as it
// was and no temporary file behind. The new file gets the permissions of any
// newly created file (0666 less the umask).

#include <cstddef>
#include <functional>
#include <string>

#include "imaging/SaveResult.h"

namespace vellumo::atomicfile {

// Fills the empty temporary file at `tempPath` (by name: an encoder opens it
// itself). Returns SaveResult::Saved() or the reason it failed.
using Filler = std::function<SaveResult(const std::string& tempPath)>;

// A replacement of `target` in two steps, for content written by someone
// who may open no path (the sandboxed worker, through the descriptor): the
// temporary file is made now; Commit puts it in place as Replace does; a
// replacement never committed leaves no temporary file behind.
class Replacement {
  public:
    explicit Replacement(std::string target);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    // The temporary file, open for reading and writing; -1 when it could
    // not be made (Reason() says why).
    int Descriptor() const { return fd_; }
    const std::string& TemporaryPath() const { return tempPath_; }
    const std::string& Reason() const { return reason_; }

    // Flushes the file to the disk and gives it the target's name.
    SaveResult Commit();

  private:
    std::string target_;
    std::string tempPath_;
    std::string reason_;
    int fd_ = -1;
    bool committed_ = false;
};

// Replaces (or creates) `target` with what `fill` writes.
SaveResult Replace(const std::string& target, const Filler& fill);

// Replaces (or creates) `target` with `size` bytes.
SaveResult ReplaceWithBytes(const std::string& target, const void* bytes, std::size_t size);

// Temporary files are named ".vellumo-<process id>-<random>.tmp", so that
// what a process that died mid-write left behind can be told from another
// writer's work in progress.
// Removes from `folder` the temporary files of processes that no longer
// exist (a run killed in the middle of a write); returns how many.
int RemoveLeftoversOfEndedProcesses(const std::string& folder);

// A second name for the file at `path`, in its folder and under this
// process's temporary naming (so that RemoveLeftoversOfEndedProcesses finds it should the
// process die): a hard link where the file system has them, else a copy
// that keeps the modification time. Keeps a file that is about to be
// replaced readable until its caller removes the name. Empty when neither
// could be made.
std::string KeepAside(const std::string& path);

// Removes the temporary files this process is writing right now, from any
// thread; runs by itself when the program exits (exit or quick_exit). A program that ends in the
// middle of a write (the command line's second Ctrl+C, a window closed while
// its job runs) leaves no temporary file behind.
void RemoveTemporariesInProgress();

}  // namespace vellumo::atomicfile
