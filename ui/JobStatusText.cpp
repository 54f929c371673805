#include "ui/JobStatusText.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

#include "ui/WindowLocale.h"

namespace vellumo {

namespace {

QString TimeLeftText(double seconds) {
    if (seconds < 59.5) {
        const long whole = std::max(1L, std::lround(seconds));
        return QCoreApplication::translate("JobStatusText", "about %L1 s left")
            .arg(WindowNumber(whole));
    }
    return QCoreApplication::translate("JobStatusText", "about %L1 min left")
        .arg(WindowNumber(std::lround(seconds / 60.0)));
}

}  // namespace

QString JobStatusText(long done, long total, std::chrono::milliseconds elapsed) {
    if (total <= 0 || done >= total) {
        return {};
    }
    QString cropping = QCoreApplication::translate("JobStatusText", "Cropping %L1 of %L2")
                           .arg(WindowNumber(done + 1), WindowNumber(total));
    if (done <= 0) {
        return cropping;
    }
    const double perImage = static_cast<double>(elapsed.count()) / 1000.0 / done;
    return cropping + QString::fromUtf8(" — ") + TimeLeftText(perImage * (total - done));
}

}  // namespace vellumo
