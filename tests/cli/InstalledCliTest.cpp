// vellumo-cli as a package installs it: its version line, and its worker
// found in ../libexec/vellumo from its own folder rather than in the build
// tree, which it only falls back on.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/cli/CliFixture.h"
#include "tests/support/TestImages.h"

namespace vellumo {
namespace {

namespace fs = std::filesystem;
using test::ShellQuote;

TEST_F(CliTest, VersionPrintsTheProgramAndTheProjectVersion) {
    const CliRun run = Cli("--version");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "vellumo-cli " VELLUMO_VERSION "\n");
    EXPECT_EQ(run.err, "");
}

// A copy of the program in <root>/bin, as installed, with no worker beside
// it. The worker at <root>/libexec/vellumo is a stand-in that notes the path
// it was started by, then becomes the build's worker, which does the work.
TEST_F(CliTest, AnInstalledCopyStartsTheWorkerInLibexec) {
    const fs::path root = dir.path() / "usr";
    fs::create_directories(root / "bin");
    fs::create_directories(root / "libexec" / "vellumo");
    const fs::path cli = root / "bin" / "vellumo-cli";
    fs::copy_file(VELLUMO_CLI, cli);
    const fs::path worker = root / "libexec" / "vellumo" / "vellumo-worker";
    std::ofstream(worker) << "#!/bin/sh\necho \"$0\" >>" << ShellQuote(dir.File("started"))
                          << "\nexec " << ShellQuote(VELLUMO_BINARY_DIR "/worker/vellumo-worker")
                          << " \"$@\"\n";
    fs::permissions(worker, fs::perms::owner_all, fs::perm_options::add);
    test::CoordinateImage(80, 60).pngsave(dir.File("a.png").c_str());

    const test::CommandResult result =
        test::RunCommand("env -u VELLUMO_WORKER " + ShellQuote(cli.string()) +
                         " --pixels 0,0,40,30 --quiet " + "--format png --name a --output " +
                         ShellQuote(Out()) + " " + ShellQuote(dir.File("a.png")) + " </dev/null");
    EXPECT_EQ(result.exitCode, 0) << result.out;
    // The program's folder is read from /proc/self/exe, which resolves links.
    EXPECT_EQ(test::ReadFile(dir.File("started")), fs::canonical(worker).string() + "\n");
    const test::MagickSize size = test::MagickIdentifySize(Out() + "/a (1).png");
    EXPECT_EQ(size.width, 40);
    EXPECT_EQ(size.height, 30);
}

}  // namespace
}  // namespace vellumo
