#pragma once

// Stand-ins for the window's workers that let a test watch them: the real
// work is done, and recorded; previews can be held back until released.

#include <condition_variable>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "batch/ImageProcessor.h"
#include "batch/PreviewDecoder.h"

namespace vellumo::test {

// Crops in this process, as the window does, and notes every task with its
// outcome. Called on the job's thread; read the records once the job ended.
// While held, each image waits before it is cropped. Dry runs (the crop
// command measuring images before a job) are only counted.
class RecordingProcessor final : public ImageProcessor {
  public:
    ImageOutcome Process(const ImageTask& task) override;

    std::vector<ImageTask> tasks() const;
    std::vector<ImageOutcome> outcomes() const;
    std::vector<OverwriteDecision> decisions() const;

    void Hold();
    void Release();
    // Stopping a job: held images are let go and fail as ended.
    void CancelAll() override;
    // How many images have begun (including a held one).
    int started() const;
    // How many images were measured by dry runs.
    int measured() const;

  private:
    InProcessImageProcessor inner_;
    mutable std::mutex mutex_;
    std::condition_variable released_;
    bool held_ = false;
    bool cancelled_ = false;
    int started_ = 0;
    int measured_ = 0;
    std::vector<ImageTask> tasks_;
    std::vector<ImageOutcome> outcomes_;
};

// Decodes in this process, as the window does, and notes each request's
// longest side. A held path's decode waits until it is released.
class GatedPreviewDecoder final : public PreviewDecoder {
  public:
    PreviewResult Decode(const std::string& path, int maxSide) override;
    // Never held.
    PreviewResult DecodeEmbedded(const std::string& path, int minSide) override;

    void Hold(const std::string& path);
    void Release(const std::string& path);
    // How many decodes have begun (including held ones).
    int started() const;
    std::vector<int> maxSides() const;

  private:
    InProcessPreviewDecoder inner_;
    mutable std::mutex mutex_;
    std::condition_variable released_;
    std::set<std::string> held_;
    int started_ = 0;
    std::vector<int> maxSides_;
};

}  // namespace vellumo::test
