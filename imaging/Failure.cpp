#include "imaging/Failure.h"

namespace vellumo {

namespace {

constexpr FailureStage kStages[] = {FailureStage::Read,  FailureStage::Decode,
                                    FailureStage::Crop,  FailureStage::Encode,
                                    FailureStage::Write, FailureStage::Metadata};

const char* Verb(FailureStage stage) {
    switch (stage) {
        case FailureStage::Read:
            return "read";
        case FailureStage::Decode:
            return "decode";
        case FailureStage::Crop:
            return "crop";
        case FailureStage::Metadata:
            return "carry metadata";
        case FailureStage::Encode:
        case FailureStage::Write:
            break;
    }
    return "write";
}

}  // namespace

const char* StageName(FailureStage stage) {
    switch (stage) {
        case FailureStage::Read:
            return "read";
        case FailureStage::Decode:
            return "decode";
        case FailureStage::Crop:
            return "crop";
        case FailureStage::Encode:
            return "encode";
        case FailureStage::Write:
            return "write";
        case FailureStage::Metadata:
            break;
    }
    return "metadata";
}

std::optional<FailureStage> StageFromName(const std::string& name) {
    for (const FailureStage stage : kStages) {
        if (name == StageName(stage)) {
            return stage;
        }
    }
    return std::nullopt;
}

Failure Failure::At(FailureStage stage, const std::string& detail) {
    if (stage == FailureStage::Read) {
        return {stage, detail};
    }
    return {stage, std::string("cannot ") + Verb(stage) + ": " + detail};
}

}  // namespace vellumo
