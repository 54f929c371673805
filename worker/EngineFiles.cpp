#include "worker/EngineFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "batch/ClearForOverwrite.h"
#include "imaging/AtomicFile.h"
#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

// Opened without waiting (a named pipe in the list must not hold up the
// engine), then read as usual: the worker waits for a pipe's bytes, under
// its time limit, as it did when it opened files itself.
int OpenForReading(const std::string& path) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd >= 0) {
        fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    }
    return fd;
}

// The metadata step runs for this outcome (see InProcessImageProcessor).
bool CarriesMetadataAfter(const ImageTask& task, const ImageOutcome& outcome) {
    return task.kind == TaskKind::CarryMetadataOnly ||
           (task.kind == TaskKind::CropCarryingMetadata &&
            (outcome.status == ImageStatus::Written || outcome.status == ImageStatus::Skipped));
}

bool HasNote(const ImageOutcome& outcome, NoteKind kind) {
    return std::any_of(outcome.notes.begin(), outcome.notes.end(),
                       [&](const ImageNote& note) { return note.kind == kind; });
}

void DropNotes(ImageOutcome& outcome, NoteKind kind) {
    std::erase_if(outcome.notes, [&](const ImageNote& note) { return note.kind == kind; });
}

}  // namespace

EngineFiles::EngineFiles(const ImageTask& task) : EngineFiles(task.source) {
    if (task.kind == TaskKind::DryRun) {
        return;
    }
    const bool ontoEarlierFile =
        task.kind == TaskKind::CarryMetadataOnly ||
        (task.kind == TaskKind::CropCarryingMetadata && task.decision == OverwriteDecision::Skip);
    if (ontoEarlierFile) {
        given_.output = OpenForReading(task.output);
    }
    struct stat status {};
    if (task.target == OutputTarget::Source && fstat(given_.source, &status) == 0) {
        sourceMode_ = status.st_mode & 07777;
    }
    // Read now: the crop may replace the source before the date is set.
    if (CarriesMetadata(task.kind)) {
        sourceDate_ = ImageTools::CreationDate(task.source);
    }
}

EngineFiles::EngineFiles(const std::string& path) {
    given_.source = OpenForReading(path);
}

EngineFiles::~EngineFiles() {
    GivenFiles open = given_;
    CloseGivenFiles(open);
}

void EngineFiles::Finish(const ImageTask& task, const std::string& bytes,
                         ImageOutcome& outcome) const {
    const bool crop =
        outcome.status == ImageStatus::Written && task.kind != TaskKind::CarryMetadataOnly;
    if (!bytes.empty()) {
        if (crop && task.decision == OverwriteDecision::Overwrite) {
            if (std::string error = ClearForOverwrite(task.output); !error.empty()) {
                outcome.notes.insert(outcome.notes.begin(),
                                     {NoteKind::RemoveFailed, std::move(error)});
            }
        }
        const SaveResult written =
            atomicfile::ReplaceWithBytes(task.output, bytes.data(), bytes.size());
        if (!written.saved && crop) {
            outcome.status = ImageStatus::Failed;
            outcome.failure = Failure::At(written.stage, written.reason);
            DropNotes(outcome, NoteKind::MetadataNotCarried);
            DropNotes(outcome, NoteKind::DateNotSet);
            return;
        }
        if (!written.saved) {
            DropNotes(outcome, NoteKind::DateNotSet);
            outcome.notes.push_back(
                {NoteKind::MetadataNotCarried,
                 "the saved file cannot be rewritten (" + written.reason + ")"});
            return;
        }
        if (crop && sourceMode_) {
            ::chmod(task.output.c_str(), *sourceMode_);
        }
    }
    // The date the worker gave its memory file is no one's: the engine
    // carries the source's, where the metadata step got that far.
    if (CarriesMetadataAfter(task, outcome) && sourceDate_ &&
        !HasNote(outcome, NoteKind::MetadataNotCarried)) {
        DropNotes(outcome, NoteKind::DateNotSet);
        if (!filedates::SetCreationDate(task.output, *sourceDate_)) {
            outcome.notes.push_back({NoteKind::DateNotSet, "the creation date cannot be set"});
        }
    }
}

}  // namespace vellumo
