#include "batch/OverwritePrompts.h"

#include <filesystem>
#include <system_error>

namespace vellumo {

namespace {

// The memory of a "to All" answer, for one pass only.
enum class AnswerForAll { None = 0, OverwriteAll = 1, SkipAll = 2 };

bool ItemExists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

}  // namespace

std::string OverwriteQuestion(const std::string& path) {
    return "The file " + path + " already exists. Do you want to overwrite it?";
}

std::vector<OverwriteDecision> PromptOverwrites(const OutputPlan& plan, const OverwriteAsker& ask) {
    AnswerForAll memory = AnswerForAll::None;
    std::vector<OverwriteDecision> decisions;
    decisions.reserve(plan.images.size());
    for (const PlannedOutput& image : plan.images) {
        const std::string& path = image.path;
        if (image.target == OutputTarget::Source && image.refusal.empty()) {
            decisions.push_back(OverwriteDecision::Overwrite);
            continue;
        }
        if (!image.refusal.empty() || !ItemExists(path)) {
            decisions.push_back(OverwriteDecision::NoConflict);
            continue;
        }
        if (memory == AnswerForAll::SkipAll) {
            decisions.push_back(OverwriteDecision::Skip);
            continue;
        }
        if (memory == AnswerForAll::OverwriteAll) {
            decisions.push_back(OverwriteDecision::Overwrite);
            continue;
        }
        switch (ask(path)) {
            case OverwriteAnswer::Yes:
                decisions.push_back(OverwriteDecision::Overwrite);
                break;
            case OverwriteAnswer::YesToAll:
                decisions.push_back(OverwriteDecision::Overwrite);
                memory = AnswerForAll::OverwriteAll;
                break;
            case OverwriteAnswer::No:
                decisions.push_back(OverwriteDecision::Skip);
                break;
            case OverwriteAnswer::NoToAll:
                decisions.push_back(OverwriteDecision::Skip);
                memory = AnswerForAll::SkipAll;
                break;
        }
    }
    return decisions;
}

std::vector<OverwriteDecision> PromptOverwrites(const CropSettings& settings,
                                                const std::vector<std::string>& listImagePaths,
                                                const OverwriteAsker& ask) {
    return PromptOverwrites(PlanOutputs(settings, listImagePaths, ClashPolicy::Refuse), ask);
}

}  // namespace vellumo
