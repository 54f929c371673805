#pragma once

// The crop report's sentences about counts, in the window's language, made
// from the job's counts. In English they read as the batch library's
// JobResultSentence (stopped jobs) and JobSummaryText, which the command
// line prints.

#include <QString>

#include "batch/CropJob.h"

namespace vellumo {

// "Cropping was stopped: 37 of 120 images were written."
QString StoppedSentenceText(const JobReport& report);

// "120 images: 117 written, 2 kept as they were, 1 failed; 3 with a warning"
// (zero counts left out but for "written"; "would be written" in a dry run;
// a stopped job's unfinished images "not cropped").
QString JobCountsText(const JobReport& report);

}  // namespace vellumo
