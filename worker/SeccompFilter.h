#pragma once

// Inside the worker only: the seccomp layer of its sandbox.

#include "worker/SandboxStatus.h"

namespace vellumo::seccompfilter {

// Installs the worker's system-call filter on every thread of the process,
// for good. Needs no-new-privileges set first.
SandboxLayer Install();

}  // namespace vellumo::seccompfilter
