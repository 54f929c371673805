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

std::string JobSummaryText(const JobReport& report) {
    long written = 0, planned = 0, kept = 0, failed = 0, warned = 0;
    for (const ImageReport& image : report.images) {
        switch (image.outcome.status) {
            case ImageStatus::Written:
                ++written;
                break;
            case ImageStatus::Planned:
                ++planned;
                break;
            case ImageStatus::Skipped:
                ++kept;
                break;
            case ImageStatus::Failed:
                ++failed;
                break;
        }
        const bool writes = image.outcome.status == ImageStatus::Written ||
                            image.outcome.status == ImageStatus::Planned;
        if (!image.outcome.warning.empty() && writes) {
            ++warned;
        }
    }
    // A stopped job reports only the images it finished; the others of its
    // list are counted as not cropped.
    const auto finished = static_cast<long>(report.images.size());
    const long listed = report.stopped ? std::max(report.total, finished) : finished;
    std::string text = Count(listed, "image", "images") + ": ";
    text += planned > 0 && written == 0 ? std::to_string(planned) + " would be written"
                                        : std::to_string(written) + " written";
    if (kept > 0) {
        text +=
            ", " + std::to_string(kept) + (kept == 1 ? " kept as it was" : " kept as they were");
    }
    if (failed > 0) {
        text += ", " + std::to_string(failed) + " failed";
    }
    if (listed > finished) {
        text += ", " + std::to_string(listed - finished) + " not cropped";
    }
    if (warned > 0) {
        text +=
            "; " + std::to_string(warned) + (warned == 1 ? " with a warning" : " with warnings");
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
