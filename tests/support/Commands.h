#pragma once

#include <string>
#include <vector>

namespace vellumo::test {

struct CommandResult {
    int exitCode = -1;  // -1 when the command did not exit normally
    std::string out;    // standard output, bytes as written
};

// Runs `command` through /bin/sh and captures its standard output.
CommandResult RunCommand(const std::string& command);

// Quotes `text` for /bin/sh.
std::string ShellQuote(const std::string& text);

// Raw pixels as ImageMagick decodes them: `map` is "gray", "graya", "rgb" or
// "rgba", `depth` 8 or 16 (16-bit samples little-endian). `operations` go
// between the input and the output, for example "-auto-orient" or
// "-crop 10x10+5+5 +repage". Only the first page or frame is read.
std::vector<unsigned char> MagickPixels(const std::string& path, const std::string& operations,
                                        const std::string& map, int depth);

struct MagickSize {
    int width = 0;
    int height = 0;
};

// The size ImageMagick reads for the first page or frame, or 0 x 0.
MagickSize MagickIdentifySize(const std::string& path);

// The whole file as bytes.
std::string ReadFileBytes(const std::string& path);

// The CRC-32 of `bytes`, as PNG chunks carry it.
unsigned Crc32(const std::string& bytes);

}  // namespace vellumo::test
