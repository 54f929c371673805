#pragma once

// Inside the core only: failed file operations told in words a person
// understands.

#include <string>

namespace vellumo {

// "the folder does not exist", "permission denied", "no space left on
// device", ... for an errno value.
std::string ReasonFromErrno(int error);

// For a library's error text that reports a system error (it quotes the
// system's message, "No space left on device"): the wording of
// ReasonFromErrno. Empty when the text names none of the usual ones.
std::string ReasonFromSystemErrorText(const std::string& text);

}  // namespace vellumo
