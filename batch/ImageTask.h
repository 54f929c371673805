#pragma once

// One image's work in a crop job, and what came of it. A task holds all it
// needs, so it can run anywhere (in this process or another) without the
// window or the list.

#include <optional>
#include <string>
#include <vector>

#include "batch/CropSettings.h"
#include "batch/OverwritePrompts.h"
#include "imaging/Failure.h"
#include "imaging/Geometry.h"
#include "imaging/PhotoFacts.h"
#include "imaging/Sentence.h"

namespace vellumo {

// What a task does with its image. A job makes the first four only: a dry run
// carries nothing, and carrying metadata alone follows a crop written earlier.
// The plan of outputs makes the fifth when a name needs the image read.
enum class TaskKind {
    Crop,                  // decode, crop and write (or keep, when skipped)
    CropCarryingMetadata,  // the same, then the source's metadata and creation
                           // date into the output (or the kept file)
    DryRun,                // decide and measure only: decode nothing, write nothing
    // Only carry the source's metadata into the output written earlier in the
    // job (or the kept file of a skipped image): a job with several images in
    // flight decides it in list order, once the image is done.
    CarryMetadataOnly,
    // A dry run that also reads the photo's facts (ImageOutcome::photoFacts)
    // for its output's name: metadata of a file that may be hostile is
    // parsed where the file is decoded, never in the engine.
    NameFacts,
};

// The task carries the source's metadata into its output.
constexpr bool CarriesMetadata(TaskKind kind) {
    return kind == TaskKind::CropCarryingMetadata || kind == TaskKind::CarryMetadataOnly;
}

struct ImageTask {
    long index = 0;      // position in the list
    std::string source;  // the image file
    std::string output;  // where its crop goes
    OverwriteDecision decision = OverwriteDecision::NoConflict;
    CropSettings settings;
    // The rectangle adjusted by hand for this image (its own pixels, origin
    // at the lower-left corner), in place of the rule's; none for the rule.
    std::optional<Rect> adjustedRect;
    // A crop carries metadata only while every earlier image of the job has
    // succeeded.
    TaskKind kind = TaskKind::Crop;
    OutputTarget target = OutputTarget::NewFile;
};

enum class ImageStatus {
    Written,  // the crop was saved at the output path
    Skipped,  // an existing file was kept, as the user answered
    Failed,   // nothing was written; see the reason
    Planned,  // a dry run: what would be done
};

// Something that went wrong on the way without failing the image.
enum class NoteKind {
    RemoveFailed,        // an existing output could not be removed before an
                         // overwrite; the save was attempted anyway
    DateNotSet,          // the metadata was carried, the creation date not
    MetadataNotCarried,  // the metadata step changed nothing
};

struct ImageNote {
    NoteKind kind;
    std::string detail;  // in words: the error's description, the reason

    friend bool operator==(const ImageNote&, const ImageNote&) = default;
};

struct ImageOutcome {
    ImageStatus status = ImageStatus::Failed;
    // For a failure, its stage and the line a person understands:
    // "cannot decode: not a JPEG file", "cannot write: permission denied".
    std::optional<Failure> failure;
    // The rectangle as resolved, and the output's size in pixels, when the
    // image could be read.
    std::optional<Rect> rect;
    std::optional<Size> outputSize;
    // Something the person should know about an image that was written (or
    // would be): "Clipped to 100 × 68", "Whole image: the rectangle lies
    // outside this image", "first frame only (of 12)". Empty when none.
    Sentences warnings;
    // The crop rule leaves the image whole (see CropExtent).
    bool wholeImage = false;
    // The faces found, largest first, when the rule looks for them (the
    // faces anchor, a portrait of the face).
    std::vector<Rect> faces;
    // What else happened on the way, for the person to be told.
    std::vector<ImageNote> notes;
    // The quality factor chosen to fit the byte limit, when there is one.
    std::optional<int> fittedQuality;
    // When it was taken and with what camera, for a NameFacts task.
    std::optional<PhotoFacts> photoFacts;

    // The warnings in English on one line ("a; b"); empty without one.
    std::string WarningLine() const { return EnglishLine(warnings); }
    // The failure's line; empty without one.
    std::string Reason() const { return failure ? failure->reason : std::string(); }
};

// The names decisions and statuses go by in JSON (the command line's report,
// the worker's messages): "no-conflict", "overwrite", "skip"; "written",
// "skipped", "failed", "planned". Reading an unknown name gives NoConflict,
// respectively Failed.
const char* DecisionName(OverwriteDecision decision);
OverwriteDecision DecisionFromName(const std::string& name);
const char* StatusName(ImageStatus status);
ImageStatus StatusFromName(const std::string& name);
// "crop", "crop-carrying-metadata", "dry-run", "carry-metadata-only",
// "name-facts"; and
// "new-file", "source". Nothing for an unknown name.
const char* TaskKindName(TaskKind kind);
std::optional<TaskKind> TaskKindFromName(const std::string& name);
const char* OutputTargetName(OutputTarget target);
std::optional<OutputTarget> OutputTargetFromName(const std::string& name);
// "remove-failed", "date-not-set", "metadata-not-carried"; unknown names
// give MetadataNotCarried.
const char* NoteKindName(NoteKind kind);
NoteKind NoteKindFromName(const std::string& name);

}  // namespace vellumo
