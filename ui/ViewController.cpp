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

#include "ui/controls/AutoCropRuleBox.h"
#include "ui/controls/ButtonAction.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/PopUpChoices.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/ResizeRuleBox.h"
#include "ui/controls/SettingsBinding.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/TextFieldNumber.h"
#include "ui/list/ImageListModel.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/PreviewPrefetch.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {

ViewController::ViewController(QObject* parent)
    : QObject(parent),
      acceptedExtensions_(AcceptedImageExtensions()),
      imageListModel_(new ImageListModel(listImagePaths_, this)),
      services_(WindowServices::Desktop(
          [this]() -> QWidget* { return view_.isNull() ? nullptr : view_->window(); })),
      // Decoding and encoding happen in worker processes: a file that crashes
      // an image library takes down a worker, never the window.
      previewDecoder_(std::make_shared<WorkerPreviewDecoder>()),
      imageProcessor_(std::make_shared<WorkerImageProcessor>()),
      // Pictures made ahead come from workers at the lowest priority, so
      // they never take a core from the picture of the row just selected.
      prefetchDecoder_(std::make_shared<WorkerPreviewDecoder>(WorkerLimits::Background())),
      prefetch_(new PreviewPrefetch(this)),
      cropAdjustments_(new CropAdjustmentStore(this)) {
    // A long decode (a huge PNG) must not hold up the next selection's.
    previewWork_.setMaxThreadCount(2);
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
    if (tableViewImage.isConnected()) {
        tableViewImage->SetDropDelegate(nullptr);
    }
}

void ViewController::LoadView(QWidget& window) {
    view_ = &window;
    ConnectOutlets(window);
    settingsBinding_ = std::make_unique<SettingsBinding>(SettingsBinding::Controls{
        *radioAutoCrop,
        *comboAutoCropFormat,
        *autoCropRule,
        *radioCustomCrop,
        *radioCustomCropPixels,
        *radioCustomCropPercents,
        *textFieldCustomCropPixelsOriginX,
        *textFieldCustomCropPixelsOriginY,
        *textFieldCustomCropPixelsWidth,
        *textFieldCustomCropPixelsHeight,
        *textFieldCustomCropPercentsOriginX,
        *textFieldCustomCropPercentsOriginY,
        *textFieldCustomCropPercentsWidth,
        *textFieldCustomCropPercentsHeight,
        *stepperCustomCropPercentsOriginX,
        *stepperCustomCropPercentsOriginY,
        *stepperCustomCropPercentsWidth,
        *stepperCustomCropPercentsHeight,
        *resizeRule,
        *comboFormat,
        *sliderQuality,
        *labelQuality,
        *textFieldName,
        *textFieldOutputFolder,
        *checkKeepEXIFInformationAndCreationDate,
        *checkReplaceOriginals,
        *checkCropJPEGFilesWithoutReencoding,
    });
    ConnectCommands();
    viewDidLoad();
    ConnectContactSheet(window);
}

void ViewController::viewDidLoad() {
    // The controller answers the window's close question. The view's own
    // window is the application's one window.
    if (auto* window = qobject_cast<MainWindow*>(view_.isNull() ? nullptr : view_->window())) {
        window->SetDelegate(this);
    }

    // Files dragged from a file manager arrive as a list of file URLs.
    tableViewImage->RegisterForDraggedTypes({QStringLiteral("text/uri-list")});

    tableViewImage->SetDropDelegate(this);
    tableViewImage->SetImageListModel(imageListModel_);

    comboAutoCropFormat->clear();
    comboAutoCropFormat->addItems(AutoCropFormatTitles());

    comboFormat->clear();
    comboFormat->addItems(OutputFormatTitles());

    for (QLineEdit* field :
         {textFieldCustomCropPixelsOriginX.get(), textFieldCustomCropPixelsOriginY.get(),
          textFieldCustomCropPixelsWidth.get(), textFieldCustomCropPixelsHeight.get(),
          textFieldCustomCropPercentsOriginX.get(), textFieldCustomCropPercentsOriginY.get(),
          textFieldCustomCropPercentsWidth.get(), textFieldCustomCropPercentsHeight.get()}) {
        AcceptNumbersOnly(*field);
    }

    ResetInterface();
}

void ViewController::setCurrentImage(const Image& image) {
    currentImage_ = image;
    previewPicture_ = image;
}

void ViewController::SetPreviewDecoder(std::shared_ptr<PreviewDecoder> decoder) {
    if (!decoder) {
        Fatal("the window needs a preview decoder");
    }
    previewDecoder_ = std::move(decoder);
    prefetchDecoder_ = previewDecoder_;
    prefetch_->Clear();
}

