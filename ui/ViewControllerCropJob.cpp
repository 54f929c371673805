// The crop command: its checks and questions, the job on a worker thread
// with its progress, and the report.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QUrl>
#include <chrono>
#include <iostream>
#include <memory>

#include "batch/JobSummary.h"
#include "batch/OutputFolder.h"
#include "batch/OverwritePrompts.h"
#include "batch/Preconditions.h"
#include "ui/JobStatusText.h"
#include "ui/ProgressFraction.h"
#include "ui/ViewController.h"
#include "ui/dialogs/CropQuestions.h"
#include "ui/dialogs/CropResult.h"
#include "ui/dialogs/OverwriteBox.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"

namespace vellumo {

namespace {

QString PathText(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

}  // namespace

void ViewController::OnCropImages() {
    // One snapshot for the checks, the questions and the job: the interface
    // is locked from the questions on, so the controls cannot change after.
    const CropSettings settings = CropSettingsFromControls();
    const std::vector<std::string> list = NativePaths(listImagePaths_);
    if (const std::optional<std::string> refusal = CropJobRefusal(list, settings)) {
        services_.showMessageBox(NoticeRequest(QString::fromStdString(*refusal)));
        return;
    }
    if (settings.replaceOriginals ? !AgreeToReplaceOriginals(list.size())
                                  : !AgreeOnOutputFolder(settings.outputFolder)) {
        return;
    }
    // Adjusted rectangles are part of the snapshot: undoing one while the
    // job runs does not change what it writes.
    jobAdjustments_ = cropAdjustments_->ForJob(listImagePaths_);
    cropping_ = true;
    DisableInterface();
    PrepareCropJob(settings, list);
}

bool ViewController::AgreeOnOutputFolder(const std::string& folder) {
    switch (OutputFolderState(folder)) {
        case FolderState::Exists:
            return true;
        case FolderState::NotAFolder:
            services_.showMessageBox(NoticeRequest(PathText(NotAFolderNotice(folder))));
            return false;
        case FolderState::Missing:
            // Made when the job starts, once nothing else can stop it.
            return services_.showMessageBox(CreateFolderRequest(folder)) == kFirstButtonAnswer;
    }
    return false;
}

bool ViewController::AgreeToReplaceOriginals(std::size_t count) {
    return services_.showMessageBox(ReplaceOriginalsRequest(count)) == kFirstButtonAnswer;
}

void ViewController::PrepareCropJob(const CropSettings& settings,
                                    const std::vector<std::string>& list) {
    // Away from this thread: the output paths of the whole list (thousands of
    // lookups on disk), and, where whether a rectangle fits depends on each
    // image's size, the images' headers, read by the image processor (in its
    // worker process) until the first image the rule crops.
    labelJobStatus->setText(QStringLiteral("Preparing…"));
    jobWork_.start([this, settings, list, adjustments = jobAdjustments_,
                    processor = imageProcessor_] {
        auto prepared = std::make_shared<PreparedJob>();
        prepared->refusingClashes = PlanOutputs(settings, list, ClashPolicy::Refuse);
        if (!prepared->refusingClashes.clashes.empty()) {
            prepared->numberingClashes = PlanOutputs(settings, list, ClashPolicy::Number);
        }
        // An auto crop always lies on the image.
        if (settings.mode != CropMode::Auto) {
            bool anyRead = false;
            bool anyCropped = false;
            for (std::size_t i = 0; i < list.size() && !anyCropped; ++i) {
                ImageTask task;
                task.index = static_cast<long>(i);
                task.source = list[i];
                task.settings = settings;
                task.dryRun = true;
                if (const auto found = adjustments.find(list[i]); found != adjustments.end()) {
                    task.adjustedRect = found->second;
                }
                const ImageOutcome outcome = processor->Process(task);
                if (outcome.status != ImageStatus::Failed) {
                    anyRead = true;
                    anyCropped = !outcome.wholeImage;
                }
            }
            prepared->everyImageWhole = anyRead && !anyCropped;
        }
        QMetaObject::invokeMethod(
            this,
            [this, settings, list, prepared] { ContinueCropCommand(settings, list, *prepared); },
            Qt::QueuedConnection);
    });
}

void ViewController::ContinueCropCommand(const CropSettings& settings,
                                         const std::vector<std::string>& list,
                                         const PreparedJob& prepared) {
    labelJobStatus->clear();
    if (prepared.everyImageWhole &&
        services_.showMessageBox(UncroppedCopiesRequest()) != kFirstButtonAnswer) {
        AbandonCropCommand();
        return;
    }
    const OutputPlan* plan = &prepared.refusingClashes;
    if (!plan->clashes.empty()) {
        if (services_.showMessageBox(ClashWarningRequest(plan->clashes, list)) !=
            kFirstButtonAnswer) {
            AbandonCropCommand();
            return;
        }
        plan = &prepared.numberingClashes;
    }
    const std::vector<OverwriteDecision> decisions = PromptOverwrites(
        *plan, [this](const std::string& question) { return AskOverwrite(question); });
    if (!settings.replaceOriginals &&
        OutputFolderState(settings.outputFolder) == FolderState::Missing) {
        const SaveResult made = CreateOutputFolder(settings.outputFolder);
        if (!made.saved) {
            services_.showMessageBox(NoticeRequest(
                QStringLiteral("The folder %1 could not be created: %2.")
                    .arg(PathText(settings.outputFolder), QString::fromStdString(made.reason))));
            AbandonCropCommand();
            return;
        }
    }
    StartCropJob(settings, list, *plan, decisions);
}

void ViewController::AbandonCropCommand() {
    labelJobStatus->clear();
    cropping_ = false;
    EnableInterface();
}

OverwriteAnswer ViewController::AskOverwrite(const std::string& question) {
    return OverwriteAnswerOfBox(services_.showMessageBox(OverwriteBoxRequest(PathText(question))));
}

void ViewController::StartCropJob(const CropSettings& settings,
                                  const std::vector<std::string>& list, const OutputPlan& plan,
                                  const std::vector<OverwriteDecision>& decisions) {
    cropping_ = true;
    jobImageCount_ = static_cast<long>(list.size());
    jobImagesHandled_ = 0;
    jobStop_ = std::stop_source();
    buttonStopCropping->setEnabled(true);
    jobFolder_ = plan.images.empty() ? QString()
                                     : QFileInfo(PathText(plan.images.front().path)).absolutePath();
    jobClock_.start();
    labelJobStatus->setText(JobStatusText(0, jobImageCount_, std::chrono::milliseconds(0)));
    // The worker has its own copies of everything it reads and touches no
    // control; what it reports comes back as queued calls, in order.
    jobWork_.start([this, settings, list, plan, decisions, adjustments = jobAdjustments_,
                    processor = imageProcessor_, stop = jobStop_.get_token()] {
        JobCallbacks callbacks;
        callbacks.progress = [this](long index, const ImageReport& image) {
            // The lines the window has always written on standard output.
            for (const std::string& line : ConsoleLines(image.outcome)) {
                std::cout << line << std::endl;
            }
            QMetaObject::invokeMethod(
                this, [this, index] { ReportCropProgress(index); }, Qt::QueuedConnection);
        };
        JobOptions options;
        options.adjustments = &adjustments;
        options.stop = stop;
        // Every core at work, each image in a worker process of its own.
        options.jobs = std::max(1, QThread::idealThreadCount());
        JobReport report =
            RunCropJob(settings, list, plan, decisions, *processor, callbacks, options);
        QMetaObject::invokeMethod(
            this, [this, report = std::move(report)] { FinishCropJob(report); },
            Qt::QueuedConnection);
    });
}

void ViewController::ReportCropProgress(long) {
    ++jobImagesHandled_;
    if (jobStop_.stop_requested()) {
        return;  // the line says "Stopping…" until the report
    }
    const auto elapsed = std::chrono::milliseconds(jobClock_.elapsed());
    labelJobStatus->setText(JobStatusText(jobImagesHandled_, jobImageCount_, elapsed));
    // The images finished over the images of the job: full when the last
    // is done.
    SetProgressFraction(*progressIndicator, jobImageCount_ > 0
                                                ? static_cast<double>(jobImagesHandled_) /
                                                      static_cast<double>(jobImageCount_)
                                                : 0.0);
}

void ViewController::OnStopCropping() {
    if (!cropping_ || !buttonStopCropping->isEnabled()) {
        return;
    }
    buttonStopCropping->setEnabled(false);
    labelJobStatus->setText(QStringLiteral("Stopping…"));
    jobStop_.request_stop();
}

void ViewController::FinishCropJob(const JobReport& report) {
    buttonStopCropping->setEnabled(false);
    labelJobStatus->clear();
    SetProgressFraction(*progressIndicator, 0.0);
    cropping_ = false;
    EnableInterface();
    ShowCropResult(report);
}

void ViewController::ShowCropResult(const JobReport& report) {
    if (services_.showMessageBox(CropResultRequest(report)) != kShowInFolderAnswer) {
        return;
    }
    const QUrl folder = QUrl::fromLocalFile(jobFolder_);
    if (!services_.openUrl(folder)) {
        services_.showMessageBox(
            NoticeRequest(QStringLiteral("No file manager could be opened to show the folder %1.")
                              .arg(QDir::toNativeSeparators(jobFolder_))));
    }
}

}  // namespace vellumo
