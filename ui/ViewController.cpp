// The window's controller: building and connecting the parts, the
// interface's three states (start values, locked while a crop job runs, idle
// again afterwards) and the window-level commands (quit, close, new, the
// tutorial, the profiles' title).

#include "ui/ViewController.h"

#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QUrl>

#include "ui/ProgressFraction.h"
#include "ui/controls/ButtonAction.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/desktop/BatchNotifier.h"
#include "ui/desktop/LauncherProgress.h"
#include "ui/dialogs/AboutBox.h"
#include "ui/files/PlanFiles.h"
#include "ui/files/ProfileFiles.h"
#include "ui/files/RecentFiles.h"
#include "ui/job/WindowCropJob.h"
#include "ui/job/WorkerSettings.h"
#include "ui/list/ImageList.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/PreviewSession.h"
#include "ui/sheet/ContactSheetController.h"
#include "ui_MainWindow.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {

ViewController::ViewController(QObject* parent)
    : QObject(parent),
      imageList_(new ImageList(this)),
      services_(WindowServices::Desktop(
          [this]() -> QWidget* { return view_.isNull() ? nullptr : view_->window(); })),
      // Decoding and encoding happen in worker processes: a file that crashes
      // an image library takes down a worker, never the window.
      imageProcessor_(std::make_shared<WorkerImageProcessor>(workersettings::Foreground())),
      preview_(new PreviewSession(this)),
      cropAdjustments_(new CropAdjustmentStore(this)) {
    previewResizeSettle_.setSingleShot(true);
    previewResizeSettle_.setInterval(kPreviewResizeSettleMs);
    connect(&previewResizeSettle_, &QTimer::timeout, this,
            &ViewController::DecodeAgainIfPictureTooSmall);
}

ViewController::~ViewController() {
    // A job under way uses the services: it ends first.
    delete cropJob_;
    // The window and the table may outlive their delegate.
    if (auto* window = qobject_cast<MainWindow*>(view_.data())) {
        window->SetDelegate(nullptr);
    }
}

void ViewController::LoadView(MainWindow& window) {
    view_ = &window;
    ui_ = &window.ui();
    settings_ = new SettingsPanel(*ui_, services_, this);
    profiles_ = new ProfileFiles(*settings_, services_, this);
    plans_ = new PlanFiles(*imageList_, *settings_, *cropAdjustments_, services_, this);
    cropJob_ = new WindowCropJob(*ui_, services_, this);
    ConnectCommands();
    SetUpControls();
    ConnectContactSheet();
}

void ViewController::SetUpControls() {
    // The controller answers the window's close question. The view's own
    // window is the application's one window.
    if (auto* window = qobject_cast<MainWindow*>(view_.isNull() ? nullptr : view_->window())) {
        window->SetDelegate(this);
    }

    // The table shows the list and takes its drops (files dragged from a
    // file manager arrive as a list of file URLs).
    ui_->tableViewImage->SetImageList(imageList_);

    ResetInterface();
}

void ViewController::SetImageProcessor(std::shared_ptr<ImageProcessor> processor) {
    if (!processor) {
        Fatal("the window needs an image processor");
    }
    imageProcessor_ = std::move(processor);
}

void ViewController::OnCropImages() {
    // One snapshot for the checks, the questions and the job: the interface
    // is locked from the questions on, so the controls cannot change after.
    // Adjusted rectangles are part of it: undoing one while the job runs
    // does not change what it writes.
    CropRequest request;
    request.settings = settings_->Read();
    request.images = NativePaths(imageList_->paths());
    request.roots = NativePaths(imageList_->folders());
    request.adjustments = cropAdjustments_->ForJob(imageList_->paths());
    cropJob_->Crop(std::move(request), imageProcessor_);
}

void ViewController::OnStopCropping() {
    cropJob_->Stop();
}

bool ViewController::isCropping() const {
    return cropJob_ != nullptr && cropJob_->isCropping();
}

int ViewController::imageCount() const {
    return imageList_->count();
}

