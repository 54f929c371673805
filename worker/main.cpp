// vellumo-worker: decodes and encodes images for the Vellumo engine in a
// process of its own, so that a hostile file can take down only this
// process. Started by the engine; not meant to be run by hand:
//
//   vellumo-worker --socket-fd N --address-space BYTES

#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "batch/WorkerLoop.h"
#include "imaging/AtomicFile.h"

namespace {

// Told to stop (the engine went away mid-write): leave no temporary file.
void OnTerminate(int) {
    vellumo::atomicfile::RemoveCurrentTemporaryFromSignalHandler();
    _exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    int socket = -1;
    unsigned long long addressSpace = 0;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--socket-fd") == 0)
            socket = std::atoi(argv[i + 1]);
        if (std::strcmp(argv[i], "--address-space") == 0)
            addressSpace = std::strtoull(argv[i + 1], nullptr, 10);
    }
    if (socket < 0) {
        std::fputs("vellumo-worker: started by Vellumo only (--socket-fd missing)\n", stderr);
        return 2;
    }
    // Ends with the engine, however the engine ends.
    struct sigaction action {};
    action.sa_handler = OnTerminate;
    sigaction(SIGTERM, &action, nullptr);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() == 1) {
        return 0;
    }
    if (addressSpace > 0) {
        const rlimit limit{addressSpace, addressSpace};
        setrlimit(RLIMIT_AS, &limit);
    }
    return vellumo::RunWorker(socket);
}
