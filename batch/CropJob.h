#pragma once

// The crop job: every listed image, strictly in list order and one at a
// time, cropped and written as the settings say, with the overwrite
// decisions taken beforehand. Memory stays bounded by one image however
// long the list.

#include <functional>
#include <string>
#include <vector>

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
    std::vector<ImageReport> images;
};

struct JobCallbacks {
    // After each image, with the index just handled (0 for the first). Called
    // on the job's thread: marshal to your own.
    std::function<void(long index, const ImageReport& report)> progress;
};

struct JobOptions {
    bool dryRun = false;
    // "Remove failed: ..." lines, and what a worker process wrote, on
    // standard output. Off when standard output carries something else (the
    // command line's JSON); both are in the image's outcome either way.
    bool printRemoveFailures = true;
};

// Runs the job on the calling thread and returns when every image is done.
// `plan` and `decisions` have one entry per listed image. For each image: an
// image the plan refuses fails with the plan's reason, untouched; the others
// are written where the plan says, in its format; "Remove failed: " and the
// error's description go to standard output when an existing file could not
// be removed before an overwrite (the save is attempted anyway and only its
// own result counts); the metadata step runs only while every image so far
// succeeded, and also for a skipped image, whose kept file then gets the
// source's metadata.
JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const OutputPlan& plan, const std::vector<OverwriteDecision>& decisions,
                     ImageProcessor& processor, const JobCallbacks& callbacks = {},
                     const JobOptions& options = {});

// The same with the outputs planned from the settings, clashes refused.
JobReport RunCropJob(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                     const std::vector<OverwriteDecision>& decisions, ImageProcessor& processor,
                     const JobCallbacks& callbacks = {}, const JobOptions& options = {});

}  // namespace vellumo
