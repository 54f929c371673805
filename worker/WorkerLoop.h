#pragma once

// The worker process's side: answers the engine's requests on `socket`
// until the engine goes away. Each image is checked against the pixel limit
// from its header before anything is decoded.

namespace vellumo {

int RunWorker(int socket);

}  // namespace vellumo
