#pragma once

// For the tests only (compiled into vellumo-worker-probe, never into the
// worker Vellumo ships): a "probe" request makes the worker, after its
// lockdown, act as a decoder taken over by a hostile file and try each
// thing the sandbox forbids. The request:
//
//   {"type": "probe", "read": [paths], "write": [paths], "create": path,
//    "remove": path, "tcpPort": n, "program": path}
//
// The reply, {"type": "probe-results", "results": {act: "ok" | error}},
// names each act ("read <path>", "write <path>", "create", "remove",
// "socket", "connect", "execve", "signal engine", "trace engine") with
// "ok" when it worked, else the error's name ("EACCES", "EPERM", ...).

#include "worker/WorkerProtocol.h"

namespace vellumo::sandboxprobe {

bool IsProbe(const workerprotocol::Message& frame);

workerprotocol::Message Run(const workerprotocol::Message& frame);

}  // namespace vellumo::sandboxprobe
