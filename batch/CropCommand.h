#pragma once

// The crop command, the one flow both front ends drive: its checks, its
// questions, the plan of outputs, the job with its progress, and the
// report. The window and the command line differ only in how they answer
// the questions (boxes; options and the terminal) and what they make of the
// progress (a bar and a status line; lines on standard output, a
// manifest).
//
// In order: Agree() checks that there is something to crop, somewhere to
// write it and rules that go together (RuleClash.h), and asks before the
// originals are replaced or a missing output folder is made; nothing is
// read. Run() plans the outputs, asks before writing only uncropped copies
// (where whether the rule crops depends on the images, their headers are
// read until the first image it crops) and before numbering images that
// would share a path, asks about every existing output file, makes the
// output folder, and runs the job.

#include <cstddef>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "batch/BatchPart.h"
#include "batch/CropAdjustments.h"
#include "batch/CropJob.h"
#include "batch/CropSettings.h"
#include "batch/ImageProcessor.h"
#include "batch/Manifest.h"
#include "batch/OutputPlan.h"
#include "batch/OverwritePrompts.h"
#include "batch/RuleClash.h"
#include "batch/Shard.h"

namespace vellumo {

// Why a command ends before any image is touched; each front end words it.
struct CropRefusal {
    enum class Kind {
        Unready,        // nothing to crop, or no output folder chosen: `detail` says which
        NotAFolder,     // something that is no folder is at the output folder's path
        FolderNotMade,  // the output folder could not be made: `detail` says why
        NotStarted,     // the front end's own last step failed: `detail` says why
        RulesClash,     // the settings' rules cannot be followed together: `clash` says which
    };
    Kind kind = Kind::Unready;
    std::string folder;  // the output folder
    // What the kind leaves open, for the person (a library's or the
    // system's words are the pattern "%1" with that text).
    Sentence detail;
    std::optional<RuleClash> clash;
};

// The answer to one of the command's yes-or-no questions.
enum class Answer { Yes, No };

// The questions the command asks the person, each with its own answer.
class CropQuestions {
  public:
    virtual ~CropQuestions() = default;
    // `count` originals are about to be replaced by their crops: go on?
    virtual Answer ReplaceOriginals(std::size_t count) = 0;
    // The output folder does not exist: make it (when the job starts)?
    virtual Answer CreateFolder(const std::string& folder) = 0;
    // The rule crops none of the images: write uncropped copies?
    virtual Answer WriteUncroppedCopies() = 0;
    // Images of `list` would share a path: number the later ones (" (2)")?
    virtual Answer NumberClashes(const std::vector<OutputClash>& clashes,
                                 const std::vector<std::string>& list) = 0;
    // The output file at `path` exists: is it to be replaced?
    virtual OverwriteAnswer Overwrite(const std::string& path) = 0;
};

// What the command tells while it runs, on the thread that runs it.
class CropObserver {
  public:
    virtual ~CropObserver() = default;
    // Planning and reading headers begins (it may take a while).
    virtual void Preparing() {}
    // The images this run does and their outputs are settled.
    virtual void Planned(const BatchPart& /*part*/) {}
    // The last step before the first image; false ends the command, with
    // the reason in `reason` (a manifest that cannot be opened).
    virtual bool Starting(const BatchPart& /*part*/, std::string& /*reason*/) { return true; }
    // An image is done, in list order.
    virtual void ImageDone(const ImageReport& /*report*/) {}
};

struct CropRequest {
    CropSettings settings;
    std::vector<std::string> images;  // the list, in its order
    // The folders the images were found through, for outputs that keep the
    // tree (CropSettings::keepStructure); none: the folder they all share.
    std::vector<std::string> roots;
    CropAdjustments adjustments;  // rectangles adjusted by hand, by path
    int jobs = 1;                 // images in flight at once
    bool dryRun = false;          // decide and report, make and write nothing
    // Images that would share a path: asked (NumberClashes) when none is
    // given, else settled by this policy without a question.
    std::optional<ClashPolicy> clashes;
    // A large batch's share and what its manifest records as done.
    std::optional<Shard> shard;
    std::vector<ManifestEntry> recorded;
    // The index ([FileIndex] less one) of the list's first image: a watch
    // numbers each group of arrivals on after the images it did before.
    long firstIndex = 0;
};

struct CropCommandResult {
    enum class Ending {
        Agreed,    // Agree(): Run() may follow
        Declined,  // the person said no to a question
        Refused,   // see `refusal`
        Finished,  // the job ran (perhaps stopped): see `report`
    };
    Ending ending = Ending::Declined;
    std::optional<CropRefusal> refusal;
    JobReport report;
};

class CropCommand {
  public:
    CropCommand(CropRequest request, ImageProcessor& processor);

    // The checks and the first questions; reads nothing, so it may run
    // on the window's thread. Agreed, Declined or Refused.
    CropCommandResult Agree(CropQuestions& questions) const;
    // The rest, after Agree() agreed; returns when the job has ended (stop
    // it with `stop`). Declined, Refused or Finished.
    CropCommandResult Run(CropQuestions& questions, CropObserver& observer,
                          std::stop_token stop = {}) const;

    const CropRequest& request() const { return request_; }

  private:
    // The part of the batch to do, clashes settled (asked when the request
    // leaves them open); nothing when the person declined.
    std::optional<BatchPart> Plan(CropQuestions& questions) const;
    JobReport RunJob(const BatchPart& part, const std::vector<OverwriteDecision>& decisions,
                     CropObserver& observer, std::stop_token stop) const;

    CropRequest request_;
    ImageProcessor& processor_;
};

}  // namespace vellumo
