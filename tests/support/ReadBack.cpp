#include "tests/support/ReadBack.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/Commands.h"

namespace vellumo::test {

namespace {

std::string TrimLineEnd(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    return text;
}

}  // namespace

std::string ExifToolValue(const std::string& path, const std::string& tag, bool numeric) {
    const std::string command = std::string("exiftool -s3 ") + (numeric ? "-n " : "") +
                                ShellQuote("-" + tag) + " " + ShellQuote(path) + " 2>/dev/null";
    return TrimLineEnd(RunCommand(command).out);
}

std::map<std::string, std::string> ExifToolValues(const std::string& path,
                                                  const std::vector<std::string>& tags,
                                                  bool numeric) {
    std::string command = std::string("exiftool -s -s ") + (numeric ? "-n " : "");
    for (const std::string& tag : tags) {
        command += ShellQuote("-" + tag) + " ";
    }
    const CommandResult result = RunCommand(command + ShellQuote(path) + " 2>/dev/null");
    std::map<std::string, std::string> values;
    std::istringstream lines(result.out);
    for (std::string line; std::getline(lines, line);) {
        const auto colon = line.find(": ");
        if (colon != std::string::npos) {
            values.emplace(line.substr(0, colon), TrimLineEnd(line.substr(colon + 2)));
        }
    }
    return values;
}

std::vector<std::string> ExifToolTags(const std::string& path, const std::string& selection) {
    const CommandResult result = RunCommand("exiftool -s -s -G1 -a -n " + selection + " " +
                                            ShellQuote(path) + " 2>/dev/null");
    std::vector<std::string> tags;
    std::istringstream lines(result.out);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) {
            tags.push_back(line);
        }
    }
    return tags;
}

std::string ExifToolBinary(const std::string& path, const std::string& tag) {
    return RunCommand("exiftool -b " + ShellQuote("-" + tag) + " " + ShellQuote(path) +
                      " 2>/dev/null")
        .out;
}

std::string MagickFormat(const std::string& path) {
    return TrimLineEnd(
        RunCommand("identify -format '%m\\n' " + ShellQuote(path + "[0]") + " 2>/dev/null").out);
}

int MagickJpegQuality(const std::string& path) {
    const std::string out =
        RunCommand("identify -format '%Q' " + ShellQuote(path) + " 2>/dev/null").out;
    int quality = -1;
    std::sscanf(out.c_str(), "%d", &quality);
    return quality;
}

StatTimes StatSeconds(const std::string& path) {
    const std::string out = RunCommand("stat -c '%W %Y' " + ShellQuote(path)).out;
    StatTimes times;
    std::sscanf(out.c_str(), "%lld %lld", &times.birth, &times.modification);
    return times;
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace vellumo::test
