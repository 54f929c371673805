#pragma once

#include <optional>

#include "batch/ImageTask.h"

namespace vellumo {

// Does one image's work: load, bring to actual size, resolve the rectangle,
// crop, act on the overwrite decision, save, carry metadata. Never throws;
// every failure is an outcome with a reason.
class ImageProcessor {
  public:
    virtual ~ImageProcessor() = default;
    virtual ImageOutcome Process(const ImageTask& task) = 0;
    // Ends the work under way in every thread at once, its images failing
    // and leaving no partial file (a job is stopped). Work that cannot be
    // ended early runs to its end.
    virtual void CancelAll() {}
    // How many images it works on at once when several threads call it.
    virtual int ImagesAtOnce() const { return 1; }
};

// The work done right here, in the calling thread.
class InProcessImageProcessor final : public ImageProcessor {
  public:
    ImageOutcome Process(const ImageTask& task) override;
    // The same, with the source's header already read (the worker reads it
    // to check the image's size first): each header is read once per job.
    ImageOutcome Process(const ImageTask& task, const std::optional<ImageHeader>& header);
};

}  // namespace vellumo
