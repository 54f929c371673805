#pragma once

// The engine's sentences in the window's language: each pattern is looked
// up among the translations (context "Engine", filled by lupdate from the
// core's VELLUMO_TEXT marks) and the engine's values are put into the
// translated pattern. A pattern without a translation reads in English.

#include <QString>

#include "imaging/Failure.h"
#include "imaging/Sentence.h"

namespace vellumo {

QString EngineText(const Sentence& sentence);

// The sentences on one line, joined as the language joins clauses ("a; b").
QString EngineText(const Sentences& sentences);

// "cannot decode: not a JPEG file" in the window's language: the stage
// worded by the window, the cause by EngineText. A failure without a cause
// keeps its reason as the engine wrote it.
QString FailureText(const Failure& failure);

}  // namespace vellumo
