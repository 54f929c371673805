#pragma once

class QProgressBar;

namespace vellumo {

// The progress bar's integer range stands for 0.0 to 1.0 in fine steps, so a
// job can show fractions such as 1/3. The bar's range comes from the window's
// interface description.
void SetProgressFraction(QProgressBar& bar, double fraction);
double ProgressFraction(const QProgressBar& bar);

}  // namespace vellumo
