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

// Each row sits at its format's place, so a format finds its row by value.
constexpr bool RowsInFormatOrder() {
    for (std::size_t i = 0; i < kOutputFormats.size(); ++i) {
        if (static_cast<std::size_t>(kOutputFormats[i].format) != i) {
            return false;
        }
    }
    return true;
}
static_assert(RowsInFormatOrder());

}  // namespace

const OutputFormatInfo& InfoOf(OutputFormat format) {
    return kOutputFormats.at(static_cast<std::size_t>(PositionOfOutputFormat(format)));
}

std::optional<OutputFormat> OutputFormatNamed(std::string_view title) {
    const std::string lower = Lower(title);
    for (const OutputFormatInfo& row : kOutputFormats) {
        if (Lower(row.title) == lower) {
            return row.format;
        }
    }
    return std::nullopt;
}

std::string OutputFormatExtension(OutputFormat format) {
    return Lower(InfoOf(format).title);
}

std::optional<OutputFormat> OutputFormatAtPosition(long position) {
    if (position < 0 || static_cast<std::size_t>(position) >= kOutputFormats.size()) {
        return std::nullopt;
    }
    return kOutputFormats[static_cast<std::size_t>(position)].format;
}

long PositionOfOutputFormat(OutputFormat format) {
    return static_cast<long>(format);
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
