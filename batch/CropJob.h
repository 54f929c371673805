#pragma once

// The crop job: every listed image cropped and written as the settings say,
// with the overwrite decisions taken beforehand. Images are worked on one at
// a time, or several in flight (JobOptions::jobs); either way everything
// that can be observed comes in list order and is the same: the report, the
// progress calls, which images get their metadata, the bytes written.
// Memory stays bounded by the images in flight however long the list.

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
    // How many images the job was given.
    long total = 0;
};

struct JobCallbacks {
    // After each image, in list order, with the index just handled (0 for
    // the first). Called on the job's thread: marshal to your own.
    std::function<void(long index, const ImageReport& report)> progress;
};

struct JobOptions {
    bool dryRun = false;
    // Asked to stop: no further image is begun, and the images in flight
    // are ended at once (ImageProcessor::CancelAll), leaving no partial
    // file; images already written are still reported.
    std::stop_token stop;
    // How many images are in flight at once; 1 is one after another (see
    // JobsToRun).
    int jobs = 1;
    // The images whose rectangle was adjusted by hand, by path; every other
    // image is cropped by the rule. Not owned; may be null.
    const CropAdjustments* adjustments = nullptr;
};

// How many images a job of `images` runs at once under these options:
// `jobs`, but never more than the images or than the processor works on at
// once, and 1 when the originals are replaced with their metadata carried
// (each original's metadata must be read in the step that replaces it).
int JobsToRun(const CropSettings& settings, const JobOptions& options, std::size_t images,
              const ImageProcessor& processor);

// Runs the job and returns when every image is done (the calling thread
// reports; with several jobs, threads of its own do the images' work).
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

// True when the rule (or an adjusted rectangle) crops none of the images
// and at least one could be read: the job would write uncropped copies.
// Each image is decided as the job decides it (its task, as a dry run:
// its header read, nothing written), one after another until the first
// that is cropped.
bool EveryImageLeftWhole(const CropSettings& settings,
                         const std::vector<std::string>& listImagePaths, const OutputPlan& plan,
                         ImageProcessor& processor, const CropAdjustments* adjustments);

}  // namespace vellumo
