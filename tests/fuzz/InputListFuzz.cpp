// `--inputs` lists, newline- or NUL-separated; the first byte chooses.
// Invariants: every path read is non-empty, holds no separator, and is found
// in the text; the paths written back as a list (in the newline form, a
// path ending with CR written with CR LF, as a list from Windows has it)
// read as the same paths.

#include "cli/InputList.h"
#include "tests/fuzz/FuzzCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellumo;
    if (size == 0) {
        return 0;
    }
    const bool nulSeparated = (data[0] & 1) != 0;
    const std::string text = fuzz::Text(data + 1, size - 1);
    const char separator = nulSeparated ? '\0' : '\n';
    const std::vector<std::string> paths = cli::InputListFromText(text, nulSeparated);
    std::string written;
    for (const std::string& path : paths) {
        fuzz::Check(!path.empty(), "no empty path");
        fuzz::Check(path.find(separator) == std::string::npos, "no separator inside a path");
        fuzz::Check(text.find(path) != std::string::npos, "a path is part of the list");
        written += path + (!nulSeparated && path.back() == '\r' ? "\r" : "") + separator;
    }
    fuzz::Check(cli::InputListFromText(written, nulSeparated) == paths,
                "a list written back reads as the same paths");
    return 0;
}
