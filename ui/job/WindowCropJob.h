#pragma once

// The crop command's window side: the core's CropCommand, agreed to on the
// GUI thread and run on the job's thread, its questions shown as boxes
// (WindowCropQuestions) and its progress on the bar and the status line
// (WindowCropObserver); the report, and the Stop button.

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <memory>
#include <stop_token>

#include "batch/CropCommand.h"
#include "batch/CropJob.h"
#include "batch/ImageProcessor.h"

namespace Ui {
class MainWindow;
}

namespace vellumo {

struct WindowServices;

class WindowCropJob : public QObject {
    Q_OBJECT

  public:
    WindowCropJob(Ui::MainWindow& ui, WindowServices& services, QObject* parent = nullptr);
    // Waits for the job's thread.
    ~WindowCropJob() override;

    // Checks that there are images and an output folder (offering to make a
    // missing one), asks before the originals are replaced, then (locked,
    // cropStarted) asks before writing only uncropped copies (after the
    // images' sizes were read away from the GUI thread), settles images that
    // would share an output path, asks about every existing output file,
    // then runs the job on a worker thread and returns. `request` is the one
    // snapshot of the list, the settings and the adjustments all of it uses;
    // `processor` crops each image.
    void Crop(CropRequest request, std::shared_ptr<ImageProcessor> processor);
    // While a job runs (the Stop button, Esc): no new image begins, the
    // images under way end without leaving a partial file, and the report
    // says how many were written.
    void Stop();
    // True from the moment a job is agreed to until its report is shown.
    bool isCropping() const { return cropping_; }

  Q_SIGNALS:
    // The interface is to be locked while the job reads the list and the
    // settings, and unlocked again (before the report is shown).
    void cropStarted();
    void cropEnded();
    // The fraction of the job's images done, as the progress bar shows it.
    void progressed(double fraction);
    // The job ended and its report is about to be shown; `folder` is where
    // it wrote.
    void batchEnded(const JobReport& report, const QString& folder);

  private:
    // The command's steps, in order: run on the job's thread once agreed
    // to, the job started, each image reported, the end.
    void Run(const std::shared_ptr<const CropCommand>& command,
             std::shared_ptr<ImageProcessor> processor);
    void StartJob(long count, const QString& folder);
    void ReportProgress(long index);
    void Finish(const CropCommandResult& result, const CropSettings& settings);
    void FinishJob(const JobReport& report);
    void ShowResult(const JobReport& report);
    // `settings`: the job's, which some refusals name.
    void ShowRefusal(const CropRefusal& refusal, const CropSettings& settings);
    // Ends the command before the job started, the interface unlocked.
    void Abandon();

    Ui::MainWindow& ui_;
    WindowServices& services_;
    bool cropping_ = false;
    long imageCount_ = 0;
    long imagesHandled_ = 0;
    // Stops the running job.
    std::stop_source stop_;
    // Where the report's "Show in Folder" leads.
    QString folder_;
    QElapsedTimer clock_;
    // Last, so that it goes first: one job at a time, its images one after
    // another.
    QThreadPool work_;
};

}  // namespace vellumo
