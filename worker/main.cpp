// vellumo-worker: decodes and encodes images for the Vellumo engine in a
// process of its own, so that a hostile file can take down only this
// process. Started by the engine; not meant to be run by hand:
//
//   vellumo-worker --socket-fd N --address-space BYTES [--priority background]
//                  [--sandbox-skip LAYER,LAYER...]
//
// Before it reads its first request it locks itself down (Lockdown.h); how
// that went is the first thing it tells the engine.

#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <thread>

#include "imaging/ExivRuntime.h"
#include "imaging/VipsRuntime.h"
#include "worker/Lockdown.h"
#include "worker/WorkerLoop.h"

namespace {

// Told to stop: at once. The worker owns no file (the engine made its
// output's and removes it), so there is nothing to tidy.
void OnTerminate(int) {
    _exit(1);
}

// Ends the worker as soon as the engine's end of the socket closes, however
// the engine ended (quit, crash, killed), also while an image is being
// worked on. The socket tells of its own end whichever thread of the engine
// started the worker, which a parent-death signal does not.
void WatchTheEngine(int socket) {
    std::thread([socket] {
        pollfd engine{socket, POLLRDHUP, 0};
        for (;;) {
            if (poll(&engine, 1, -1) > 0 &&
                (engine.revents & (POLLRDHUP | POLLHUP | POLLERR | POLLNVAL)) != 0) {
                OnTerminate(0);
            }
        }
    }).detach();
}

}  // namespace

namespace {

// "landlock,seccomp" as a set of names.
std::set<std::string> Names(const char* list) {
    std::set<std::string> names;
    std::string name;
    for (const char* c = list;; ++c) {
        if (*c == ',' || *c == '\0') {
            if (!name.empty())
                names.insert(name);
            name.clear();
            if (*c == '\0')
                break;
        } else {
            name += *c;
        }
    }
    return names;
}

// What the libraries read from the environment and their own files when
// they start, they read now, before the environment is emptied and the file
// system closed: libvips (its modules and VIPS_* settings; one thread an
// image here, beside one worker per core, unless VIPS_CONCURRENCY says
// otherwise) and Exiv2. They start no thread yet: Landlock binds only the
// threads started after it.
void StartLibraries() {
    if (std::getenv("VIPS_CONCURRENCY") == nullptr) {
        vellumo::vipsruntime::SetThreadsPerImage(1);
    }
    vellumo::vipsruntime::EnsureStarted();
    vellumo::exivruntime::EnsureStarted();
}

}  // namespace

int main(int argc, char** argv) {
    vellumo::LockdownChoices choices;
    bool background = false;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--priority") == 0)
            background = std::strcmp(argv[i + 1], "background") == 0;
        if (std::strcmp(argv[i], "--socket-fd") == 0)
            choices.socket = std::atoi(argv[i + 1]);
        if (std::strcmp(argv[i], "--address-space") == 0)
            choices.addressSpace = std::strtoull(argv[i + 1], nullptr, 10);
        if (std::strcmp(argv[i], "--sandbox-skip") == 0)
            choices.skip = Names(argv[i + 1]);
    }
    if (choices.socket < 0) {
        std::fputs("vellumo-worker: started by Vellumo only (--socket-fd missing)\n", stderr);
        return 2;
    }
    // Ends with the engine, however the engine ends.
    struct sigaction action {};
    action.sa_handler = OnTerminate;
    sigaction(SIGTERM, &action, nullptr);
    // A sanitizer's shadow memory takes terabytes of address space: a build
    // with one runs its worker without the limit.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    choices.addressSpace = 0;
#endif
    if (background) {
        // The lowest priority there is: only idle cores do this work.
        setpriority(PRIO_PROCESS, 0, 19);
    }
    StartLibraries();
    const vellumo::SandboxStatus sandbox = vellumo::LockDown(choices);
    WatchTheEngine(choices.socket);
    return vellumo::RunWorker(choices.socket, sandbox);
}
