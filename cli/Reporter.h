#pragma once

// What the command line prints while a job runs: a line (or a JSON object)
// per image on standard output, a progress bar on standard error when it is
// a terminal, and the closing report.

#include <chrono>

#include "batch/CropJob.h"
#include "cli/CliOptions.h"

namespace vellumo::cli {

class Reporter {
  public:
    Reporter(const CliOptions& options, long imageCount, bool standardErrorIsTerminal);

    // After each image.
    void Image(const ImageReport& report);
    // After the last image.
    void Finish(const JobReport& report);

  private:
    void Progress(long done);

    const CliOptions& options_;
    long count_;
    bool progressBar_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace vellumo::cli
