// The output name template, read and expanded, with a template and an
// image's path from the fuzzer (NUL-separated; a profile from someone else
// names the template, the list names the image).
// Invariants: a template that is refused says why; one that is read expands
// to the output folder, "/", a name, "." and the format's extension; the
// name never holds "/" (it never makes a folder) and no "[" that the image's
// path did not bring in (every token is replaced); a template with none of
// [FileName], [FileIndex] and [Date] ends with " (index)".

#include "batch/NameTemplate.h"
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
    std::string problem;
    const std::optional<NameTemplate> name = NameTemplate::Parse(settings.nameTemplate, problem);
    if (!name) {
        fuzz::Check(!problem.empty(), "a refused template says why");
        return 0;
    }
    NameValues values;
    values.source = nul == std::string::npos ? "a.jpg" : text.substr(nul + 1);
    values.index = static_cast<long>(size % 7);
    const std::string path = GenerateOutputName(*name, settings, values).path;

    const std::string extension = "." + OutputFormatExtension(settings.outputFormat);
    fuzz::Check(path.rfind("/out/", 0) == 0 && EndsWith(path, extension),
                "folder / name . extension");
    const std::string expanded = path.substr(5, path.size() - 5 - extension.size());
    fuzz::Check(!Holds(expanded, "/"), "a name never makes a folder");
    if (!Holds(values.source, "[")) {
        fuzz::Check(!Holds(expanded, "["), "every token is replaced");
    }
    const bool numbered = Holds(settings.nameTemplate, "[FileName]") ||
                          Holds(settings.nameTemplate, "[FileIndex]") ||
                          Holds(settings.nameTemplate, "[Date") || settings.nameTemplate.empty();
    if (!numbered) {
        fuzz::Check(EndsWith(expanded, " (" + std::to_string(values.index + 1) + ")"),
                    "a template without a telling token gets its index");
    }
    return 0;
}
