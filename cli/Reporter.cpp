#include "cli/Reporter.h"

#include <cmath>
#include <iostream>
#include <nlohmann/json.hpp>

#include "batch/JobSummary.h"

namespace vellumo::cli {

namespace {

nlohmann::ordered_json ToJson(const ImageReport& report) {
    const ImageOutcome& outcome = report.outcome;
    nlohmann::ordered_json object = {
        {"index", report.index},
        {"source", report.source},
        {"output", report.output},
        {"rect", nullptr},
        {"size", nullptr},
        {"decision", DecisionName(report.decision)},
        {"status", StatusName(outcome.status)},
        {"reason", outcome.failure ? nlohmann::ordered_json(outcome.failure->reason)
                                   : nlohmann::ordered_json(nullptr)},
        {"warning", outcome.warnings.empty() ? nlohmann::ordered_json(nullptr)
                                             : nlohmann::ordered_json(outcome.WarningLine())},
    };
    if (outcome.rect) {
        object["rect"] = {outcome.rect->x, outcome.rect->y, outcome.rect->width,
                          outcome.rect->height};
    }
    if (outcome.outputSize) {
        object["size"] = {static_cast<long long>(outcome.outputSize->width),
                          static_cast<long long>(outcome.outputSize->height)};
    }
    if (outcome.fittedQuality) {
        object["quality"] = *outcome.fittedQuality;
    }
    // The faces the rule looked at, largest first, as the rectangle is given.
    for (const Rect& face : outcome.faces) {
        object["faces"].push_back({face.x, face.y, face.width, face.height});
    }
    if (!outcome.notes.empty()) {
        object["notes"] = nlohmann::ordered_json::array();
        for (const ImageNote& note : outcome.notes) {
            object["notes"].push_back({{"kind", NoteKindName(note.kind)}, {"detail", note.detail}});
        }
    }
    return object;
}

std::string Describe(const ImageReport& report) {
    const ImageOutcome& outcome = report.outcome;
    std::string size;
    if (outcome.outputSize) {
        size = " (" + std::to_string(static_cast<long long>(outcome.outputSize->width)) + " x " +
               std::to_string(static_cast<long long>(outcome.outputSize->height)) +
               (outcome.fittedQuality ? ", quality " + std::to_string(*outcome.fittedQuality)
                                      : std::string()) +
               ")";
    }
    std::string warning =
        outcome.warnings.empty() ? "" : " \u2014 warning: " + outcome.WarningLine();
    for (const ImageNote& note : outcome.notes) {
        if (note.kind == NoteKind::MetadataNotCarried) {
            warning += " \u2014 metadata not kept: " + note.detail;
        }
    }
    switch (outcome.status) {
        case ImageStatus::Written:
            return "written   " + report.output + size + warning;
        case ImageStatus::Planned:
            return "would write " + report.output + size + warning;
        case ImageStatus::Skipped:
            return "kept      " + report.output + " (already exists)";
        case ImageStatus::Failed:
            return "failed    " + report.source + ": " + outcome.Reason();
    }
    return {};
}

}  // namespace

Reporter::Reporter(const CliOptions& options, long imageCount, bool standardErrorIsTerminal)
    : options_(options),
      count_(imageCount),
      progressBar_(standardErrorIsTerminal && !options.quiet) {}

void Reporter::Image(const ImageReport& report) {
    if (progressBar_) {
        std::cerr << "\r\033[K" << std::flush;  // clear the bar before printing a line
    }
    if (options_.json) {
        std::cout << ToJson(report).dump() << std::endl;
        Progress(report.index + 1);
        return;
    }
    // The lines a person's scripts may look for, before the image's own.
    for (const std::string& line : ConsoleLines(report.outcome)) {
        std::cout << line << std::endl;
    }
    if (report.outcome.status == ImageStatus::Failed) {
        (options_.quiet ? std::cerr : std::cout) << Describe(report) << std::endl;
    } else if (!options_.quiet) {
        std::cout << Describe(report) << std::endl;
    }
    Progress(report.index + 1);
}

void Reporter::Progress(long done) {
    if (!progressBar_ || count_ == 0) {
        return;
    }
    constexpr int kWidth = 30;
    const int filled = static_cast<int>(kWidth * done / count_);
    const double elapsed =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    std::string line = "\r[" + std::string(filled, '#') + std::string(kWidth - filled, '.') + "] " +
                       std::to_string(done) + "/" + std::to_string(count_);
    if (done > 0 && done < count_) {
        const double left = elapsed / done * (count_ - done);
        line += " about " + std::to_string(static_cast<long long>(std::ceil(left))) + " s left";
    }
    std::cerr << line << "\033[K" << std::flush;
}

void Reporter::Finish(const JobReport& report) {
    if (progressBar_) {
        std::cerr << "\r\033[K" << std::flush;
    }
    if (report.stopped) {
        // Whatever else is asked for, a stop is told (on standard error).
        std::cerr << JobResultSentence(report) << "\n" << JobSummaryText(report) << std::endl;
        return;
    }
    if (options_.json) {
        return;
    }
    if (!options_.quiet || !report.allSucceeded) {
        (report.allSucceeded ? std::cout : std::cerr) << JobResultSentence(report) << "\n"
                                                      << JobSummaryText(report) << std::endl;
    }
}

}  // namespace vellumo::cli
