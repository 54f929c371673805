#pragma once

// The command line's line for rules that clash: the options named, as its
// other option problems name them.

#include <string>

#include "batch/CropSettings.h"
#include "batch/RuleClash.h"

namespace vellumo::cli {

std::string RuleClashText(RuleClash clash, const CropSettings& settings);

}  // namespace vellumo::cli