void ViewController::SetImageProcessor(std::shared_ptr<ImageProcessor> processor) {
    if (!processor) {
        Fatal("the window needs an image processor");
    }
    imageProcessor_ = std::move(processor);
}

int ViewController::numberOfRowsInTableView() const {
    return static_cast<int>(listImagePaths_.size());
}

void ViewController::ConnectOutlets(QWidget& window) {
    buttonAddImages.Connect(window);
    buttonRemoveSelected.Connect(window);
    buttonRemoveAll.Connect(window);
    progressIndicator.Connect(window);
    buttonCropImages.Connect(window);
    buttonStopCropping.Connect(window);
    tableViewImage.Connect(window);
    labelOriginalDimensionsWidth.Connect(window);
    labelOriginalDimensionsHeight.Connect(window);
    labelOutputDimensionsWidth.Connect(window);
    labelOutputDimensionsHeight.Connect(window);
    radioAutoCrop.Connect(window);
    comboAutoCropFormat.Connect(window);
    autoCropRule.Connect(window);
    resizeRule.Connect(window);
    radioCustomCrop.Connect(window);
    radioCustomCropPixels.Connect(window);
    textFieldCustomCropPixelsOriginX.Connect(window);
    textFieldCustomCropPixelsOriginY.Connect(window);
    textFieldCustomCropPixelsWidth.Connect(window);
    textFieldCustomCropPixelsHeight.Connect(window);
    radioCustomCropPercents.Connect(window);
    textFieldCustomCropPercentsOriginX.Connect(window);
    stepperCustomCropPercentsOriginX.Connect(window);
    textFieldCustomCropPercentsOriginY.Connect(window);
    stepperCustomCropPercentsOriginY.Connect(window);
    textFieldCustomCropPercentsWidth.Connect(window);
    stepperCustomCropPercentsWidth.Connect(window);
    textFieldCustomCropPercentsHeight.Connect(window);
    stepperCustomCropPercentsHeight.Connect(window);
    comboFormat.Connect(window);
    sliderQuality.Connect(window);
    labelQuality.Connect(window);
    textFieldName.Connect(window);
    textFieldOutputFolder.Connect(window);
    buttonBrowse.Connect(window);
    checkKeepEXIFInformationAndCreationDate.Connect(window);
    tabView.Connect(window);
    imageViewCropPreview.Connect(window);
    labelJobStatus.Connect(window);
    labelImageCount.Connect(window);
    labelPreviewNote.Connect(window);
    checkReplaceOriginals.Connect(window);
    checkCropJPEGFilesWithoutReencoding.Connect(window);

    actionNew.Connect(window);
    actionLoadProfile.Connect(window);
    actionSaveProfile.Connect(window);
    actionSaveProfileAs.Connect(window);
    actionQuit.Connect(window);
    actionVideoTutorial.Connect(window);
    actionOpenCropPlan.Connect(window);
    actionSaveCropPlan.Connect(window);
    actionAddImages.Connect(window);
    actionRemoveSelected.Connect(window);
    actionRemoveAll.Connect(window);
    actionCropImages.Connect(window);
    actionUndo.Connect(window);
    actionRedo.Connect(window);
    actionResetCrop.Connect(window);
    actionResetAllCrops.Connect(window);
}

