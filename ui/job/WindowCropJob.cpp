#include "ui/job/WindowCropJob.h"

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
#include "ui/EngineText.h"
#include "ui/JobStatusText.h"
#include "ui/ProgressFraction.h"
#include "ui/WindowServices.h"
#include "ui/dialogs/CropResult.h"
#include "ui/dialogs/RuleClashNotice.h"
#include "ui/job/WindowCropObserver.h"
#include "ui/job/WindowCropQuestions.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

QString PathText(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

}  // namespace

WindowCropJob::WindowCropJob(Ui::MainWindow& ui, WindowServices& services, QObject* parent)
    : QObject(parent), ui_(ui), services_(services) {
    work_.setMaxThreadCount(1);
}

WindowCropJob::~WindowCropJob() {
    work_.waitForDone();
}

void WindowCropJob::Crop(CropRequest request, std::shared_ptr<ImageProcessor> processor) {
    // Every core at work, each image in a worker process of its own.
    request.jobs = std::max(1, QThread::idealThreadCount());
    auto command = std::make_shared<const CropCommand>(std::move(request), *processor);
    WindowCropQuestions questions(*this, services_);
    const CropCommandResult agreed = command->Agree(questions);
    if (agreed.ending != CropCommandResult::Ending::Agreed) {
        if (agreed.refusal) {
            ShowRefusal(*agreed.refusal, command->request().settings);
        }
        return;
    }
    cropping_ = true;
    Q_EMIT cropStarted();
    Run(command, std::move(processor));
}

void WindowCropJob::Run(const std::shared_ptr<const CropCommand>& command,
                        std::shared_ptr<ImageProcessor> processor) {
    // Away from this thread: the output paths of the whole list (thousands
    // of lookups on disk), the images' headers where whether the rule crops
    // depends on them (read by the image processor, in its worker process),
    // and the job. Questions come back here as boxes; the job's thread
    // waits for their answers.
    ui_.labelJobStatus->setText(tr("Preparing…"));
    stop_ = std::stop_source();
    work_.start([this, command, processor = std::move(processor), stop = stop_.get_token()] {
        WindowCropQuestions questions(*this, services_, [this] { ui_.labelJobStatus->clear(); });
        WindowCropObserver observer(
            *this, {[this](long count, const QString& folder) { StartJob(count, folder); },
                    [this](long index) { ReportProgress(index); }});
        CropCommandResult result = command->Run(questions, observer, stop);
        QMetaObject::invokeMethod(
            this,
            [this, command, result = std::move(result)] {
                Finish(result, command->request().settings);
            },
            Qt::QueuedConnection);
    });
}

void WindowCropJob::ShowRefusal(const CropRefusal& refusal, const CropSettings& settings) {
    QString notice;
    switch (refusal.kind) {
        case CropRefusal::Kind::Unready:
        case CropRefusal::Kind::NotStarted:
            notice = EngineText(refusal.detail);
            break;
        case CropRefusal::Kind::NotAFolder:
            notice =
                tr("The output folder %1 is a file, not a folder.").arg(PathText(refusal.folder));
            break;
        case CropRefusal::Kind::FolderNotMade:
            notice = tr("The folder %1 could not be created: %2.")
                         .arg(PathText(refusal.folder), EngineText(refusal.detail));
            break;
        case CropRefusal::Kind::RulesClash:
            notice = RuleClashNotice::Of(refusal.clash.value_or(RuleClash::PadAfterCut), settings);
            break;
    }
    services_.showMessageBox(NoticeRequest(notice));
}

void WindowCropJob::StartJob(long count, const QString& folder) {
    imageCount_ = count;
    imagesHandled_ = 0;
    ui_.buttonStopCropping->setEnabled(true);
    folder_ = folder;
    clock_.start();
    ui_.labelJobStatus->setText(JobStatusText(0, imageCount_, std::chrono::milliseconds(0)));
    Q_EMIT progressed(0.0);
}

void WindowCropJob::Finish(const CropCommandResult& result, const CropSettings& settings) {
    if (result.ending == CropCommandResult::Ending::Finished) {
        FinishJob(result.report);
        return;
    }
    if (result.refusal) {
        ShowRefusal(*result.refusal, settings);
    }
    Abandon();
}

void WindowCropJob::Abandon() {
    ui_.labelJobStatus->clear();
    cropping_ = false;
    Q_EMIT cropEnded();
}

void WindowCropJob::ReportProgress(long) {
    ++imagesHandled_;
    if (stop_.stop_requested()) {
        return;  // the line says "Stopping…" until the report
    }
    const auto elapsed = std::chrono::milliseconds(clock_.elapsed());
    ui_.labelJobStatus->setText(JobStatusText(imagesHandled_, imageCount_, elapsed));
    // The images finished over the images of the job: full when the last
    // is done.
    const double done = imageCount_ > 0
                            ? static_cast<double>(imagesHandled_) / static_cast<double>(imageCount_)
                            : 0.0;
    SetProgressFraction(*ui_.progressIndicator, done);
    Q_EMIT progressed(done);
}

void WindowCropJob::Stop() {
    if (!cropping_ || !ui_.buttonStopCropping->isEnabled()) {
        return;
    }
    ui_.buttonStopCropping->setEnabled(false);
    ui_.labelJobStatus->setText(tr("Stopping…"));
    stop_.request_stop();
}

void WindowCropJob::FinishJob(const JobReport& report) {
    ui_.buttonStopCropping->setEnabled(false);
    ui_.labelJobStatus->clear();
    SetProgressFraction(*ui_.progressIndicator, 0.0);
    cropping_ = false;
    Q_EMIT cropEnded();
    Q_EMIT batchEnded(report, folder_);
    ShowResult(report);
}

void WindowCropJob::ShowResult(const JobReport& report) {
    if (services_.showMessageBox(CropResultRequest(report)) != kShowInFolderAnswer) {
        return;
    }
    const QUrl folder = QUrl::fromLocalFile(folder_);
    if (!services_.openUrl(folder)) {
        services_.showMessageBox(
            NoticeRequest(tr("No file manager could be opened to show the folder %1.")
                              .arg(QDir::toNativeSeparators(folder_))));
    }
}

}  // namespace vellumo
