#include "tests/support/TempDir.h"

#include <stdlib.h>

#include <stdexcept>
#include <system_error>

namespace vellumo::test {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vellumo-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("cannot create a temporary folder");
    }
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ignored;
    // Tests may have taken write permission away from files in here.
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ignored);
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace vellumo::test
