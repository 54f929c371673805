#include "ui/job/WorkerSettings.h"

#include <QSettings>

namespace vellumo::workersettings {

namespace {

const QString kRequireSandbox = QStringLiteral("sandbox/requireComplete");

}  // namespace

bool RequireCompleteSandbox() {
    return QSettings().value(kRequireSandbox, false).toBool();
}

void SetRequireCompleteSandbox(bool require) {
    QSettings().setValue(kRequireSandbox, require);
}

WorkerLimits Foreground() {
    WorkerLimits limits;
    limits.requireSandbox = RequireCompleteSandbox();
    return limits;
}

WorkerLimits Background() {
    WorkerLimits limits = WorkerLimits::Background();
    limits.requireSandbox = RequireCompleteSandbox();
    return limits;
}

}  // namespace vellumo::workersettings
