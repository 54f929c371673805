#pragma once

#include <filesystem>
#include <string>

namespace vellumo::test {

// A fresh folder under the system's temporary folder, removed with its
// contents when the object goes.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // The path of `name` inside the folder, as text.
    std::string File(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

}  // namespace vellumo::test
