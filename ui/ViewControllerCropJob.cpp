// The crop command's window side: the core's CropCommand, agreed to on the
// GUI thread and run on the job's thread, its questions shown as boxes and
// its progress on the bar and the status line; the report.

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QUrl>
#include <chrono>
#include <memory>

#include "batch/OutputFolder.h"
#include "ui/JobStatusText.h"
#include "ui/ProgressFraction.h"
#include "ui/ViewController.h"
#include "ui/dialogs/CropResult.h"
#include "ui/job/WindowCropObserver.h"
#include "ui/job/WindowCropQuestions.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

QString PathText(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

}  // namespace

void ViewController::OnCropImages() {
    // One snapshot for the checks, the questions and the job: the interface
    // is locked from the questions on, so the controls cannot change after.
    // Adjusted rectangles are part of it: undoing one while the job runs
    // does not change what it writes.
    CropRequest request;
    request.settings = settings_->Read();
    request.images = NativePaths(imageList_->paths());
    request.adjustments = cropAdjustments_->ForJob(imageList_->paths());
    // Every core at work, each image in a worker process of its own.
    request.jobs = std::max(1, QThread::idealThreadCount());
    auto command = std::make_shared<const CropCommand>(std::move(request), *imageProcessor_);
    WindowCropQuestions questions(*this, services_);
    const CropCommandResult agreed = command->Agree(questions);
    if (agreed.ending != CropCommandResult::Ending::Agreed) {
        if (agreed.refusal) {
            ShowCropRefusal(*agreed.refusal);
        }
        return;
    }
    cropping_ = true;
    DisableInterface();
    RunCropCommand(std::move(command));
}

void ViewController::RunCropCommand(std::shared_ptr<const CropCommand> command) {
    // Away from this thread: the output paths of the whole list (thousands
    // of lookups on disk), the images' headers where whether the rule crops
    // depends on them (read by the image processor, in its worker process),
    // and the job. Questions come back here as boxes; the job's thread
    // waits for their answers.
    ui_->labelJobStatus->setText(QStringLiteral("Preparing…"));
    jobStop_ = std::stop_source();
    jobWork_.start([this, command, processor = imageProcessor_, stop = jobStop_.get_token()] {
        WindowCropQuestions questions(*this, services_, [this] { ui_->labelJobStatus->clear(); });
        WindowCropObserver observer(
            *this, {[this](long count, const QString& folder) { StartCropJob(count, folder); },
                    [this](long index) { ReportCropProgress(index); }});
        CropCommandResult result = command->Run(questions, observer, stop);
        QMetaObject::invokeMethod(
            this, [this, result = std::move(result)] { FinishCropCommand(result); },
            Qt::QueuedConnection);
    });
}

void ViewController::ShowCropRefusal(const CropRefusal& refusal) {
    QString notice;
    switch (refusal.kind) {
        case CropRefusal::Kind::Unready:
        case CropRefusal::Kind::NotStarted:
            notice = QString::fromStdString(refusal.detail);
            break;
        case CropRefusal::Kind::NotAFolder:
            notice = PathText(NotAFolderNotice(refusal.folder));
            break;
        case CropRefusal::Kind::FolderNotMade:
            notice = QStringLiteral("The folder %1 could not be created: %2.")
                         .arg(PathText(refusal.folder), QString::fromStdString(refusal.detail));
            break;
    }
    services_.showMessageBox(NoticeRequest(notice));
}

void ViewController::StartCropJob(long count, const QString& folder) {
    jobImageCount_ = count;
    jobImagesHandled_ = 0;
    ui_->buttonStopCropping->setEnabled(true);
    jobFolder_ = folder;
    jobClock_.start();
    ui_->labelJobStatus->setText(JobStatusText(0, jobImageCount_, std::chrono::milliseconds(0)));
}

void ViewController::FinishCropCommand(const CropCommandResult& result) {
    if (result.ending == CropCommandResult::Ending::Finished) {
        FinishCropJob(result.report);
        return;
    }
    if (result.refusal) {
        ShowCropRefusal(*result.refusal);
    }
    AbandonCropCommand();
}

void ViewController::AbandonCropCommand() {
    ui_->labelJobStatus->clear();
    cropping_ = false;
    EnableInterface();
}

void ViewController::ReportCropProgress(long) {
    ++jobImagesHandled_;
    if (jobStop_.stop_requested()) {
        return;  // the line says "Stopping…" until the report
    }
    const auto elapsed = std::chrono::milliseconds(jobClock_.elapsed());
    ui_->labelJobStatus->setText(JobStatusText(jobImagesHandled_, jobImageCount_, elapsed));
    // The images finished over the images of the job: full when the last
    // is done.
    SetProgressFraction(*ui_->progressIndicator, jobImageCount_ > 0
                                                     ? static_cast<double>(jobImagesHandled_) /
                                                           static_cast<double>(jobImageCount_)
                                                     : 0.0);
}

void ViewController::OnStopCropping() {
    if (!cropping_ || !ui_->buttonStopCropping->isEnabled()) {
        return;
    }
    ui_->buttonStopCropping->setEnabled(false);
    ui_->labelJobStatus->setText(QStringLiteral("Stopping…"));
    jobStop_.request_stop();
}

void ViewController::FinishCropJob(const JobReport& report) {
    ui_->buttonStopCropping->setEnabled(false);
    ui_->labelJobStatus->clear();
    SetProgressFraction(*ui_->progressIndicator, 0.0);
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
