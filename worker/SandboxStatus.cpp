#include "worker/SandboxStatus.h"

#include <algorithm>

namespace vellumo {

const std::vector<std::string>& SandboxLayerNames() {
    static const std::vector<std::string> names{
        "no-new-privileges", "descriptors", "environment", "limits", "landlock", "seccomp"};
    return names;
}

namespace {

const SandboxLayer* Find(const SandboxStatus& status, const std::string& name) {
    const auto found = std::find_if(status.begin(), status.end(),
                                    [&](const SandboxLayer& layer) { return layer.name == name; });
    return found == status.end() ? nullptr : &*found;
}

}  // namespace

bool SandboxComplete(const SandboxStatus& status) {
    return MissingSandboxLayers(status).empty();
}

std::string MissingSandboxLayers(const SandboxStatus& status) {
    std::string missing;
    for (const std::string& name : SandboxLayerNames()) {
        const SandboxLayer* layer = Find(status, name);
        if (layer != nullptr && layer->active) {
            continue;
        }
        missing += (missing.empty() ? "" : ", ") + name + " (" +
                   (layer ? layer->detail : std::string("not reported by the worker")) + ")";
    }
    return missing;
}

std::string DescribeSandbox(const SandboxStatus& status) {
    std::string text;
    for (const std::string& name : SandboxLayerNames()) {
        const SandboxLayer* layer = Find(status, name);
        std::string line = name;
        line.resize(19, ' ');
        line += layer && layer->active ? "active    " : "MISSING   ";
        line += layer ? layer->detail : std::string("not reported by the worker");
        text += line + "\n";
    }
    return text;
}

}  // namespace vellumo
