#pragma once

// The window's choices for its image workers, kept between runs
// (QSettings): whether a worker whose sandbox misses a layer may decode.
// Read when the window builds its processors, so a change holds from the
// next start.

#include "worker/WorkerLimits.h"

namespace vellumo::workersettings {

bool RequireCompleteSandbox();
void SetRequireCompleteSandbox(bool require);

// The limits for work a person waits for (the crop job, the preview).
WorkerLimits Foreground();
// The limits for work made ahead (thumbnails, neighbours' previews).
WorkerLimits Background();

}  // namespace vellumo::workersettings
