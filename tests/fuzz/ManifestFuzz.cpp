// Manifests are appended to by runs that may be killed at any byte, and
// concatenated by people merging the manifests of several machines.
// Invariants, for a text that reads:
// - a torn line after it (a run killed while writing) changes nothing;
// - the text twice (duplicated lines) reads as its entries twice;
// - each entry written back as a line reads as the same line.

#include "batch/Manifest.h"
#include "tests/fuzz/FuzzCheck.h"

namespace {

using vellumo::ManifestEntry;

std::vector<std::string> Lines(const std::vector<ManifestEntry>& entries) {
    std::vector<std::string> lines;
    for (const ManifestEntry& entry : entries) {
        lines.push_back(vellumo::ManifestLine(entry));
    }
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo;
    const std::string text = fuzz::Text(data, size);
    const auto read = ManifestFromText(text);
    if (!read) {
        return 0;
    }
    const std::vector<std::string> lines = Lines(*read);
    // Only whole lines count: what follows the last newline is torn.
    const std::string whole = text.substr(0, text.rfind('\n') + 1);
    const auto torn = ManifestFromText(whole + "{\"source\": \"/a.jpg\", \"out");
    fuzz::Check(torn && Lines(*torn) == lines, "a torn last line is left out");
    const auto twice = ManifestFromText(whole + whole);
    fuzz::Check(twice && twice->size() == 2 * read->size(), "duplicated lines read twice");
    std::string rewritten;
    for (const std::string& line : lines) {
        rewritten += line + "\n";
    }
    const auto again = ManifestFromText(rewritten);
    fuzz::Check(again && Lines(*again) == lines, "an entry written back reads as itself");
    return 0;
}
