#include "batch/ImageTask.h"

namespace vellumo {

const char* DecisionName(OverwriteDecision decision) {
    switch (decision) {
        case OverwriteDecision::Overwrite:
            return "overwrite";
        case OverwriteDecision::Skip:
            return "skip";
        case OverwriteDecision::NoConflict:
            break;
    }
    return "no-conflict";
}

OverwriteDecision DecisionFromName(const std::string& name) {
    if (name == "overwrite")
        return OverwriteDecision::Overwrite;
    if (name == "skip")
        return OverwriteDecision::Skip;
    return OverwriteDecision::NoConflict;
}

const char* StatusName(ImageStatus status) {
    switch (status) {
        case ImageStatus::Written:
            return "written";
        case ImageStatus::Skipped:
            return "skipped";
        case ImageStatus::Planned:
            return "planned";
        case ImageStatus::Failed:
            break;
    }
    return "failed";
}

ImageStatus StatusFromName(const std::string& name) {
    if (name == "written")
        return ImageStatus::Written;
    if (name == "skipped")
        return ImageStatus::Skipped;
    if (name == "planned")
        return ImageStatus::Planned;
    return ImageStatus::Failed;
}

const char* TaskKindName(TaskKind kind) {
    switch (kind) {
        case TaskKind::Crop:
            return "crop";
        case TaskKind::CropCarryingMetadata:
            return "crop-carrying-metadata";
        case TaskKind::DryRun:
            return "dry-run";
        case TaskKind::CarryMetadataOnly:
            break;
    }
    return "carry-metadata-only";
}

std::optional<TaskKind> TaskKindFromName(const std::string& name) {
    for (const TaskKind kind : {TaskKind::Crop, TaskKind::CropCarryingMetadata, TaskKind::DryRun,
                                TaskKind::CarryMetadataOnly}) {
        if (name == TaskKindName(kind)) {
            return kind;
        }
    }
    return std::nullopt;
}

const char* OutputTargetName(OutputTarget target) {
    return target == OutputTarget::Source ? "source" : "new-file";
}

std::optional<OutputTarget> OutputTargetFromName(const std::string& name) {
    if (name == "new-file")
        return OutputTarget::NewFile;
    if (name == "source")
        return OutputTarget::Source;
    return std::nullopt;
}

const char* NoteKindName(NoteKind kind) {
    switch (kind) {
        case NoteKind::RemoveFailed:
            return "remove-failed";
        case NoteKind::DateNotSet:
            return "date-not-set";
        case NoteKind::MetadataNotCarried:
            break;
    }
    return "metadata-not-carried";
}

NoteKind NoteKindFromName(const std::string& name) {
    if (name == "remove-failed")
        return NoteKind::RemoveFailed;
    if (name == "date-not-set")
        return NoteKind::DateNotSet;
    return NoteKind::MetadataNotCarried;
}

}  // namespace vellumo
