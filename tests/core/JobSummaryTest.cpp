// The counts that end a job.

#include <gtest/gtest.h>

#include "batch/JobSummary.h"

namespace vellumo {
namespace {

JobReport Report(std::initializer_list<std::pair<ImageStatus, const char*>> images) {
    JobReport report;
    long index = 0;
    for (const auto& [status, warning] : images) {
        ImageReport image;
        image.index = index++;
        image.outcome.status = status;
        if (*warning != '\0') {
            image.outcome.warnings = {Sentence{warning, {}}};
        }
        if (status == ImageStatus::Failed) {
            report.allSucceeded = false;
        }
        report.images.push_back(image);
    }
    return report;
}

TEST(JobSummary, AStoppedJobCountsTheImagesItDidNotCrop) {
    using S = ImageStatus;
    JobReport report = Report({{S::Written, ""}, {S::Failed, ""}});
    report.stopped = true;
    report.total = 13;
    EXPECT_EQ(JobSummaryText(report), "13 images: 1 written, 1 failed, 11 not cropped");
    EXPECT_EQ(JobResultSentence(report), "Cropping was stopped: 1 of 13 images were written.");
    report.images.clear();
    EXPECT_EQ(JobSummaryText(report), "13 images: 0 written, 13 not cropped");
}

TEST(JobSummary, CountsWrittenKeptFailedAndWarned) {
    using S = ImageStatus;
    const JobReport report = Report({{S::Written, ""},
                                     {S::Written, "Clipped to 1 \u00d7 1"},
                                     {S::Skipped, "Whole image: the rectangle is empty"},
                                     {S::Skipped, ""},
                                     {S::Failed, ""},
                                     {S::Written, "first frame only (of 2)"}});
    EXPECT_EQ(JobSummaryText(report),
              "6 images: 3 written, 2 kept as they were, 1 failed; 2 with warnings");
    EXPECT_EQ(JobResultSentence(report), "Some images could not be cropped.");
}

TEST(JobSummary, LeavesOutCountsOfNothingAndSpeaksOfOneInTheSingular) {
    using S = ImageStatus;
    EXPECT_EQ(JobSummaryText(Report({{S::Written, "x"}})), "1 image: 1 written; 1 with a warning");
    EXPECT_EQ(JobSummaryText(Report({{S::Skipped, ""}})), "1 image: 0 written, 1 kept as it was");
    EXPECT_EQ(JobSummaryText(Report({{S::Planned, ""}, {S::Planned, ""}})),
              "2 images: 2 would be written");
    EXPECT_EQ(JobResultSentence(Report({{S::Skipped, ""}})), "Images cropped successfully.");
}

}  // namespace
}  // namespace vellumo