void ViewController::ConnectCommands() {
    ConnectAdjustments();
    connect(actionNew.get(), &QAction::triggered, this, &ViewController::OnFileNew);
    connect(actionLoadProfile.get(), &QAction::triggered, this, &ViewController::OnLoadProfile);
    connect(actionSaveProfile.get(), &QAction::triggered, this, &ViewController::OnSaveProfile);
    connect(actionSaveProfileAs.get(), &QAction::triggered, this, &ViewController::OnSaveProfileAs);
    connect(actionQuit.get(), &QAction::triggered, this, &ViewController::OnAppQuit);
    connect(actionVideoTutorial.get(), &QAction::triggered, this, &ViewController::OnVideoTutorial);

    connect(buttonAddImages.get(), &QPushButton::clicked, this, &ViewController::OnAddImages);
    // The menu's image commands are the buttons' (their shortcuts shown in
    // the menu).
    new ButtonAction(*actionAddImages, *buttonAddImages);
    new ButtonAction(*actionRemoveSelected, *buttonRemoveSelected);
    new ButtonAction(*actionRemoveAll, *buttonRemoveAll);
    new ButtonAction(*actionCropImages, *buttonCropImages);
    connect(buttonRemoveSelected.get(), &QPushButton::clicked, this,
            &ViewController::OnRemoveSelected);
    connect(buttonRemoveAll.get(), &QPushButton::clicked, this, &ViewController::OnRemoveAll);
    connect(tableViewImage.get(), &ImageTableView::selectionDidChange, this,
            &ViewController::tableViewSelectionDidChange);
    connect(tableViewImage.get(), &ImageTableView::selectionDidChange, this,
            &ViewController::ShowImageCount);
    connect(tableViewImage.get(), &ImageTableView::deletePressed, this,
            &ViewController::OnRemoveSelected);
    // However the list changed (added, dropped, removed, reset), its count
    // follows.
    connect(imageListModel_, &QAbstractItemModel::modelReset, this,
            &ViewController::ShowImageCount);
    connect(imageListModel_, &QAbstractItemModel::rowsInserted, this,
            &ViewController::ShowImageCount);
    connect(imageViewCropPreview.get(), &CropPreviewView::resized, &previewResizeSettle_,
            qOverload<>(&QTimer::start));

    // Only what the user does reaches the handlers: clicks, choices from a
    // list, typing, steps. Values the program sets send nothing.
    connect(radioAutoCrop.get(), &QAbstractButton::clicked, this,
            &ViewController::OnAutoCropSelected);
    connect(comboAutoCropFormat.get(), &QComboBox::activated, this,
            &ViewController::OnAutoCropFormatSelected);
    connect(autoCropRule.get(), &AutoCropRuleBox::changed, this,
            &ViewController::OnCropRuleChanged);
    connect(resizeRule.get(), &ResizeRuleBox::changed, this, &ViewController::UpdateCropPreview);
    connect(radioCustomCrop.get(), &QAbstractButton::clicked, this,
            &ViewController::OnCustomCropSelected);
    connect(radioCustomCropPixels.get(), &QAbstractButton::clicked, this,
            &ViewController::OnCustomCropPixelsSelected);
    connect(textFieldCustomCropPixelsOriginX.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPixelsOriginXChanged);
    connect(textFieldCustomCropPixelsOriginY.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPixelsOriginYChanged);
    connect(textFieldCustomCropPixelsWidth.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPixelsWidthChanged);
    connect(textFieldCustomCropPixelsHeight.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPixelsHeightChanged);
    connect(radioCustomCropPercents.get(), &QAbstractButton::clicked, this,
            &ViewController::OnCustomCropPercentsSelected);
    connect(textFieldCustomCropPercentsOriginX.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPercentsOriginXChanged);
    connect(textFieldCustomCropPercentsOriginY.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPercentsOriginYChanged);
    connect(textFieldCustomCropPercentsWidth.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPercentsWidthChanged);
    connect(textFieldCustomCropPercentsHeight.get(), &QLineEdit::textEdited, this,
            &ViewController::OnCustomCropPercentsHeightChanged);
    connect(stepperCustomCropPercentsOriginX.get(), &Stepper::valueStepped, this,
            &ViewController::OnStepperCustomCropPercentsOriginXChanged);
    connect(stepperCustomCropPercentsOriginY.get(), &Stepper::valueStepped, this,
            &ViewController::OnStepperCustomCropPercentsOriginYChanged);
    connect(stepperCustomCropPercentsWidth.get(), &Stepper::valueStepped, this,
            &ViewController::OnStepperCustomCropPercentsWidthChanged);
    connect(stepperCustomCropPercentsHeight.get(), &Stepper::valueStepped, this,
            &ViewController::OnStepperCustomCropPercentsHeightChanged);

    connect(comboFormat.get(), &QComboBox::activated, this, &ViewController::OnFormatSelected);
    connect(sliderQuality.get(), &QualitySlider::doubleValueMoved, this,
            &ViewController::OnQualityChanged);
    connect(textFieldName.get(), &QLineEdit::textEdited, this, &ViewController::OnNameChanged);
    connect(buttonBrowse.get(), &QPushButton::clicked, this, &ViewController::OnBrowse);
    connect(checkKeepEXIFInformationAndCreationDate.get(), &QAbstractButton::clicked, this,
            &ViewController::OnKeepEXIFInformationAndCreationDateSelected);
    connect(checkReplaceOriginals.get(), &QAbstractButton::clicked, this,
            &ViewController::OnReplaceOriginalsSelected);
    connect(checkCropJPEGFilesWithoutReencoding.get(), &QAbstractButton::clicked, this,
            &ViewController::OnCropJPEGFilesWithoutReencodingSelected);

    connect(buttonCropImages.get(), &QPushButton::clicked, this, &ViewController::OnCropImages);
    connect(buttonStopCropping.get(), &QPushButton::clicked, this, &ViewController::OnStopCropping);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), view_->window());
    escape->setContext(Qt::WindowShortcut);
    connect(escape, &QShortcut::activated, this, &ViewController::OnStopCropping);
}

void ViewController::EmptyPreview() {
    shownRefresh_ = ++refreshCount_;
    currentPath_.clear();
    imageViewCropPreview->SetImage(QImage());
}

}  // namespace vellumo
