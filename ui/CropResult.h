#pragma once

// The message box that reports a finished crop job.

#include "batch/CropJob.h"
#include "ui/MessageBox.h"

namespace vellumo {

inline constexpr char kImagesCroppedSuccessfully[] = "Images cropped successfully.";
inline constexpr char kSomeImagesNotCropped[] = "Some images could not be cropped.";

// "Images cropped successfully." in the informational style when every image
// succeeded (a kept file counts as a success), else "Some images could not
// be cropped." as a warning; one button, "OK". The details name each image
// that failed, with the reason, and each that was skipped, one per line in
// list order.
MessageBoxRequest CropResultRequest(const JobReport& report);

}  // namespace vellumo
