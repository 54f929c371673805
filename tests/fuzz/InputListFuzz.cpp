// `--inputs` lists, newline- or NUL-separated; the first byte chooses.
// Invariant: every path read is non-empty, holds no separator, and is found
// in the text; a newline-separated path does not end with CR.

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
    for (const std::string& path : cli::InputListFromText(text, nulSeparated)) {
        fuzz::Check(!path.empty(), "no empty path");
        fuzz::Check(path.find(separator) == std::string::npos, "no separator inside a path");
        fuzz::Check(nulSeparated || path.back() != '\r', "no CR ending a line's path");
        fuzz::Check(text.find(path) != std::string::npos, "a path is part of the list");
    }
    return 0;
}
