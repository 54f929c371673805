#pragma once

// Inside the core only: starting libvips once, and collecting its warnings
// per thread so that they become part of a reason instead of flooding the
// terminal.

#include <string>
#include <vips/vips8>

namespace vellumo::vipsruntime {

// Starts libvips once per process (any thread may call it first). Turns off
// the operation cache (files may change between two loads of one path) and
// blocks every file loader except the six Vellumo reads.
void EnsureStarted();

// Collects the libvips warnings raised on this thread while it lives;
// nested collectors share one buffer.
class WarningCollector {
public:
    WarningCollector();
    ~WarningCollector();
    WarningCollector(const WarningCollector&) = delete;
    WarningCollector& operator=(const WarningCollector&) = delete;

    // The warnings so far, one per line, oldest first.
    std::string Text() const;
};

// A one-line reason from a libvips error text: the most telling line, with
// the library's own prefixes ("VipsJpeg: ", "jpegload: ") removed.
std::string ReasonFromError(const std::string& errorText);

}  // namespace vellumo::vipsruntime
