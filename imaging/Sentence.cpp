#include "imaging/Sentence.h"

namespace vellumo {

std::string FillPattern(const std::string& pattern, const std::vector<std::string>& values) {
    std::string filled;
    filled.reserve(pattern.size());
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char next = i + 1 < pattern.size() ? pattern[i + 1] : '\0';
        const auto number = static_cast<std::size_t>(next - '0');
        if (pattern[i] == '%' && next >= '1' && next <= '9' && number <= values.size()) {
            filled += values[number - 1];
            ++i;
        } else {
            filled += pattern[i];
        }
    }
    return filled;
}

std::string Sentence::English() const {
    return FillPattern(pattern, values);
}

void Append(Sentences& sentences, const Sentence& more) {
    if (!more.empty()) {
        sentences.push_back(more);
    }
}

void Append(Sentences& sentences, const Sentences& more) {
    for (const Sentence& sentence : more) {
        Append(sentences, sentence);
    }
}

std::string EnglishLine(const Sentences& sentences) {
    std::string line;
    for (const Sentence& sentence : sentences) {
        if (!line.empty()) {
            line += "; ";
        }
        line += sentence.English();
    }
    return line;
}

}  // namespace vellumo
