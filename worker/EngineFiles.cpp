#include "worker/EngineFiles.h"

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "batch/ClearForOverwrite.h"
#include "imaging/FileHandles.h"
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

off_t SizeOf(int fd) {
    struct stat status {};
    return fstat(fd, &status) == 0 ? status.st_size : -1;
}

// `to` made a copy of all of `from`, in the kernel.
bool CopyInto(int to, int from) {
    if (ftruncate(to, 0) != 0) {
        return false;
    }
    const off_t size = SizeOf(from);
    off_t offset = 0;
    off_t written = 0;
    while (offset < size) {
        const ssize_t sent = sendfile(to, from, &offset, static_cast<std::size_t>(size - offset));
        if (sent <= 0) {
            return false;
        }
        written += sent;
    }
    return lseek(to, 0, SEEK_SET) == 0 && written == size;
}

bool SameContent(int a, int b) {
    const off_t size = SizeOf(a);
    if (size < 0 || size != SizeOf(b)) {
        return false;
    }
    std::array<unsigned char, 65536> left{};
    std::array<unsigned char, 65536> right{};
    for (off_t at = 0; at < size;) {
        const ssize_t got = filehandles::ReadAt(a, left.data(), left.size(), at);
        if (got <= 0 || filehandles::ReadAt(b, right.data(), right.size(), at) != got ||
            !std::equal(left.begin(), left.begin() + got, right.begin())) {
            return false;
        }
        at += got;
    }
    return true;
}

}  // namespace

EngineFiles::EngineFiles(const ImageTask& task) : EngineFiles(task.source) {
    if (task.kind == TaskKind::DryRun) {
        return;
    }
    output_ = std::make_unique<atomicfile::Replacement>(task.output);
    given_.output = output_->Descriptor();
    const bool ontoEarlierFile =
        task.kind == TaskKind::CarryMetadataOnly ||
        (task.kind == TaskKind::CropCarryingMetadata && task.decision == OverwriteDecision::Skip);
    if (ontoEarlierFile) {
        earlierOutput_ = OpenForReading(task.output);
    }
    Reset();
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
    if (given_.source >= 0) {
        close(given_.source);
    }
    if (earlierOutput_ >= 0) {
        close(earlierOutput_);
    }
}

void EngineFiles::Reset() const {
    if (given_.output < 0) {
        return;
    }
    if (earlierOutput_ < 0 || !CopyInto(given_.output, earlierOutput_)) {
        // Nothing to build on (or it cannot be read): the worker finds an
        // empty file, which it cannot take for an image.
        (void)ftruncate(given_.output, 0);
    }
}

bool EngineFiles::Changed() const {
    if (given_.output < 0 || SizeOf(given_.output) <= 0) {
        return false;
    }
    return earlierOutput_ < 0 || !SameContent(given_.output, earlierOutput_);
}

void EngineFiles::Finish(const ImageTask& task, ImageOutcome& outcome) const {
    // No temporary file could be made beside the output, so the worker had
    // nowhere to write: the folder's own reason tells why, not the sandbox's.
    if (output_ && given_.output < 0 && outcome.failure &&
        outcome.failure->stage == FailureStage::Write) {
        outcome.failure = Failure::At(FailureStage::Write, output_->Reason());
    }
    const bool crop =
        outcome.status == ImageStatus::Written && task.kind != TaskKind::CarryMetadataOnly;
    // A crop that failed may have left part of a file, a metadata step that
    // failed part of a rewrite: neither is put in place.
    const bool rewritten = earlierOutput_ >= 0 && !HasNote(outcome, NoteKind::MetadataNotCarried);
    if (Changed() && (crop || rewritten)) {
        if (crop && task.decision == OverwriteDecision::Overwrite) {
            if (std::string error = ClearForOverwrite(task.output); !error.empty()) {
                outcome.notes.insert(outcome.notes.begin(),
                                     {NoteKind::RemoveFailed, std::move(error)});
            }
        }
        if (crop && sourceMode_) {
            (void)fchmod(given_.output, *sourceMode_);
        }
        const SaveResult written = output_->Commit();
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
    }
    // The date the worker's writes gave the output is no one's: the engine
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
