#pragma once

// The crop job: every listed image, strictly in list order and one at a
// time, cropped and written as the settings say, with the overwrite
// decisions taken beforehand. Memory stays bounded by one image however
// long the list.

#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "batch/CropAdjustments.h"
#include "batch/CropSettings.h"
#include "batch/ImageProcessor.h"
#include "batch/ImageTask.h"
#include "batch/OutputPlan.h"
#include "batch/OverwritePrompts.h"

namespace vellumo {

struct ImageReport {
    long index = 0;
    std::string source;
    std::string output;
    OverwriteDecision decision = OverwriteDecision::NoConflict;
    ImageOutcome outcome;
};

struct JobReport {
    // False once any image failed to load or to save; nothing raises it again.
    bool allSucceeded = true;
    // The images handled, in list order: all of them unless the job was
    // stopped.
    std::vector<ImageReport> images;
    // Stopped before the last image.
    bool stopped = false;
};

struct JobCallbacks {
    // After each image, with the index just handled (0 for the first). Called
    // on the job's thread: marshal to your own.
    std::function<void(long index, const ImageReport& report)> progress;
};

struct JobOptions {
    bool dryRun = false;
    // Asked to stop: no further image is begun (the one under way ends as
    // it would).
    std::stop_token stop;
    // The images whose rectangle was adjusted by hand, by path; every other
    // image is cropped by the rule. Not owned; may be null.
    const CropAdjustments* adjustments = nullptr;
};

// Runs the job on the calling thread and returns when every image is done.
// `plan` and `decisions` have one entry per listed image. For each image: an
// image the plan refuses fails with the plan's reason, untouched; the others
// are written where the plan says, in its format; an existing file that
// could not be removed before an overwrite is a note of the image (the save
// is attempted anyway and only its own result counts); the metadata step
// runs only while every image so far succeeded, and also for a skipped
// image, whose kept file then gets the source's metadata. Nothing is
// printed: what the person is told comes from the report.
JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const OutputPlan& plan, const std::vector<OverwriteDecision>& decisions,
                     ImageProcessor& processor, const JobCallbacks& callbacks = {},
                     const JobOptions& options = {});

// The same with the outputs planned from the settings, clashes refused.
JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const std::vector<OverwriteDecision>& decisions, ImageProcessor& processor,
                     const JobCallbacks& callbacks = {}, const JobOptions& options = {});

}  // namespace vellumo
