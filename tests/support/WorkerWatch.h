#pragma once

// Watching the image workers from a test: which of them is writing an
// output right now. A worker writes its output into the temporary file the
// engine made beside the output (".vellumo-<engine's id>-<random>.tmp"),
// handed over as a descriptor, which the engine puts in place once it is
// complete; a worker holding such a file with bytes in it is writing.

#include <sys/types.h>

#include <vector>

namespace vellumo::test {

// The worker processes among the descendants of `ancestor` (this process
// by default) that are writing an output now.
std::vector<pid_t> WorkersWriting(pid_t ancestor = 0);

// The descendants of this process running the worker program, sorted.
std::vector<pid_t> Workers();

}  // namespace vellumo::test
