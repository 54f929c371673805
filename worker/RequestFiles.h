#pragma once

// Inside the worker only: one request's files as the worker works on them.
// The task's paths are replaced by the names of the descriptors the engine
// handed over ("/proc/self/fd/N", imaging/FileHandles.h), so the decoders,
// encoders and the metadata step run as they do anywhere, yet open no path
// of the user's files: they read the source the engine opened and write
// into the temporary file the engine made for the output, which the engine
// puts in place.

#include <string>

#include "batch/ImageTask.h"
#include "worker/GivenFiles.h"
#include "worker/MemoryFile.h"

namespace vellumo {

class RequestFiles {
  public:
    // Takes over `given`; closes them when the request is done.
    explicit RequestFiles(GivenFiles& given);
    ~RequestFiles();
    RequestFiles(const RequestFiles&) = delete;
    RequestFiles& operator=(const RequestFiles&) = delete;

    // The name the worker reads the source by, or `original` when the
    // engine handed none (it could not open it; the worker's attempt then
    // fails as it did for the engine).
    std::string Source(const std::string& original) const;

    // `task` working on the given files. What the engine does around the
    // output (clearing a folder in the way for an overwrite, keeping the
    // permissions of a replaced original, the creation date) it does
    // itself, so the task here asks for none of it.
    ImageTask Redirect(const ImageTask& task) const;

  private:
    GivenFiles given_;
    // A source that is no regular file (a named pipe in the list) can be
    // read only once, in order; it is copied into memory first, where every
    // decoder can read it at any offset.
    MemoryFile pipeCopy_{"vellumo-source"};
    std::string source_;
};

}  // namespace vellumo
