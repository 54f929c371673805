#pragma once

#include "batch/OverwritePrompts.h"
#include "cli/CliOptions.h"

namespace vellumo::cli {

// The overwrite question as the command line answers it: from the option,
// or by asking on the terminal (standard error, answer read from standard
// input). End of input counts as "No to All".
OverwriteAsker MakeOverwriteAsker(OverwriteMode mode);

}  // namespace vellumo::cli
