#include "cli/WatchProgress.h"

#include <iostream>
#include <unordered_map>

namespace vellumo::cli {

WatchRecord RecordOf(std::vector<ManifestEntry> entries) {
    WatchRecord record;
    for (const ManifestEntry& entry : entries) {
        if (!entry.output.empty()) {
            record.outputs.insert(entry.output);
        }
    }
    record.entries = std::move(entries);
    return record;
}

std::vector<std::string> NotYetDone(std::vector<std::string> arrived, const WatchRecord& record,
                                    const CliOptions& options) {
    // Set aside before the batch is planned: its names number on from the
    // record, so a path planned now is not the one an earlier run wrote.
    std::unordered_map<std::string, const ManifestEntry*> latest;
    for (const ManifestEntry& entry : record.entries) {
        latest[entry.source] = &entry;
    }
    const std::size_t count = arrived.size();
    std::erase_if(arrived, [&latest](const std::string& image) {
        const auto found = latest.find(image);
        return found != latest.end() && found->second->Done() && OutputAsRecorded(*found->second);
    });
    if (arrived.size() < count && !options.quiet) {
        std::cerr << "vellumo-cli: " << count - arrived.size() << " of " << count
                  << " images already done (recorded in " << options.manifest << ")" << std::endl;
    }
    return arrived;
}

WatchProgress::WatchProgress(const CliOptions& options, Manifesting& manifesting,
                             WatchRecord& record, std::stop_source stop)
    : options_(options),
      manifesting_(manifesting),
      record_(record),
      stop_(std::move(stop)),
      firstIndex_(record.images) {}

void WatchProgress::Planned(const BatchPart& part) {
    if (part.alreadyDone > 0 && !options_.quiet) {
        std::cerr << "vellumo-cli: " << part.alreadyDone << " of " << part.shardSize
                  << " images already done (recorded in " << options_.manifest << ")" << std::endl;
    }
    // No progress bar: a watch has no end to measure against.
    reporter_.emplace(options_, static_cast<long>(part.list.size()), false);
}

void WatchProgress::ImageDone(const ImageReport& report) {
    ImageReport numbered = report;
    numbered.index += firstIndex_;
    reporter_->Image(numbered);
    ++record_.images;
    if (report.outcome.status == ImageStatus::Failed) {
        ++record_.failed;
    }
    // The output is known before the kernel tells of it arriving, so that
    // an output folder inside the watched one is never cropped again.
    ManifestEntry entry;
    std::string reason;
    if (manifestFailure_.empty() && !manifesting_.Record(report, reason, &entry)) {
        // What is not recorded would be done again: stop here.
        manifestFailure_ = reason;
        stop_.request_stop();
    }
    if (!entry.output.empty()) {
        record_.outputs.insert(entry.output);
    }
    record_.entries.push_back(std::move(entry));
}

}  // namespace vellumo::cli
