#include "cli/TerminalPrompt.h"

#include <iostream>
#include <string>

namespace vellumo::cli {

namespace {

int AskOnTerminal(const std::string& question) {
    for (;;) {
        std::cerr << question << " [y]es, yes to [a]ll, [n]o, no to a[l]l: " << std::flush;
        std::string answer;
        if (!std::getline(std::cin, answer)) {
            std::cerr << std::endl;
            return kAnswerNoToAll;
        }
        if (answer == "y" || answer == "yes")
            return kAnswerYes;
        if (answer == "a" || answer == "yes to all")
            return kAnswerYesToAll;
        if (answer == "n" || answer == "no")
            return kAnswerNo;
        if (answer == "l" || answer == "no to all")
            return kAnswerNoToAll;
    }
}

}  // namespace

OverwriteAsker MakeOverwriteAsker(OverwriteMode mode) {
    switch (mode) {
        case OverwriteMode::All:
            return [](const std::string&) { return kAnswerYesToAll; };
        case OverwriteMode::None:
            return [](const std::string&) { return kAnswerNoToAll; };
        case OverwriteMode::Ask:
            break;
    }
    return AskOnTerminal;
}

}  // namespace vellumo::cli
