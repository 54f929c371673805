#pragma once

// `vellumo-cli watch FOLDER --output OUT [crop options]`: crops every image
// already in FOLDER and every image that arrives there later, once each,
// until SIGINT or SIGTERM. A file is handed to the engine only when it is
// complete (cli/ArrivingFiles.h); each finished image is recorded in a
// manifest (OUT/.vellumo-watch.jsonl unless --manifest names another), so
// that a watch started again skips what an earlier one did. One line (or
// JSON object) per image, as the batch prints them.
//
// Exit status: 0 after a stop by SIGINT or SIGTERM (the watch's normal
// end: the image in flight is ended, no output is left half-written); 1
// when FOLDER is missing, unreadable or goes away while watched, or an
// image cannot be recorded; 2 after a usage error or when OUT or the
// manifest cannot be used.

#include <stop_token>

namespace vellumo::cli {

// `argv[0]` is "watch".
int RunWatch(int argc, const char* const* argv, const std::stop_source& stop);

}  // namespace vellumo::cli
