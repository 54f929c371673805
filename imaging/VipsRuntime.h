#pragma once

// Inside the core only: starting libvips once, and collecting its warnings
// per thread so that they become part of a reason instead of flooding the
// terminal.

#include <string>
#include <vips/vips8>

namespace vellumo::vipsruntime {

// Starts libvips once per process (any thread may call it first). Turns off
// the operation cache (files may change between two loads of one path) and
// blocks every file loader except those of the kinds Vellumo reads.
void EnsureStarted();

// How many threads libvips gives one image's pipeline. A worker process
// works on one image at a time beside other workers, one per core, so one
// thread each keeps the cores busy without contention and with half the
// buffers; the default is one per core.
void SetThreadsPerImage(int threads);

// Guards a run of libvips calls on this thread: collects the warnings they
// raise, and turns a vips::VError they throw into a one-line reason. libvips
// keeps one error text for the whole process and appends to it, so the
// scope remembers where that text stood when it began and reads only what
// was added since. Nested scopes share one warning buffer.
class FailureScope {
  public:
    FailureScope();
    ~FailureScope();
    FailureScope(const FailureScope&) = delete;
    FailureScope& operator=(const FailureScope&) = delete;

    // The reason for `error`, thrown inside this scope. Where the error only
    // says that a decoder failed, the first warning before it gives the
    // cause: this thread's, else `elsewhere` (a warning raised on another
    // thread that decoded for this one).
    std::string Reason(const vips::VError& error, const std::string& elsewhere = {}) const;

    // The part of `error`'s text that was added inside this scope.
    std::string OwnText(const vips::VError& error) const;

    // The warnings so far, one per line, oldest first.
    std::string Warnings() const;

  private:
    std::size_t errorTextStart_;
};

// The libvips warnings raised on this thread while it lives (a decoder's,
// as the thread asks it for pixels), without touching the error text: for
// libvips' own worker threads, which have no FailureScope.
class WarningCollector {
  public:
    WarningCollector();
    ~WarningCollector();
    WarningCollector(const WarningCollector&) = delete;
    WarningCollector& operator=(const WarningCollector&) = delete;

    // The first warning raised since it was made, or nothing.
    std::string First() const;

  private:
    std::size_t start_;
};

// A one-line reason from a libvips error text: the most telling line, with
// the library's own prefixes ("VipsJpeg: ", "jpegload: ") removed.
std::string ReasonFromError(const std::string& errorText);

}  // namespace vellumo::vipsruntime
