#pragma once

// Settling, before a job starts, what happens to output files that already
// exist: one decision per image, asked once per conflict unless a "to All"
// answer already settled it.

#include <functional>
#include <string>
#include <vector>

#include "batch/CropSettings.h"
#include "batch/OutputPlan.h"

namespace vellumo {

enum class OverwriteDecision : int {
    NoConflict = 0,  // nothing exists at the output path: save
    Overwrite = 1,   // something exists and is to be replaced
    Skip = 2,        // something exists and is to be kept: do not save
};

// The answers to the overwrite question.
enum class OverwriteAnswer { Yes, YesToAll, No, NoToAll };

// The question and its answers' titles, in the order a box shows them.
std::string OverwriteQuestion(const std::string& path);
inline const std::vector<std::string> kOverwriteButtons = {"Yes", "Yes to All", "No", "No to All"};

// Asks whether the file at `path` is to be replaced (each front end words
// the question, the command line with OverwriteQuestion) and returns the
// answer.
using OverwriteAsker = std::function<OverwriteAnswer(const std::string& path)>;

// One decision for each image of the plan, in order. An existing item of any
// kind at the output path (a folder too) is a conflict. "Yes to All" and
// "No to All" settle the conflicts after the one answered; nothing asked
// before is revised. Nothing is asked for an image that is refused anyway
// (NoConflict), nor for one that replaces its own file: replacing the
// originals was agreed to as a whole (Overwrite).
std::vector<OverwriteDecision> PromptOverwrites(const OutputPlan& plan, const OverwriteAsker& ask);

// The same for the list as the settings place it, clashes refused.
std::vector<OverwriteDecision> PromptOverwrites(const CropSettings& settings,
                                                const std::vector<std::string>& listImagePaths,
                                                const OverwriteAsker& ask);

}  // namespace vellumo
