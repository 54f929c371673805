#include "tests/support/Commands.h"

#include <stdio.h>
#include <sys/wait.h>
#include <zlib.h>

#include <array>
#include <fstream>
#include <iterator>

namespace vellumo::test {

CommandResult RunCommand(const std::string& command) {
    CommandResult result;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return result;
    }
    std::array<char, 65536> buffer{};
    for (;;) {
        const std::size_t read = fread(buffer.data(), 1, buffer.size(), pipe);
        if (read == 0) {
            break;
        }
        result.out.append(buffer.data(), read);
    }
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

std::string ShellQuote(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) {
        if (c == '\'') {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    return quoted + "'";
}

std::vector<unsigned char> MagickPixels(const std::string& path, const std::string& operations,
                                        const std::string& map, int depth) {
    // "-set colorspace sRGB" keeps ImageMagick from turning samples it
    // reads as linear (a gAMA of 1.0, say) into sRGB on the way out.
    const std::string command = "convert " + ShellQuote(path + "[0]") + " -set colorspace sRGB " +
                                operations + " -depth " + std::to_string(depth) + " -endian LSB " +
                                map + ":- 2>/dev/null";
    const CommandResult result = RunCommand(command);
    return {result.out.begin(), result.out.end()};
}

MagickSize MagickIdentifySize(const std::string& path) {
    const CommandResult result =
        RunCommand("identify -format '%w %h' " + ShellQuote(path + "[0]") + " 2>/dev/null");
    MagickSize size;
    if (sscanf(result.out.c_str(), "%d %d", &size.width, &size.height) != 2) {
        return {};
    }
    return size;
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

unsigned Crc32(const std::string& bytes) {
    return static_cast<unsigned>(
        crc32(0L, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

}  // namespace vellumo::test
