#pragma once

// Running vellumo-cli from a test: its exit status, what it printed, and
// its JSON objects.

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TempDir.h"

namespace vellumo {

struct CliRun {
    int exitCode;
    std::string out;
    std::string err;
    std::vector<nlohmann::json> objects;  // with --json
};

class CliTest : public ::testing::Test {
  protected:
    // Runs vellumo-cli with `arguments` (already quoted), standard input
    // empty, in `workingFolder` when one is set.
    CliRun Cli(const std::string& arguments) {
        const std::string errFile = dir.File("stderr.txt");
        const std::string in =
            workingFolder.empty() ? "" : "cd " + test::ShellQuote(workingFolder) + " && ";
        const test::CommandResult result =
            test::RunCommand(in + test::ShellQuote(VELLUMO_CLI) + " " + arguments +
                             " </dev/null 2>" + test::ShellQuote(errFile));
        CliRun run{result.exitCode, result.out, test::ReadFile(errFile), {}};
        std::istringstream lines(result.out);
        for (std::string line; std::getline(lines, line);) {
            if (!line.empty() && line[0] == '{')
                run.objects.push_back(nlohmann::json::parse(line));
        }
        return run;
    }
    std::string Files(const std::vector<std::string>& paths) {
        std::string text;
        for (const auto& p : paths) {
            // Appended piece by piece: GCC 12 at -O3 warns, wrongly, of an
            // overlapping copy in "literal" + std::string (its -Wrestrict).
            text += ' ';
            text += test::ShellQuote(p);
        }
        return text;
    }
    std::string Out() { return dir.File("out"); }

    test::TempDir dir;
    std::string workingFolder;
};

}  // namespace vellumo
