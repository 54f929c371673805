#pragma once

// Inside the core only: starting Exiv2 once, and images it holds in memory.

#include <exiv2/exiv2.hpp>
#include <memory>
#include <string>
#include <vector>

namespace vellumo::exivruntime {

// Starts Exiv2 once per process (any thread may call it first): its
// warnings never reach the terminal (a failure comes back as an
// Exiv2::Error, which the caller turns into a result), and its XMP parser
// is set up before threads share it.
void EnsureStarted();

// The whole file of an image opened over bytes in memory, as it stands
// after writeMetadata(). Throws Exiv2::Error.
std::vector<unsigned char> BytesOf(Exiv2::Image& image);

// Exiv2 0.27 hands images out in a std::auto_ptr; they are held in a
// std::unique_ptr from the moment they are opened.
template <typename Opened>
std::unique_ptr<Exiv2::Image> Open(Opened opened) {
    return std::unique_ptr<Exiv2::Image>(opened.release());
}

// The bytes of a descriptor's file for Exiv2 to parse in place: mapped
// when the file can be (Exiv2 then touches only the pages of the headers it
// reads, not the gigabyte of pixels behind them), read when it cannot (a
// pipe).
class SourceBytes {
  public:
    SourceBytes() = default;
    ~SourceBytes();
    SourceBytes(const SourceBytes&) = delete;
    SourceBytes& operator=(const SourceBytes&) = delete;

    // The file of descriptor name `path` (FileHandles.h); false with a
    // reason when it can be neither mapped nor read.
    bool Take(const std::string& path, std::string& reason);
    const unsigned char* Data() const;
    std::size_t Size() const;

  private:
    void* mapped_ = nullptr;
    std::size_t mappedSize_ = 0;
    std::vector<unsigned char> read_;
};

// The file at `path`, opened by Exiv2, its metadata not read yet. A
// descriptor's name (FileHandles.h), which Exiv2 would open anew, is given
// to Exiv2 through `bytes`, which must then outlive the image. Throws
// Exiv2::Error.
std::unique_ptr<Exiv2::Image> OpenFile(const std::string& path, SourceBytes& bytes);

}  // namespace vellumo::exivruntime
