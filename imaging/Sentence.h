#pragma once

// A sentence for a person, kept as its English pattern and the values put
// into it, so that each front end words it: the command line prints the
// English, the window looks the pattern up among its translations (the
// "Engine" context) and puts the same values into the translated pattern.

#include <string>
#include <vector>

// Marks an English pattern for the translators' tools. lupdate reads it as
// QT_TRANSLATE_NOOP (see ui/CMakeLists.txt), so the first argument is the
// context the window looks the pattern up in; the code gets the pattern.
#define VELLUMO_TEXT(context, pattern) pattern

namespace vellumo {

struct Sentence {
    // "Clipped to %1 × %2": %1 to %9 stand for the values in order.
    std::string pattern;
    std::vector<std::string> values;

    bool empty() const { return pattern.empty(); }
    // The pattern with its values put in.
    std::string English() const;

    friend bool operator==(const Sentence&, const Sentence&) = default;
};

// The sentences said about one image, in the order they arose.
using Sentences = std::vector<Sentence>;

// `more` after `sentences`, leaving out empty ones.
void Append(Sentences& sentences, const Sentence& more);
void Append(Sentences& sentences, const Sentences& more);

// The sentences in English on one line: "a; b".
std::string EnglishLine(const Sentences& sentences);

// `pattern` with %1 … %9 replaced by `values` in one pass, so that a value
// holding "%2" stays as it is; a number without a value stays as written.
std::string FillPattern(const std::string& pattern, const std::vector<std::string>& values);

}  // namespace vellumo
