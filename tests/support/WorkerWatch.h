#pragma once

// Watching the image workers from a test: which of them is writing an
// output right now. A worker writes its output into a memory file of its
// own ("/memfd:vellumo-output"), which the engine writes out once it is
// complete; a worker whose memory file holds bytes is writing.

#include <sys/types.h>

#include <vector>

namespace vellumo::test {

// The worker processes among the descendants of `ancestor` (this process
// by default) that are writing an output now.
std::vector<pid_t> WorkersWriting(pid_t ancestor = 0);

}  // namespace vellumo::test