void ViewController::ConnectCommands() {
    ConnectAdjustments();
    connect(ui_->actionNew, &QAction::triggered, this, &ViewController::OnFileNew);
    ConnectProfiles();
    connect(ui_->actionQuit, &QAction::triggered, this, &ViewController::OnAppQuit);
    connect(ui_->actionVideoTutorial, &QAction::triggered, this, &ViewController::OnVideoTutorial);
    connect(ui_->actionAbout, &QAction::triggered, this, [this] {
        auto* box = new AboutBox(view_->window());
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    });

    connect(ui_->buttonAddImages, &QPushButton::clicked, this, &ViewController::OnAddImages);
    // The menu's image commands are the buttons' (their shortcuts shown in
    // the menu).
    new ButtonAction(*ui_->actionAddImages, *ui_->buttonAddImages);
    new ButtonAction(*ui_->actionRemoveSelected, *ui_->buttonRemoveSelected);
    new ButtonAction(*ui_->actionRemoveAll, *ui_->buttonRemoveAll);
    new ButtonAction(*ui_->actionCropImages, *ui_->buttonCropImages);
    connect(ui_->buttonRemoveSelected, &QPushButton::clicked, this,
            &ViewController::OnRemoveSelected);
    connect(ui_->buttonRemoveAll, &QPushButton::clicked, this, &ViewController::OnRemoveAll);
    connect(ui_->tableViewImage, &ImageTableView::selectedRowsChanged, this,
            &ViewController::ShowSelectedImage);
    connect(ui_->tableViewImage, &ImageTableView::selectedRowsChanged, this,
            &ViewController::ShowImageCount);
    connect(ui_->tableViewImage, &ImageTableView::deletePressed, this,
            &ViewController::OnRemoveSelected);
    connect(imageList_, &QAbstractItemModel::modelReset, this, &ViewController::OnListChanged);
    connect(imageList_, &QAbstractItemModel::rowsInserted, this, &ViewController::OnListChanged);
    connect(imageList_, &QAbstractItemModel::rowsRemoved, this, &ViewController::OnListChanged);
    ConnectPreview();
    ConnectSettings();
    connect(ui_->buttonCropImages, &QPushButton::clicked, this, &ViewController::OnCropImages);
    connect(ui_->buttonStopCropping, &QPushButton::clicked, this, &ViewController::OnStopCropping);
    connect(cropJob_, &WindowCropJob::cropStarted, this, &ViewController::DisableInterface);
    connect(cropJob_, &WindowCropJob::cropEnded, this, &ViewController::EnableInterface);
    ConnectDesktop();
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), view_->window());
    escape->setContext(Qt::WindowShortcut);
    connect(escape, &QShortcut::activated, this, &ViewController::OnStopCropping);
}

void ViewController::ConnectDesktop() {
    auto* launcher = new LauncherProgress(this);
    connect(cropJob_, &WindowCropJob::progressed, launcher, &LauncherProgress::Show);
    connect(cropJob_, &WindowCropJob::cropEnded, launcher, &LauncherProgress::Hide);
    auto* notifier =
        new BatchNotifier([this] { return !view_.isNull() && view_->window()->isActiveWindow(); },
                          services_.openUrl, this);
    connect(cropJob_, &WindowCropJob::batchEnded, notifier, &BatchNotifier::BatchEnded);
}

void ViewController::ConnectContactSheet() {
    contactSheet_ = new ContactSheetController(
        *ui_, *imageList_,
        [this](const QString& path, Size fullSize) {
            return CropOfImage(settings_->Read(), path, fullSize);
        },
        this);
    connect(contactSheet_, &ContactSheetController::deletePressed, this,
            &ViewController::OnRemoveSelected);
}

void ViewController::RefreshContactSheet() {
    if (contactSheet_ != nullptr) {
        contactSheet_->RefreshCells();
    }
}

void ViewController::ConnectSettings() {
    connect(settings_, &SettingsPanel::cropChanged, this, &ViewController::UpdateCropPreview);
    connect(settings_, &SettingsPanel::cropRuleChanged, this, &ViewController::OnCropRuleChanged);
    connect(settings_, &SettingsPanel::outputChanged, this, &ViewController::UpdateImageSize);
    connect(settings_, &SettingsPanel::nameChanged, this, &ViewController::ShowOutputName);
    // A profile or plan loaded changes the name too, with or without an image.
    connect(settings_, &SettingsPanel::cropChanged, this, &ViewController::ShowOutputName);
}

