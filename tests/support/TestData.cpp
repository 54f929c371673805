#include "tests/support/TestData.h"

#include <cstdlib>
#include <filesystem>

namespace vellumo::test {

std::string TestDataPath(const std::string& relative) {
    return (std::filesystem::path(VELLUMO_TESTDATA_DIR) / relative).string();
}

bool HaveTestData() {
    return std::filesystem::exists(TestDataPath("README.md"));
}

bool TestDataRequired() {
    const char* ci = std::getenv("CI");
    return ci != nullptr && std::string(ci) == "true";
}

std::string BuildPath(const std::string& relative) {
    return (std::filesystem::path(VELLUMO_BINARY_DIR) / relative).string();
}

}  // namespace vellumo::test
