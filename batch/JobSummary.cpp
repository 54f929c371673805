#include "batch/JobSummary.h"

#include <algorithm>

namespace vellumo {

namespace {

std::string Count(long n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

}  // namespace

std::string JobResultSentence(const JobReport& report) {
    if (report.stopped) {
        long written = 0;
        for (const ImageReport& image : report.images) {
            written += image.outcome.status == ImageStatus::Written ? 1 : 0;
        }
        return "Cropping was stopped: " + std::to_string(written) + " of " +
               Count(report.total, "image was written.", "images were written.");
    }
    return report.allSucceeded ? "Images cropped successfully."
                               : "Some images could not be cropped.";
}

JobCounts CountJob(const JobReport& report) {
    JobCounts counts;
    for (const ImageReport& image : report.images) {
        switch (image.outcome.status) {
            case ImageStatus::Written:
                ++counts.written;
                break;
            case ImageStatus::Planned:
                ++counts.planned;
                break;
            case ImageStatus::Skipped:
                ++counts.kept;
                break;
            case ImageStatus::Failed:
                ++counts.failed;
                break;
        }
        const bool writes = image.outcome.status == ImageStatus::Written ||
                            image.outcome.status == ImageStatus::Planned;
        if (!image.outcome.warnings.empty() && writes) {
            ++counts.warned;
        }
    }
    // A stopped job reports only the images it finished; the others of its
    // list are counted as not cropped.
    counts.finished = static_cast<long>(report.images.size());
    counts.listed = report.stopped ? std::max(report.total, counts.finished) : counts.finished;
    return counts;
}

std::string JobSummaryText(const JobReport& report) {
    const JobCounts c = CountJob(report);
    std::string text = Count(c.listed, "image", "images") + ": ";
    text += c.planned > 0 && c.written == 0 ? std::to_string(c.planned) + " would be written"
                                            : std::to_string(c.written) + " written";
    if (c.kept > 0) {
        text += ", " + std::to_string(c.kept) +
                (c.kept == 1 ? " kept as it was" : " kept as they were");
    }
    if (c.failed > 0) {
        text += ", " + std::to_string(c.failed) + " failed";
    }
    if (c.listed > c.finished) {
        text += ", " + std::to_string(c.listed - c.finished) + " not cropped";
    }
    if (c.warned > 0) {
        text += "; " + std::to_string(c.warned) +
                (c.warned == 1 ? " with a warning" : " with warnings");
    }
    return text;
}

std::vector<std::string> ConsoleLines(const ImageOutcome& outcome) {
    std::vector<std::string> lines;
    for (const ImageNote& note : outcome.notes) {
        if (note.kind == NoteKind::RemoveFailed) {
            lines.emplace_back("Remove failed: " + note.detail);
        } else if (note.kind == NoteKind::DateNotSet) {
            lines.emplace_back("ERROR");
        }
    }
    return lines;
}

}  // namespace vellumo