void ViewController::ResetInterface() {
    imageList_->Clear();
    cropAdjustments_->ReplaceAll({});
    ui_->tabView->setCurrentIndex(0);
    settings_->Reset();
    SetProgressFraction(*ui_->progressIndicator, 0.0);
    ClearImageListSelection();
    EmptyPreview();
}

void ViewController::DisableInterface() {
    // The job reads the list and the settings while it runs, so nothing that
    // changes them may be used meanwhile. The table, the tabs, the preview,
    // the labels, the progress bar and the menu stay as they are.
    settings_->Lock();
    // A plan opened would replace the list; the rectangle on the preview is
    // shown, not adjusted (the job has its own copy of the adjustments).
    ui_->actionOpenCropPlan->setEnabled(false);
    ui_->imageViewCropPreview->SetFrameAdjustable(false);
}

void ViewController::EnableInterface() {
    settings_->Unlock();
    ui_->actionOpenCropPlan->setEnabled(true);
    ui_->imageViewCropPreview->SetFrameAdjustable(true);
}

bool ViewController::windowShouldClose(QWidget&) {
    // Nothing else is ever saved or asked, also while a crop job runs:
    // closing the one window ends the application. Only rectangles adjusted
    // by hand, which took a person's work, are offered to be kept.
    return plans_->AgreeToLeaveAdjustments();
}

void ViewController::OnAppQuit() {
    // Quitting closes the window: the same one question first.
    if (!plans_->AgreeToLeaveAdjustments()) {
        return;
    }
    QCoreApplication::quit();
}

void ViewController::OnFileNew() {
    // A list a person has built is not thrown away unasked; with unsaved
    // adjustments, the question about them is the one asked.
    if (cropAdjustments_->HasUnsavedAdjustments() ? !plans_->AgreeToLeaveAdjustments()
                                                  : !AgreeToEmptyTheList()) {
        return;
    }
    ResetInterface();
    profiles_->Forget();
}

void ViewController::ConnectProfiles() {
    connect(ui_->actionLoadProfile, &QAction::triggered, profiles_, &ProfileFiles::Load);
    connect(ui_->actionSaveProfile, &QAction::triggered, profiles_, &ProfileFiles::Save);
    connect(ui_->actionSaveProfileAs, &QAction::triggered, profiles_, &ProfileFiles::SaveAs);
    auto* recentProfiles =
        new RecentFiles(QStringLiteral("recent/profiles"), *ui_->menuRecentProfiles, this);
    connect(profiles_, &ProfileFiles::used, recentProfiles, &RecentFiles::Use);
    connect(recentProfiles, &RecentFiles::chosen, profiles_, &ProfileFiles::LoadFile);
    auto* recentPlans =
        new RecentFiles(QStringLiteral("recent/plans"), *ui_->menuRecentPlans, this);
    connect(plans_, &PlanFiles::used, recentPlans, &RecentFiles::Use);
    connect(recentPlans, &RecentFiles::chosen, plans_, &PlanFiles::OpenRecent);
    // The title names the current profile: "Vellumo — Portraits".
    connect(profiles_, &ProfileFiles::currentPathChanged, this, [this](const QString& path) {
        if (view_.isNull()) {
            return;
        }
        QString title = QString::fromLatin1(kWindowTitle);
        if (!path.isEmpty()) {
            title += QStringLiteral(" \u2014 ") + QFileInfo(path).completeBaseName();
        }
        view_->window()->setWindowTitle(title);
    });
}

void ViewController::OnVideoTutorial() {
    const QUrl address(QString::fromLatin1(kVideoTutorialAddress), QUrl::StrictMode);
    if (!address.isValid()) {
        return;
    }
    // Without a browser the address is given, so it can be opened elsewhere.
    if (!services_.openUrl(address)) {
        services_.showMessageBox(
            NoticeRequest(tr("No web browser could be opened. The video tutorial is at %1")
                              .arg(address.toString())));
    }
}

}  // namespace vellumo
