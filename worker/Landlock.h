#pragma once

// Inside the worker only: the Landlock layer of its sandbox.

#include "worker/SandboxStatus.h"

namespace vellumo::landlock {

// Restricts this thread and every thread it starts from now on, for good:
// every file-system right the running kernel knows is handled, and only
// reading is allowed, below the folders the decoders load their own files
// from (libraries, ImageMagick's configuration, colour profiles, /proc/self
// for the sanitizers' runtimes). Nothing may be written, created or removed
// anywhere. From ABI 4 on no TCP port may be bound or connected to; from ABI
// 6 on no abstract unix socket outside the worker may be reached and no
// process outside it signalled. Needs no-new-privileges set first.
SandboxLayer Restrict();

}  // namespace vellumo::landlock
