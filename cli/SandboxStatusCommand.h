#pragma once

namespace vellumo::cli {

// `vellumo-cli --sandbox-status`: starts one worker as a batch would and
// prints each layer of its sandbox, active or missing with the reason.
// Exit status: 0 when every layer is active, 1 when one is missing, 2 when
// no worker starts.
int RunSandboxStatus();

}  // namespace vellumo::cli
