#pragma once

// Inside the core only: the engine's half of an image worked on in a worker.
// The engine opens the files the worker may read (the source; the output as
// it is, when the metadata goes onto a file written before) and hands them
// over as descriptors; the worker opens no path. The output's bytes come
// back and the engine writes them, atomically (AtomicFile.h), and does
// around them what touches the file system: clearing a folder in the way of
// an overwrite, giving a replaced original's permissions to its crop, and
// the creation date carried from the source.

#include <sys/types.h>

#include <optional>
#include <string>

#include "batch/ImageTask.h"
#include "imaging/FileDates.h"
#include "worker/GivenFiles.h"

namespace vellumo {

class EngineFiles {
  public:
    // Opens what `task` needs read; what cannot be opened is not handed
    // over (the worker then fails on it as the engine would have).
    explicit EngineFiles(const ImageTask& task);
    // Only the source, for a preview of the file at `path`.
    explicit EngineFiles(const std::string& path);
    ~EngineFiles();
    EngineFiles(const EngineFiles&) = delete;
    EngineFiles& operator=(const EngineFiles&) = delete;

    const GivenFiles& Given() const { return given_; }

    // Writes the output the worker sent back (`bytes`, empty when it wrote
    // or changed nothing) and finishes the image's outcome as the engine's
    // own process would have: a failed write fails the image.
    void Finish(const ImageTask& task, const std::string& bytes, ImageOutcome& outcome) const;

  private:
    GivenFiles given_;
    std::optional<mode_t> sourceMode_;                // when the crop replaces its source
    std::optional<filedates::TimePoint> sourceDate_;  // when the date is carried
};

}  // namespace vellumo
