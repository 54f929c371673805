#pragma once

// Inside the worker only: one request's files as the worker works on them.
// The source the engine opened, and the output as it was when the engine
// handed it over, are copied into memory files (MemoryFile.h); the output
// is written into a memory file. The task's paths are replaced by those
// files' names, so the decoders, encoders and the metadata step run as they
// do in the engine's own process, yet open no path of the user's files and
// write no file: the engine writes the output's bytes.

#include <optional>
#include <string>

#include "batch/ImageTask.h"
#include "worker/GivenFiles.h"
#include "worker/MemoryFile.h"

namespace vellumo {

class RequestFiles {
  public:
    // Takes over `given` (closes the engine's descriptors once copied).
    explicit RequestFiles(GivenFiles& given);

    // The path the worker reads the source at: the memory copy, or
    // `original` when the engine handed none (it could not open it; the
    // worker's attempt then fails as it did for the engine).
    std::string Source(const std::string& original) const;

    // `task` working on the memory files. What the engine does around the
    // output (clearing a folder in the way for an overwrite, keeping the
    // permissions of a replaced original, the creation date) it does
    // itself, so the task here asks for none of it.
    ImageTask Redirect(const ImageTask& task) const;

    // The output's bytes, when the work wrote or changed them.
    std::optional<std::string> ChangedOutput() const;

  private:
    // Named so that a test can tell a worker writing an output by its
    // descriptors.
    MemoryFile source_{"vellumo-source"};
    MemoryFile output_{"vellumo-output"};
    bool haveSource_ = false;
    std::string outputBefore_;
};

}  // namespace vellumo
