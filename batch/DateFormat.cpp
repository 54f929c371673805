#include "batch/DateFormat.h"

#include <array>
#include <cctype>
#include <cstdio>
#include <string_view>

namespace vellumo {

namespace {

bool IsLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

std::size_t RunLength(const std::string& text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && text[end] == text[at]) {
        ++end;
    }
    return end - at;
}

std::string Digits(int value, int width) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*d", width, value);
    return text.data();
}

}  // namespace

std::optional<DateFormat> DateFormat::Parse(const std::string& pattern, std::string& problem) {
    if (pattern.empty()) {
        problem = "an empty date pattern";
        return std::nullopt;
    }
    DateFormat format;
    for (std::size_t at = 0; at < pattern.size();) {
        const char c = pattern[at];
        if (!IsLetter(c)) {
            format.pieces_.push_back({Field::Literal, false, std::string(1, c)});
            ++at;
            continue;
        }
        const std::size_t run = RunLength(pattern, at);
        Piece piece;
        if (c == 'y' && (run == 4 || run == 2)) {
            piece.field = run == 4 ? Field::Year4 : Field::Year2;
        } else if (run <= 2 && (c == 'M' || c == 'd' || c == 'H' || c == 'm' || c == 's')) {
            piece.field = c == 'M'   ? Field::Month
                          : c == 'd' ? Field::Day
                          : c == 'H' ? Field::Hour
                          : c == 'm' ? Field::Minute
                                     : Field::Second;
            piece.padded = run == 2;
        } else {
            problem = "the date pattern letters \"" + pattern.substr(at, run) +
                      "\" (use yyyy yy MM M dd d HH H mm m ss s)";
            return std::nullopt;
        }
        format.pieces_.push_back(piece);
        at += run;
    }
    return format;
}

std::string DateFormat::Format(const CalendarTime& time) const {
    std::string text;
    for (const Piece& piece : pieces_) {
        const int width = piece.padded ? 2 : 1;
        switch (piece.field) {
            case Field::Literal:
                text += piece.literal;
                break;
            case Field::Year4:
                text += Digits(time.year, 4);
                break;
            case Field::Year2:
                text += Digits(time.year % 100, 2);
                break;
            case Field::Month:
                text += Digits(time.month, width);
                break;
            case Field::Day:
                text += Digits(time.day, width);
                break;
            case Field::Hour:
                text += Digits(time.hour, width);
                break;
            case Field::Minute:
                text += Digits(time.minute, width);
                break;
            case Field::Second:
                text += Digits(time.second, width);
                break;
        }
    }
    return text;
}

}  // namespace vellumo
