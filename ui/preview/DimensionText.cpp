#include "ui/preview/DimensionText.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "imaging/Fatal.h"
#include "ui/WindowLocale.h"

namespace vellumo {

QString DimensionText(const char* caption, double value) {
    const double whole = std::trunc(value);
    // 2^63 is the first value beyond the signed 64-bit range; -2^63 is in it.
    constexpr double kLimit = 9223372036854775808.0;
    if (!std::isfinite(whole) || whole >= kLimit || whole < -kLimit) {
        Fatal(std::string("a dimension cannot be shown as a whole number: ") +
              std::to_string(value));
    }
    return QCoreApplication::translate("DimensionText", caption) +
           WindowNumber(static_cast<qlonglong>(whole));
}

}  // namespace vellumo
