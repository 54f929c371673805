#pragma once

// The shared real-world images, for the window's tests.

#include <QString>
#include <QTest>

#include "tests/support/TestData.h"

namespace vellumo::test {

// The path of a shared real-world image, as the window lists it.
inline QString RealImage(const char* relative) {
    return QString::fromStdString(TestDataPath(relative));
}

}  // namespace vellumo::test

// Skips the current QtTest function when the shared images are not there;
// fails it where they are required.
#define VELLUMO_QSKIP_WITHOUT_TESTDATA()                           \
    do {                                                           \
        if (!::vellumo::test::HaveTestData()) {                    \
            if (::vellumo::test::TestDataRequired()) {             \
                QFAIL("the shared real-world images are missing"); \
            }                                                      \
            QSKIP("the shared real-world images are missing");     \
        }                                                          \
    } while (false)
