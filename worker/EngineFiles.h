#pragma once

// Inside the core only: the engine's half of an image worked on in a worker.
// The engine opens the files the worker reads and writes and hands them
// over as descriptors; the worker opens no path. It reads the source it was
// given and writes its output into a temporary file the engine made beside
// the output (AtomicFile.h), which the engine then puts in place, doing
// around it what touches the file system: clearing a folder in the way of
// an overwrite, giving a replaced original's permissions to its crop, and
// the creation date carried from the source.

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>

#include "batch/ImageTask.h"
#include "imaging/AtomicFile.h"
#include "imaging/FileDates.h"
#include "worker/GivenFiles.h"

namespace vellumo {

class EngineFiles {
  public:
    // Opens what `task` needs; what cannot be opened is not handed over (the
    // worker then fails on it as the engine would have).
    explicit EngineFiles(const ImageTask& task);
    // Only the source, for a preview of the file at `path`.
    explicit EngineFiles(const std::string& path);
    ~EngineFiles();
    EngineFiles(const EngineFiles&) = delete;
    EngineFiles& operator=(const EngineFiles&) = delete;

    const GivenFiles& Given() const { return given_; }

    // Makes the output's temporary file as it was before the worker wrote
    // into it: for a second try after a worker crashed on the first.
    void Reset() const;

    // Puts the output the worker wrote in place, when it wrote one, and
    // finishes the image's outcome as the engine's own process would have:
    // a failed rename fails the image.
    void Finish(const ImageTask& task, ImageOutcome& outcome) const;

  private:
    bool Changed() const;

    GivenFiles given_;
    std::unique_ptr<atomicfile::Replacement> output_;
    int earlierOutput_ = -1;                          // the file the metadata goes onto, as it was
    std::optional<mode_t> sourceMode_;                // when the crop replaces its source
    std::optional<filedates::TimePoint> sourceDate_;  // when the date is carried
};

}  // namespace vellumo
