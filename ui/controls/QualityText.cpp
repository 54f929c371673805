#include "ui/controls/QualityText.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "imaging/Fatal.h"

namespace vellumo {

QString QualityText(float value) {
    if (!std::isfinite(value)) {
        Fatal("the quality is not a finite number: " + std::to_string(value));
    }
    if (!(value > 1.0f)) {
        return QStringLiteral("1");
    }
    const double whole = std::floor(static_cast<double>(value));
    // 2^63 is the first value beyond the signed 64-bit range.
    if (whole >= 9223372036854775808.0) {
        Fatal("the quality cannot be shown as a whole number: " + std::to_string(value));
    }
    return QString::number(static_cast<std::int64_t>(whole));
}

}  // namespace vellumo
