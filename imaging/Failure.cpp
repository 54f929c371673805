#include "imaging/Failure.h"

#include "imaging/EnumNames.h"

namespace vellumo {

namespace {

constexpr NameTable<FailureStage, 6> kStageNames{{
    {FailureStage::Read, "read"},
    {FailureStage::Decode, "decode"},
    {FailureStage::Crop, "crop"},
    {FailureStage::Encode, "encode"},
    {FailureStage::Write, "write"},
    {FailureStage::Metadata, "metadata"},
}};

// What a person reads after "cannot ": an encoder's refusal reads as the
// output not being written, as the file system's does.
constexpr NameTable<FailureStage, 6> kStageVerbs{{
    {FailureStage::Read, "read"},
    {FailureStage::Decode, "decode"},
    {FailureStage::Crop, "crop"},
    {FailureStage::Encode, "write"},
    {FailureStage::Write, "write"},
    {FailureStage::Metadata, "carry metadata"},
}};

}  // namespace

const char* StageName(FailureStage stage) {
    return NameOf(kStageNames, stage);
}

std::optional<FailureStage> StageFromName(const std::string& name) {
    return ValueNamed(kStageNames, name);
}

Failure Failure::At(FailureStage stage, const Sentence& detail) {
    if (stage == FailureStage::Read) {
        return {stage, detail.English(), detail};
    }
    return {stage, std::string("cannot ") + NameOf(kStageVerbs, stage) + ": " + detail.English(),
            detail};
}

Failure Failure::At(FailureStage stage, const std::string& detail) {
    return At(stage, Sentence{"%1", {detail}});
}

}  // namespace vellumo
