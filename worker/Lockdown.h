#pragma once

// Inside the worker only: the worker locks itself down before it reads its
// first request, in this order, and never undoes it:
//
//   1. no new privileges (no set-user-id program can give any back);
//   2. every descriptor closed but its socket (and standard input, output
//      and error, which the engine points at /dev/null);
//   3. an empty environment;
//   4. limits: no core files, few descriptors, the address space as the
//      engine says, files no larger than a message can carry;
//   5. Landlock: reading only what the decoders load, nothing writable, no
//      TCP, no signals or abstract sockets outside the worker;
//   6. seccomp: no network, programs, tracing, namespaces, ...
//
// Each layer that cannot be had is reported missing with the reason, never
// silently left out. The libraries that read the environment or their
// configuration when they start are started before.

#include <cstdint>
#include <set>
#include <string>

#include "worker/SandboxStatus.h"

namespace vellumo {

struct LockdownChoices {
    int socket = -1;
    std::uint64_t addressSpace = 0;  // 0: no limit
    // Layers left out on purpose (a test that checks the status tells the
    // truth), by name.
    std::set<std::string> skip;
};

SandboxStatus LockDown(const LockdownChoices& choices);

}  // namespace vellumo
