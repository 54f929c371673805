#pragma once

// The window's words for crop rules that clash (batch/RuleClash.h): the
// notice when a crop is refused for it, and why a transparent fill is not
// offered for a format.

#include <QCoreApplication>
#include <QString>

#include "batch/CropSettings.h"
#include "batch/RuleClash.h"

namespace vellumo {

class RuleClashNotice {
    Q_DECLARE_TR_FUNCTIONS(vellumo::RuleClashNotice)

  public:
    // The notice for `clash` of `settings`, a sentence or two that says
    // what to change.
    static QString Of(RuleClash clash, const CropSettings& settings);
    // Why `format` cannot be padded with transparency.
    static QString NoTransparency(OutputFormat format);
};

}  // namespace vellumo
