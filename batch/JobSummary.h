#pragma once

#include <string>
#include <vector>

#include "batch/CropJob.h"

namespace vellumo {

// The sentence that ends a job: "Images cropped successfully." when every
// image succeeded (a kept file counts as a success), else "Some images could
// not be cropped."; a job that was stopped says "Cropping was stopped: 37 of
// 120 images were written.".
std::string JobResultSentence(const JobReport& report);

// What a report counts. `listed` is the whole list for a stopped job (its
// unfinished images are `listed - finished`), the images handled otherwise;
// the outcomes count the finished images; `warned` those written (or
// planned) with a warning.
struct JobCounts {
    long listed = 0;
    long finished = 0;
    long written = 0;
    long planned = 0;
    long kept = 0;
    long failed = 0;
    long warned = 0;
};
JobCounts CountJob(const JobReport& report);

// The counts of a finished job, for the line after that sentence:
// "120 images: 117 written, 2 kept as they were, 1 failed; 3 with a
// warning". Counts of zero are left out, but for "written"; a dry run says
// "would be written"; a stopped job counts its whole list and ends with the
// images it did not crop ("120 images: 37 written, 83 not cropped").
std::string JobSummaryText(const JobReport& report);

// The lines an image's notes give on standard output, in order: "Remove
// failed: " and the error's description when an existing file could not be
// removed before an overwrite, "ERROR" when the creation date could not be
// set. Other notes give none.
std::vector<std::string> ConsoleLines(const ImageOutcome& outcome);

}  // namespace vellumo
