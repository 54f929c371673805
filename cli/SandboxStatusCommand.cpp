#include "cli/SandboxStatusCommand.h"

#include <iostream>

#include "worker/WorkerProcess.h"

namespace vellumo::cli {

int RunSandboxStatus() {
    WorkerProcess worker;
    std::string failure;
    const SandboxStatus status = worker.StartForStatus(failure);
    if (status.empty()) {
        std::cerr << "vellumo-cli: " << failure << std::endl;
        return 2;
    }
    std::cout << "The image worker's sandbox (" << WorkerExecutablePath() << "):\n"
              << DescribeSandbox(status);
    if (!SandboxComplete(status)) {
        std::cout << "Incomplete: --require-sandbox refuses to decode." << std::endl;
        return 1;
    }
    std::cout << "Complete." << std::endl;
    return 0;
}

}  // namespace vellumo::cli
