#include "ui/ViewController.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

#include "ui/controls/ButtonAction.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/files/PlanFiles.h"
#include "ui/files/ProfileFiles.h"
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
      imageProcessor_(std::make_shared<WorkerImageProcessor>()),
      preview_(new PreviewSession(this)),
      cropAdjustments_(new CropAdjustmentStore(this)) {
    // One job at a time, its images one after another.
    jobWork_.setMaxThreadCount(1);
    previewResizeSettle_.setSingleShot(true);
    previewResizeSettle_.setInterval(kPreviewResizeSettleMs);
    connect(&previewResizeSettle_, &QTimer::timeout, this,
            &ViewController::DecodeAgainIfPictureTooSmall);
}

ViewController::~ViewController() {
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

int ViewController::imageCount() const {
    return imageList_->count();
}

void ViewController::ConnectCommands() {
    ConnectAdjustments();
    connect(ui_->actionNew, &QAction::triggered, this, &ViewController::OnFileNew);
    ConnectProfiles();
    connect(ui_->actionQuit, &QAction::triggered, this, &ViewController::OnAppQuit);
    connect(ui_->actionVideoTutorial, &QAction::triggered, this, &ViewController::OnVideoTutorial);

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
    // However the list changed (added, dropped, removed, reset), its count
    // follows.
    connect(imageList_, &QAbstractItemModel::modelReset, this, &ViewController::ShowImageCount);
    connect(imageList_, &QAbstractItemModel::rowsInserted, this, &ViewController::ShowImageCount);
    connect(imageList_, &QAbstractItemModel::rowsRemoved, this, &ViewController::ShowImageCount);
    ConnectPreview();
    ConnectSettings();
    connect(ui_->buttonCropImages, &QPushButton::clicked, this, &ViewController::OnCropImages);
    connect(ui_->buttonStopCropping, &QPushButton::clicked, this, &ViewController::OnStopCropping);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), view_->window());
    escape->setContext(Qt::WindowShortcut);
    connect(escape, &QShortcut::activated, this, &ViewController::OnStopCropping);
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
}

}  // namespace vellumo
