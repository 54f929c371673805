// The crop command: its checks, the overwrite questions, the job on a worker
// thread with its progress, and the report.

#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <chrono>

#include "batch/OverwritePrompts.h"
#include "batch/Preconditions.h"
#include "ui/CropResult.h"
#include "ui/JobStatusText.h"
#include "ui/ProgressFraction.h"
#include "ui/ViewController.h"

namespace vellumo {

namespace {

std::vector<std::string> NativePaths(const QStringList& paths) {
    std::vector<std::string> native;
    native.reserve(paths.size());
    for (const QString& path : paths) {
        native.push_back(QFile::encodeName(path).toStdString());
    }
    return native;
}

QStringList ButtonTitles(const std::vector<std::string>& titles) {
    QStringList list;
    for (const std::string& title : titles) {
        list << QString::fromStdString(title);
    }
    return list;
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
    DisableInterface();
    const std::vector<OverwriteDecision> decisions = PromptOverwrites(
        settings, list, [this](const std::string& question) { return AskOverwrite(question); });
    StartCropJob(settings, list, decisions);
}

int ViewController::AskOverwrite(const std::string& question) {
    const MessageBoxRequest request{QFile::decodeName(QByteArray::fromStdString(question)),
                                    MessageBoxStyle::Warning, ButtonTitles(kOverwriteButtons)};
    return services_.showMessageBox(request);
}

void ViewController::StartCropJob(const CropSettings& settings,
                                  const std::vector<std::string>& list,
                                  const std::vector<OverwriteDecision>& decisions) {
    cropping_ = true;
    jobImageCount_ = static_cast<long>(list.size());
    jobClock_.start();
    labelJobStatus->setText(JobStatusText(0, jobImageCount_, std::chrono::milliseconds(0)));
    // The worker has its own copies of everything it reads and touches no
    // control; what it reports comes back as queued calls, in order.
    jobWork_.start([this, settings, list, decisions, processor = imageProcessor_] {
        JobCallbacks callbacks;
        callbacks.progress = [this](long index, const ImageReport&) {
            QMetaObject::invokeMethod(
                this, [this, index] { ReportCropProgress(index); }, Qt::QueuedConnection);
        };
        JobReport report = RunCropJob(settings, list, decisions, *processor, callbacks);
        QMetaObject::invokeMethod(
            this, [this, report = std::move(report)] { FinishCropJob(report); },
            Qt::QueuedConnection);
    });
}

void ViewController::ReportCropProgress(long index) {
    const auto elapsed = std::chrono::milliseconds(jobClock_.elapsed());
    labelJobStatus->setText(JobStatusText(index + 1, jobImageCount_, elapsed));
    // The index of the image just finished, over the list's length: the bar
    // stays at 0 after the first image and ends one image short of full.
    const auto count = static_cast<double>(listImagePaths_.size());
    SetProgressFraction(*progressIndicator, count > 0 ? static_cast<double>(index) / count : 0.0);
}

void ViewController::FinishCropJob(const JobReport& report) {
    labelJobStatus->clear();
    SetProgressFraction(*progressIndicator, 0.0);
    cropping_ = false;
    EnableInterface();
    ShowCropResult(report);
}

void ViewController::ShowCropResult(const JobReport& report) {
    services_.showMessageBox(CropResultRequest(report));
}

}  // namespace vellumo
