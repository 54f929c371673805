#pragma once

// vellumo-cli verify --manifest FILE... --inputs FILE [--null] [--hash]
//
// Checks that a batch, however many runs and machines shared it, did every
// input exactly once: reads every run's manifest and the batch's input list
// and prints each input that is missing, failed, was done more than once, or
// whose output is gone or changed since (its length, or with --hash its
// SHA-256), then a summary line.
//
// Exit status: 0 when every input was done exactly once and its output is
// as recorded, 1 otherwise, 2 when a manifest or the list cannot be read.

namespace vellumo::cli {

int RunVerify(int argc, char** argv);

}  // namespace vellumo::cli
