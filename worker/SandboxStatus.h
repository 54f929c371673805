#pragma once

// Inside the core only: the layers of the worker's sandbox, as the worker
// reports them in its greeting, each active or missing with the reason.

#include <string>
#include <vector>

namespace vellumo {

struct SandboxLayer {
    // "no-new-privileges", "descriptors", "environment", "limits",
    // "landlock", "seccomp"
    std::string name;
    bool active = false;
    // What it does here ("ABI 7: ..."), or why it is missing.
    std::string detail;

    friend bool operator==(const SandboxLayer&, const SandboxLayer&) = default;
};

using SandboxStatus = std::vector<SandboxLayer>;

// The layers every worker sets up, in the order it does.
const std::vector<std::string>& SandboxLayerNames();

// Every layer there and active.
bool SandboxComplete(const SandboxStatus& status);

// "landlock (left out on request), seccomp (...)": the missing layers, for a
// refusal's reason. Empty when none is.
std::string MissingSandboxLayers(const SandboxStatus& status);

// The words of the layers' table, UTF-8: English unless a front end gives
// its own language's.
struct SandboxWords {
    std::string active = "active";
    std::string missing = "MISSING";
    std::string notReported = "not reported by the worker";
};

// One line a layer: "landlock     active    ABI 7: ...", the state's column
// three characters wider than the longer of its two words.
std::string DescribeSandbox(const SandboxStatus& status, const SandboxWords& words = {});

}  // namespace vellumo
