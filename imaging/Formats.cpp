#include "imaging/Formats.h"

#include <algorithm>
#include <cctype>

namespace vellumo {

namespace {

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

template <typename Row, std::size_t N, typename Name>
std::string Joined(const std::array<Row, N>& rows, std::string_view separator, Name name) {
    std::string text;
    for (const Row& row : rows) {
        if (!text.empty()) {
            text += separator;
        }
        text += name(row);
    }
    return text;
}

}  // namespace

const OutputFormatInfo* OutputFormatAt(long index) {
    if (index < 0 || static_cast<std::size_t>(index) >= kOutputFormats.size()) {
        return nullptr;
    }
    return &kOutputFormats[static_cast<std::size_t>(index)];
}

long OutputFormatNamed(std::string_view title) {
    const std::string lower = Lower(title);
    for (std::size_t i = 0; i < kOutputFormats.size(); ++i) {
        if (Lower(kOutputFormats[i].title) == lower) {
            return static_cast<long>(i);
        }
    }
    return -1;
}

std::string OutputFormatExtension(long index) {
    const OutputFormatInfo* format = OutputFormatAt(index);
    return format == nullptr ? std::string() : Lower(format->title);
}

std::string OutputFormatTitles(std::string_view separator) {
    return Joined(kOutputFormats, separator,
                  [](const OutputFormatInfo& row) { return std::string(row.title); });
}

const InputExtensionInfo* InputExtensionOfPath(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    const std::size_t dot = path.rfind('.');
    if (dot == std::string_view::npos || (slash != std::string_view::npos && dot < slash)) {
        return nullptr;
    }
    const std::string extension = Lower(path.substr(dot + 1));
    for (const InputExtensionInfo& row : kInputExtensions) {
        if (row.extension == extension) {
            return &row;
        }
    }
    return nullptr;
}

std::string InputExtensionList(std::string_view separator) {
    return Joined(kInputExtensions, separator,
                  [](const InputExtensionInfo& row) { return std::string(row.extension); });
}

}  // namespace vellumo
