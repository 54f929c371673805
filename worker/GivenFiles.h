#pragma once

// Inside the core only: the open files the engine hands its worker with a
// request, over their socket (SCM_RIGHTS). Each request frame is preceded
// by one byte saying which descriptors come with it:
//
//   bit 0: the source, opened read-only by the engine
//   bit 1: the output as it is now (a metadata-only task, a skipped image
//          whose kept file gets the metadata)
//
// The worker never opens a path of the user's files: it reads these.

namespace vellumo {

struct GivenFiles {
    int source = -1;  // -1: none (the engine could not open it)
    int output = -1;
};

// Sends the byte and the descriptors (the caller keeps and closes its own).
// False when the worker is gone.
bool SendGivenFiles(int socket, const GivenFiles& files);

// Receives them (close-on-exec, owned by the caller from now on). False when
// the engine is gone or sent something else.
bool ReceiveGivenFiles(int socket, GivenFiles& files);

// Closes what is open and marks it so.
void CloseGivenFiles(GivenFiles& files);

}  // namespace vellumo
