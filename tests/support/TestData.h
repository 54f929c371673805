#pragma once

#include <string>

namespace vellumo::test {

// The absolute path of a file under the shared real-world test images.
std::string TestDataPath(const std::string& relative);

// True when the shared test images are present.
bool HaveTestData();

// True where missing test images are a failure, not a reason to skip: in CI
// (CI=true), which always has them.
bool TestDataRequired();

// A file that a test writes into the build tree (benchmarks and tests share
// generated inputs there).
std::string BuildPath(const std::string& relative);

}  // namespace vellumo::test

// Skips the current test when the shared test images are not there; fails it
// where they are required.
#define VELLUMO_REQUIRE_TESTDATA()                                                                 \
    do {                                                                                           \
        if (!::vellumo::test::HaveTestData()) {                                                    \
            if (::vellumo::test::TestDataRequired()) {                                             \
                FAIL() << "shared test images not found at " << ::vellumo::test::TestDataPath(""); \
            }                                                                                      \
            GTEST_SKIP() << "shared test images not found at "                                     \
                         << ::vellumo::test::TestDataPath("");                                     \
        }                                                                                          \
    } while (false)
