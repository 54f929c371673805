#pragma once

// The worker process's side: greets the engine with how it locked itself
// down (`sandbox`), then answers the engine's requests on `socket` until the
// engine goes away. Each image is checked against the pixel limit from its
// header before anything is decoded.

#include "worker/SandboxStatus.h"

namespace vellumo {

int RunWorker(int socket, const SandboxStatus& sandbox);

}  // namespace vellumo
