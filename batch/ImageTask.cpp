#include "batch/ImageTask.h"

#include "imaging/EnumNames.h"

namespace vellumo {

namespace {

constexpr NameTable<OverwriteDecision, 3> kDecisionNames{{
    {OverwriteDecision::NoConflict, "no-conflict"},
    {OverwriteDecision::Overwrite, "overwrite"},
    {OverwriteDecision::Skip, "skip"},
}};

constexpr NameTable<ImageStatus, 4> kStatusNames{{
    {ImageStatus::Failed, "failed"},
    {ImageStatus::Written, "written"},
    {ImageStatus::Skipped, "skipped"},
    {ImageStatus::Planned, "planned"},
}};

constexpr NameTable<TaskKind, 5> kTaskKindNames{{
    {TaskKind::Crop, "crop"},
    {TaskKind::CropCarryingMetadata, "crop-carrying-metadata"},
    {TaskKind::DryRun, "dry-run"},
    {TaskKind::CarryMetadataOnly, "carry-metadata-only"},
    {TaskKind::NameFacts, "name-facts"},
}};

constexpr NameTable<OutputTarget, 2> kOutputTargetNames{{
    {OutputTarget::NewFile, "new-file"},
    {OutputTarget::Source, "source"},
}};

constexpr NameTable<NoteKind, 3> kNoteKindNames{{
    {NoteKind::MetadataNotCarried, "metadata-not-carried"},
    {NoteKind::RemoveFailed, "remove-failed"},
    {NoteKind::DateNotSet, "date-not-set"},
}};

}  // namespace

const char* DecisionName(OverwriteDecision decision) {
    return NameOf(kDecisionNames, decision);
}

OverwriteDecision DecisionFromName(const std::string& name) {
    return ValueNamed(kDecisionNames, name).value_or(OverwriteDecision::NoConflict);
}

const char* StatusName(ImageStatus status) {
    return NameOf(kStatusNames, status);
}

ImageStatus StatusFromName(const std::string& name) {
    return ValueNamed(kStatusNames, name).value_or(ImageStatus::Failed);
}

const char* TaskKindName(TaskKind kind) {
    return NameOf(kTaskKindNames, kind);
}

std::optional<TaskKind> TaskKindFromName(const std::string& name) {
    return ValueNamed(kTaskKindNames, name);
}

const char* OutputTargetName(OutputTarget target) {
    return NameOf(kOutputTargetNames, target);
}

std::optional<OutputTarget> OutputTargetFromName(const std::string& name) {
    return ValueNamed(kOutputTargetNames, name);
}

const char* NoteKindName(NoteKind kind) {
    return NameOf(kNoteKindNames, kind);
}

NoteKind NoteKindFromName(const std::string& name) {
    return ValueNamed(kNoteKindNames, name).value_or(NoteKind::MetadataNotCarried);
}

}  // namespace vellumo
