#pragma once

// The crop command as the command line answers and follows it: questions
// answered by the options (and the terminal, for existing files), a line
// per image, the manifest kept, the exit status.

#include <optional>
#include <stop_token>
#include <string>

#include "batch/CropCommand.h"
#include "cli/CliOptions.h"
#include "cli/Manifesting.h"
#include "cli/Reporter.h"

namespace vellumo::cli {

// The options are the consent: --in-place to replace the originals,
// --output to make its folder; uncropped copies are written as asked;
// clashes are settled by --on-clash; existing files as --overwrite says.
class CliAnswers final : public CropQuestions {
  public:
    explicit CliAnswers(OverwriteMode overwrite);
    Answer ReplaceOriginals(std::size_t) override { return Answer::Yes; }
    Answer CreateFolder(const std::string&) override { return Answer::Yes; }
    Answer WriteUncroppedCopies() override { return Answer::Yes; }
    Answer NumberClashes(const std::vector<OutputClash>&,
                         const std::vector<std::string>&) override {
        return Answer::No;
    }
    OverwriteAnswer Overwrite(const std::string& path) override { return ask_(path); }

  private:
    OverwriteAsker ask_;
};

class CliProgress final : public CropObserver {
  public:
    // A manifest that cannot record an image stops the job through `stop`.
    CliProgress(const CliOptions& options, std::stop_source stop);

    void Planned(const BatchPart& part) override;
    // Opens the manifest (when one is kept) and starts the report.
    bool Starting(const BatchPart& part, std::string& reason) override;
    void ImageDone(const ImageReport& report) override;

    // The closing report; the exit status of a job that ran.
    int Finish(const JobReport& report);

  private:
    const CliOptions& options_;
    std::stop_source stop_;
    std::optional<Manifesting> manifesting_;
    std::optional<Reporter> reporter_;
    std::string manifestFailure_;  // why an image could not be recorded
};

// Prints why the command was refused; its exit status (2: nothing was
// attempted).
int ReportRefusal(const CliOptions& options, const CropRefusal& refusal);

// The request the options make, `recorded` being what the manifest holds
// of earlier runs (for --resume).
CropRequest RequestOf(const CliOptions& options, std::vector<ManifestEntry> recorded);

}  // namespace vellumo::cli
