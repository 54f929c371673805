#include "cli/InputList.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>

namespace vellumo::cli {

Loaded<std::vector<std::string>> ReadInputList(const std::string& path, bool nulSeparated) {
    std::string text;
    if (path == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
    } else {
        std::ifstream file(path, std::ios::binary);
        if (!file) {
            return Loaded<std::vector<std::string>>::Failure(std::strerror(errno));
        }
        text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        if (file.bad()) {
            return Loaded<std::vector<std::string>>::Failure(std::strerror(errno));
        }
    }
    return Loaded<std::vector<std::string>>::Success(InputListFromText(text, nulSeparated));
}

std::vector<std::string> InputListFromText(const std::string& text, bool nulSeparated) {
    const char separator = nulSeparated ? '\0' : '\n';
    std::vector<std::string> paths;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::string::npos) {
            end = text.size();
        }
        std::string entry = text.substr(start, end - start);
        // Lists written on Windows end their lines with CR LF.
        if (!nulSeparated && !entry.empty() && entry.back() == '\r') {
            entry.pop_back();
        }
        if (!entry.empty()) {
            paths.push_back(std::move(entry));
        }
        start = end + 1;
    }
    return paths;
}

}  // namespace vellumo::cli
