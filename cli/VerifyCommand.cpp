#include "cli/VerifyCommand.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "batch/Manifest.h"
#include "batch/Shard.h"
#include "cli/InputList.h"

namespace vellumo::cli {

namespace {

// What the manifests say of one input.
struct Record {
    int done = 0;                         // entries with an output there
    const ManifestEntry* last = nullptr;  // the latest entry
    const ManifestEntry* lastDone = nullptr;
};

int Usage(const std::string& message) {
    std::cerr << "vellumo-cli verify: " << message << std::endl;
    return 2;
}

// The output as recorded: with `hash` the same SHA-256 (which reads every
// output again), else the same length.
bool OutputUnchanged(const ManifestEntry& entry, bool hash) {
    if (hash) {
        return OutputAsRecorded(entry);
    }
    std::error_code error;
    const auto size = std::filesystem::file_size(entry.output, error);
    return entry.bytes && !error && size == *entry.bytes;
}

struct VerifyOptions {
    std::vector<std::string> manifests;
    std::string inputs;
    bool nulSeparated = false;
    bool hash = false;
};

// Every manifest's entries, or the usage error of the first one that
// cannot be read.
std::optional<std::string> ReadManifests(const std::vector<std::string>& manifests,
                                         std::vector<std::vector<ManifestEntry>>& read) {
    for (const std::string& manifest : manifests) {
        if (!std::filesystem::exists(manifest)) {
            return "--manifest: " + manifest + ": No such file or directory";
        }
        Loaded<std::vector<ManifestEntry>> entries = ReadManifest(manifest);
        if (!entries) {
            return "--manifest: " + manifest + ": " + entries.reason();
        }
        read.push_back(*entries);
    }
    return std::nullopt;
}

// What the manifests say of each input of `batch`; entries of files not in
// it are counted in `foreign` (the first 20 named as they are met).
std::map<std::string, Record> Tally(const std::vector<std::string>& batch,
                                    const std::vector<std::vector<ManifestEntry>>& read,
                                    long& foreign) {
    std::map<std::string, Record> records;
    for (const std::string& source : batch) {
        records.emplace(source, Record{});
    }
    for (const auto& entries : read) {
        for (const ManifestEntry& entry : entries) {
            const auto found = records.find(entry.source);
            if (found == records.end()) {
                if (foreign++ == 0 || foreign <= 20) {
                    std::cout << "not in the inputs  " << entry.source << "\n";
                }
                continue;
            }
            Record& record = found->second;
            record.last = &entry;
            if (entry.Done()) {
                ++record.done;
                record.lastDone = &entry;
            }
        }
    }
    return records;
}

// A line for every input not done exactly once, then the counts; 0 when
// the batch is complete, else 1.
int Report(const std::vector<std::string>& batch, std::map<std::string, Record>& records,
           long foreign, bool hash) {
    long once = 0, missing = 0, failed = 0, twice = 0, changed = 0;
    for (const std::string& source : batch) {
        const Record& record = records[source];
        if (record.done == 0 && record.last == nullptr) {
            ++missing;
            std::cout << "missing            " << source << "\n";
        } else if (record.done == 0) {
            ++failed;
            std::cout << "failed             " << source << ": " << record.last->reason << "\n";
        } else if (record.done > 1) {
            ++twice;
            std::cout << "done " << record.done << " times       " << source << "\n";
        } else if (!OutputUnchanged(*record.lastDone, hash)) {
            ++changed;
            std::cout << "output changed     " << source << ": " << record.lastDone->output << "\n";
        } else {
            ++once;
        }
    }
    std::cout << batch.size() << " inputs: " << once << " done once, " << missing << " missing, "
              << failed << " failed, " << twice << " done more than once, " << changed
              << " with a changed output";
    if (foreign > 0) {
        std::cout << "; " << foreign << " entries for files not in the inputs";
    }
    std::cout << std::endl;
    const bool complete = once == static_cast<long>(batch.size()) && foreign == 0;
    return complete ? 0 : 1;
}

}  // namespace

int RunVerify(int argc, char** argv) {
    CLI::App app{
        "Checks that every input of a batch was done exactly once, from the manifests "
        "of all its runs.",
        "vellumo-cli verify"};
    VerifyOptions options;
    app.add_option("--manifest", options.manifests, "The manifests of the batch's runs")
        ->required()
        ->expected(1, -1);
    app.add_option("--inputs", options.inputs,
                   "The batch's image list, one path per line (- for standard input)")
        ->required();
    app.add_flag("--null", options.nulSeparated,
                 "The --inputs file separates paths with NUL bytes");
    app.add_flag("--hash", options.hash,
                 "Read every output again and compare its SHA-256 with the manifest's (without: "
                 "its length)");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help() << std::endl;
        return 0;
    } catch (const CLI::ParseError& error) {
        return Usage(error.what());
    }
    const Loaded<std::vector<std::string>> listed =
        ReadInputList(options.inputs, options.nulSeparated);
    if (!listed) {
        return Usage("--inputs: " + options.inputs + ": " + listed.reason());
    }
    const std::vector<std::string> batch = SortedUnique(*listed);
    std::vector<std::vector<ManifestEntry>> read;
    if (const auto problem = ReadManifests(options.manifests, read)) {
        return Usage(*problem);
    }
    long foreign = 0;
    std::map<std::string, Record> records = Tally(batch, read, foreign);
    return Report(batch, records, foreign, options.hash);
}

}  // namespace vellumo::cli
