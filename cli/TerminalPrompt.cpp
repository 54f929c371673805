#include "cli/TerminalPrompt.h"

#include <iostream>
#include <string>

namespace vellumo::cli {

namespace {

OverwriteAnswer AskOnTerminal(const std::string& path) {
    for (;;) {
        std::cerr << OverwriteQuestion(path)
                  << " [y]es, yes to [a]ll, [n]o, no to a[l]l: " << std::flush;
        std::string answer;
        if (!std::getline(std::cin, answer)) {
            std::cerr << std::endl;
            return OverwriteAnswer::NoToAll;
        }
        if (answer == "y" || answer == "yes")
            return OverwriteAnswer::Yes;
        if (answer == "a" || answer == "yes to all")
            return OverwriteAnswer::YesToAll;
        if (answer == "n" || answer == "no")
            return OverwriteAnswer::No;
        if (answer == "l" || answer == "no to all")
            return OverwriteAnswer::NoToAll;
    }
}

}  // namespace

OverwriteAsker MakeOverwriteAsker(OverwriteMode mode) {
    switch (mode) {
        case OverwriteMode::All:
            return [](const std::string&) { return OverwriteAnswer::YesToAll; };
        case OverwriteMode::None:
            return [](const std::string&) { return OverwriteAnswer::NoToAll; };
        case OverwriteMode::Ask:
            break;
    }
    return AskOnTerminal;
}

}  // namespace vellumo::cli
