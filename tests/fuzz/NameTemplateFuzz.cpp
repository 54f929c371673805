// The output name-template expander, with a template and an image's path
// from the fuzzer (NUL-separated; a profile from someone else names the
// template, the list names the image).
// Invariants: the path is the output folder, "/", a name, "." and the
// format's extension; the name holds no token that neither the template's
// text around the tokens nor the image's name brought in; a template with
// neither token ends with " (index)".

#include "batch/OutputPath.h"
#include "imaging/Formats.h"
#include "tests/fuzz/FuzzCheck.h"

namespace {

bool Holds(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo;
    const std::string text = fuzz::Text(data, size);
    const std::size_t nul = text.find('\0');
    CropSettings settings;
    settings.outputFolder = "/out";
    settings.nameTemplate = text.substr(0, nul);
    const std::string image = nul == std::string::npos ? "a.jpg" : text.substr(nul + 1);
    const long index = static_cast<long>(size % 7);
    const std::vector<std::string> list(static_cast<std::size_t>(index) + 1, image);
    const std::string path = GenerateOutputPathWithImageIndex(settings, list, index);

    const std::string extension = "." + OutputFormatExtension(settings.outputFormat);
    fuzz::Check(path.rfind("/out/", 0) == 0 && EndsWith(path, extension),
                "folder / name . extension");
    const std::string name = path.substr(5, path.size() - 5 - extension.size());
    const bool imageBringsTokens = Holds(image, "[");
    if (!imageBringsTokens && !Holds(settings.nameTemplate, "[")) {
        fuzz::Check(name == settings.nameTemplate + " (" + std::to_string(index + 1) + ")" ||
                        (settings.nameTemplate.empty() && !Holds(name, "[")),
                    "a template without tokens gets its index");
    }
    if (!imageBringsTokens && !Holds(settings.nameTemplate, "[File")) {
        fuzz::Check(!Holds(name, "[FileName]") && !Holds(name, "[FileIndex]"),
                    "every token is replaced");
    }
    return 0;
}
