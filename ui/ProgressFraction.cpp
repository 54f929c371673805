#include "ui/ProgressFraction.h"

#include <QProgressBar>
#include <algorithm>
#include <cmath>

namespace vellumo {

void SetProgressFraction(QProgressBar& bar, double fraction) {
    const double span = bar.maximum() - bar.minimum();
    const double clamped = std::clamp(fraction, 0.0, 1.0);
    bar.setValue(bar.minimum() + static_cast<int>(std::lround(clamped * span)));
}

double ProgressFraction(const QProgressBar& bar) {
    const double span = bar.maximum() - bar.minimum();
    return span > 0 ? (bar.value() - bar.minimum()) / span : 0.0;
}

}  // namespace vellumo
