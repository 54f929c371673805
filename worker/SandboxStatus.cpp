#include "worker/SandboxStatus.h"

#include <algorithm>

namespace vellumo {

const std::vector<std::string>& SandboxLayerNames() {
    static const std::vector<std::string> names{
        "no-new-privileges", "descriptors", "environment", "limits", "landlock", "seccomp"};
    return names;
}

namespace {

// Characters, not bytes, of UTF-8 text: the bytes that start one.
std::size_t Characters(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

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

std::string DescribeSandbox(const SandboxStatus& status, const SandboxWords& words) {
    const std::size_t stateWidth =
        std::max(Characters(words.active), Characters(words.missing)) + 3;
    std::string text;
    for (const std::string& name : SandboxLayerNames()) {
        const SandboxLayer* layer = Find(status, name);
        std::string line = name;
        line.resize(19, ' ');
        const std::string& state = layer && layer->active ? words.active : words.missing;
        line += state + std::string(stateWidth - Characters(state), ' ');
        line += layer ? layer->detail : words.notReported;
        text += line + "\n";
    }
    return text;
}

}  // namespace vellumo
