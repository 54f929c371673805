#pragma once

#include <QString>
#include <chrono>

namespace vellumo {

// The line under the progress bar while a crop job runs, once `done` of
// `total` images are finished after `elapsed`: "Cropping 37 of 120 — about
// 12 s left". The estimate assumes the images left take as long as the ones
// done; it is left out before the first image is done. Under a minute it is
// given in seconds (at least 1), from then on in whole minutes. Empty once
// every image is done.
QString JobStatusText(long done, long total, std::chrono::milliseconds elapsed);

}  // namespace vellumo
