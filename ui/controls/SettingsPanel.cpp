#include "ui/controls/SettingsPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

#include "batch/RuleClash.h"
#include "imaging/Formats.h"
#include "imaging/OutputCodec.h"
#include "ui/WindowServices.h"
#include "ui/controls/AutoCropRuleBox.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/NameTokenButton.h"
#include "ui/controls/PadRuleBox.h"
#include "ui/controls/PopUpChoices.h"
#include "ui/controls/PortraitRuleBox.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/QualityText.h"
#include "ui/controls/ResizeRuleBox.h"
#include "ui/controls/SettingsBinding.h"
#include "ui/controls/SizeLimitBox.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/TextFieldNumber.h"
#include "ui/controls/TrimRuleBox.h"
#include "ui/dialogs/RuleClashNotice.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

constexpr char kSelectFolderPrompt[] = QT_TRANSLATE_NOOP("vellumo::SettingsPanel", "Select Folder");
constexpr char kCroppingTitle[] = QT_TRANSLATE_NOOP("vellumo::SettingsPanel", "Cropping...");
constexpr char kCropImagesTitle[] = QT_TRANSLATE_NOOP("vellumo::SettingsPanel", "Crop Images");

// Why the metadata option is off for `format`.
QString CannotCarryText(const OutputFormatInfo* format) {
    if (format == nullptr || format->codec == OutputCodec::Gif ||
        format->codec == OutputCodec::Bmp) {
        return SettingsPanel::tr("GIF and BMP files cannot carry EXIF information");
    }
    return SettingsPanel::tr("Vellumo writes only the colour profile into %1 files")
        .arg(QString::fromLatin1(format->title.data(), static_cast<int>(format->title.size())));
}

SettingsBinding::Controls BoundControls(Ui::MainWindow& ui) {
    return SettingsBinding::Controls{
        *ui.radioAutoCrop,
        *ui.comboAutoCropFormat,
        *ui.autoCropRule,
        *ui.radioCustomCrop,
        *ui.radioCustomCropPixels,
        *ui.radioCustomCropPercents,
        *ui.textFieldCustomCropPixelsOriginX,
        *ui.textFieldCustomCropPixelsOriginY,
        *ui.textFieldCustomCropPixelsWidth,
        *ui.textFieldCustomCropPixelsHeight,
        *ui.textFieldCustomCropPercentsOriginX,
        *ui.textFieldCustomCropPercentsOriginY,
        *ui.textFieldCustomCropPercentsWidth,
        *ui.textFieldCustomCropPercentsHeight,
        *ui.stepperCustomCropPercentsOriginX,
        *ui.stepperCustomCropPercentsOriginY,
        *ui.stepperCustomCropPercentsWidth,
        *ui.stepperCustomCropPercentsHeight,
        *ui.resizeRule,
        *ui.comboFormat,
        *ui.sliderQuality,
        *ui.labelQuality,
        *ui.textFieldName,
        *ui.textFieldOutputFolder,
        *ui.checkKeepEXIFInformationAndCreationDate,
        *ui.checkReplaceOriginals,
        *ui.checkCropJPEGFilesWithoutReencoding,
        *ui.checkKeepFolderStructure,
        *ui.sizeLimit,
        *ui.portraitRule,
        *ui.trimRule,
        *ui.padRule,
    };
}

}  // namespace

SettingsPanel::SettingsPanel(Ui::MainWindow& ui, WindowServices& services, QObject* parent)
    : QObject(parent),
      ui_(ui),
      services_(services),
      binding_(std::make_unique<SettingsBinding>(BoundControls(ui))) {
    ui_.comboAutoCropFormat->clear();
    ui_.comboAutoCropFormat->addItems(AutoCropFormatTitles());
    ui_.comboFormat->clear();
    ui_.comboFormat->addItems(OutputFormatTitles());
    for (QLineEdit* field :
         {ui_.textFieldCustomCropPixelsOriginX, ui_.textFieldCustomCropPixelsOriginY,
          ui_.textFieldCustomCropPixelsWidth, ui_.textFieldCustomCropPixelsHeight,
          ui_.textFieldCustomCropPercentsOriginX, ui_.textFieldCustomCropPercentsOriginY,
          ui_.textFieldCustomCropPercentsWidth, ui_.textFieldCustomCropPercentsHeight}) {
        AcceptNumbersOnly(*field);
    }
    // Only what the person does reaches the handlers: clicks, choices from a
    // list, typing, steps. Values the program sets send nothing.
    ConnectCropControls();
    ConnectPercentControls();
    ConnectOutputControls();
}

SettingsPanel::~SettingsPanel() = default;

CropSettings SettingsPanel::Read() const {
    return binding_->Read();
}

void SettingsPanel::Write(const CropSettings& settings) {
    binding_->Write(settings);
    SettleOutputControls();
    Q_EMIT cropRuleChanged();
}

void SettingsPanel::Reset() {
    const bool wasReplacingOriginals = ui_.checkReplaceOriginals->isChecked();
    CropSettings start;
    start.autoCropRatio = RatioChoiceAtPosition(ui_.comboAutoCropFormat->currentIndex())
                              .value_or(start.autoCropRatio);
    binding_->Write(start);
    // "JPG" takes a quality (the slider is enabled even while a job runs)
    // and carries metadata; with the originals no longer replaced, the name,
    // folder and format are used again. Other enabled states stay as they
    // are.
    ui_.sliderQuality->setEnabled(true);
    // JPG can be fitted to a size limit; a job under way keeps it locked.
    if (!locked_) {
        ui_.sizeLimit->setEnabled(true);
    }
    if (wasReplacingOriginals || !ui_.checkKeepEXIFInformationAndCreationDate->isEnabled()) {
        SettleOutputControls();
    }
    // "JPG" keeps no transparency.
    SettlePadFill();
}

// A radio turns itself on when clicked; its handler turns the other of its
// pair off. The two pairs are independent of each other.
void SettingsPanel::ConnectCropControls() {
    // A crop mode chosen cuts what padding would keep whole (RuleClash.h):
    // padding goes off, as the crop modes go off when padding is turned on.
    const auto turnsOff = [this](LatchingRadioButton* clicked, LatchingRadioButton* other) {
        connect(clicked, &QAbstractButton::clicked, this, [this, other] {
            other->setChecked(false);
            ui_.padRule->SetOn(false);
            Q_EMIT cropChanged();
        });
    };
    turnsOff(ui_.radioAutoCrop, ui_.radioCustomCrop);
    turnsOff(ui_.radioCustomCrop, ui_.radioAutoCrop);
    turnsOff(ui_.radioCustomCropPixels, ui_.radioCustomCropPercents);
    turnsOff(ui_.radioCustomCropPercents, ui_.radioCustomCropPixels);
    connect(ui_.comboAutoCropFormat, &QComboBox::activated, this,
            &SettingsPanel::OnAutoCropFormatSelected);
    connect(ui_.autoCropRule, &AutoCropRuleBox::changed, this, &SettingsPanel::cropRuleChanged);
    connect(ui_.resizeRule, &ResizeRuleBox::changed, this, &SettingsPanel::cropChanged);
    // A portrait needs the faces and a trim what it finds on the file: the
    // rule changes what the preview asks of its worker.
    connect(ui_.portraitRule, &PortraitRuleBox::changed, this, &SettingsPanel::cropRuleChanged);
    connect(ui_.trimRule, &TrimRuleBox::changed, this, &SettingsPanel::cropRuleChanged);
    connect(ui_.padRule, &PadRuleBox::changed, this, &SettingsPanel::OnPadChanged);
    for (QLineEdit* field :
         {ui_.textFieldCustomCropPixelsOriginX, ui_.textFieldCustomCropPixelsOriginY,
          ui_.textFieldCustomCropPixelsWidth, ui_.textFieldCustomCropPixelsHeight}) {
        connect(field, &QLineEdit::textEdited, this, &SettingsPanel::cropChanged);
    }
}

void SettingsPanel::OnPadChanged() {
    const CropMode mode = CropModeOfRadios(
        ui_.radioAutoCrop->isChecked(), ui_.radioCustomCrop->isChecked(),
        ui_.radioCustomCropPixels->isChecked(), ui_.radioCustomCropPercents->isChecked());
    if (!ui_.padRule->IsOn() || mode == CropMode::None) {
        Q_EMIT cropChanged();
        return;
    }
    // Padding places the whole image, or what the trim leaves, on its
    // canvas: no crop mode cuts it first. Without the auto-crop the preview
    // needs neither faces nor placement.
    ui_.radioAutoCrop->setChecked(false);
    ui_.radioCustomCrop->setChecked(false);
    Q_EMIT cropRuleChanged();
}

void SettingsPanel::OnAutoCropFormatSelected() {
    ui_.autoCropRule->SetCustomRatioChosen(
        RatioChoiceAtPosition(ui_.comboAutoCropFormat->currentIndex()) == RatioChoice::Custom);
    Q_EMIT cropRuleChanged();
}

// A step changes the field beside the stepper, and typing in the field moves
// the stepper (kept within its range, so the next step goes on from what was
// typed); either way the preview and the labels follow at once. The field
// shows the stepper's value in single precision, as the field shows numbers.
void SettingsPanel::ConnectPercentControls() {
    const std::pair<QLineEdit*, Stepper*> pairs[] = {
        {ui_.textFieldCustomCropPercentsOriginX, ui_.stepperCustomCropPercentsOriginX},
        {ui_.textFieldCustomCropPercentsOriginY, ui_.stepperCustomCropPercentsOriginY},
        {ui_.textFieldCustomCropPercentsWidth, ui_.stepperCustomCropPercentsWidth},
        {ui_.textFieldCustomCropPercentsHeight, ui_.stepperCustomCropPercentsHeight},
    };
    // Plain variables, not a structured binding: Clang 14 (clang-tidy's)
    // does not let a lambda capture a binding, though C++20 allows it.
    for (const auto& pair : pairs) {
        QLineEdit* field = pair.first;
        Stepper* stepper = pair.second;
        connect(stepper, &Stepper::valueStepped, this, [this, field, stepper] {
            SetTextFieldNumber(*field, static_cast<float>(stepper->value()));
            Q_EMIT cropChanged();
        });
        connect(field, &QLineEdit::textEdited, this, [this, field, stepper] {
            stepper->setValue(TextFieldFloatValue(*field));
            Q_EMIT cropChanged();
        });
    }
}

void SettingsPanel::ConnectOutputControls() {
    // The values are kept, so an earlier quality comes back with a JPEG
    // format. A JPEG cropped without re-encoding changes the output size, and
    // the quality label says whether the quality is used.
    const auto settles = [this] {
        SettleOutputControls();
        Q_EMIT outputChanged();
    };
    connect(ui_.comboFormat, &QComboBox::activated, this, settles);
    connect(ui_.checkReplaceOriginals, &QAbstractButton::clicked, this, settles);
    connect(ui_.checkCropJPEGFilesWithoutReencoding, &QAbstractButton::clicked, this, settles);
    // The label only: the job reads the slider itself. The name template and
    // the metadata option are read when the job starts.
    connect(ui_.sliderQuality, &QualitySlider::doubleValueMoved, this, &SettingsPanel::ShowQuality);
    connect(ui_.buttonBrowse, &QPushButton::clicked, this, &SettingsPanel::OnBrowse);
    // The name line under the field follows the template as it is typed or
    // a token is put in.
    ui_.buttonNameTokens->SetField(ui_.textFieldName);
    connect(ui_.textFieldName, &QLineEdit::textEdited, this, &SettingsPanel::nameChanged);
    connect(ui_.buttonNameTokens, &NameTokenButton::tokenInserted, this,
            &SettingsPanel::nameChanged);
}

const OutputFormatInfo* SettingsPanel::ChosenFormat() const {
    const std::optional<OutputFormat> chosen =
        OutputFormatAtPosition(ui_.comboFormat->currentIndex());
    return chosen ? &InfoOf(*chosen) : nullptr;
}

void SettingsPanel::SettleOutputControls() {
    // While a job runs everything stays locked; the job's end settles them.
    if (locked_) {
        return;
    }
    const bool inPlace = ui_.checkReplaceOriginals->isChecked();
    const OutputFormatInfo* format = ChosenFormat();
    // Replacing the originals writes each file in its own format, which may
    // take a quality or carry metadata.
    ui_.sliderQuality->setEnabled(inPlace || (format != nullptr && format->takesQuality));
    const bool carries = inPlace || (format != nullptr && format->carriesMetadata);
    ui_.checkKeepEXIFInformationAndCreationDate->setEnabled(carries);
    ui_.checkKeepEXIFInformationAndCreationDate->setToolTip(carries ? QString()
                                                                    : CannotCarryText(format));
    // Replaced originals keep their format, so a JPEG among them may be
    // cropped without re-encoding.
    const bool jpeg = format != nullptr && format->codec == OutputCodec::Jpeg;
    ui_.checkCropJPEGFilesWithoutReencoding->setEnabled(inPlace || jpeg);
    ui_.comboFormat->setEnabled(!inPlace);
    ui_.textFieldName->setEnabled(!inPlace);
    ui_.textFieldOutputFolder->setEnabled(!inPlace);
    ui_.buttonBrowse->setEnabled(!inPlace);
    // Replaced originals may be JPEGs, whose quality can be fitted.
    ui_.sizeLimit->setEnabled(inPlace || (format != nullptr && ByteLimitFits(format->format)));
    ui_.checkKeepFolderStructure->setEnabled(!inPlace && listFromFolders_);
    SettlePadFill();
    ShowQuality();
}

void SettingsPanel::SettlePadFill() {
    const OutputFormatInfo* format = ChosenFormat();
    ui_.padRule->SetTransparencyKept(
        KeepsPadTransparency(binding_->Read()),
        format != nullptr ? RuleClashNotice::NoTransparency(format->format) : QString());
}

void SettingsPanel::SetListFromFolders(bool fromFolders) {
    listFromFolders_ = fromFolders;
    // This option only: the others keep the states they have.
    if (!locked_) {
        ui_.checkKeepFolderStructure->setEnabled(!ui_.checkReplaceOriginals->isChecked() &&
                                                 listFromFolders_);
    }
}

void SettingsPanel::ShowQuality() {
    // At the top, WebP and JPEG XL are written without loss, and the label
    // says so; JPEG files cropped without re-encoding do not use the quality
    // at all.
    const double value = ui_.sliderQuality->doubleValue();
    const OutputFormatInfo* format = ChosenFormat();
    const bool inPlace = ui_.checkReplaceOriginals->isChecked();
    const bool lossless =
        format != nullptr && LosslessAtFullQuality(format->codec) && !inPlace && value >= 100.0;
    const bool jpegUnused = ui_.checkCropJPEGFilesWithoutReencoding->isChecked() &&
                            (inPlace || (format != nullptr && format->codec == OutputCodec::Jpeg));
    QString suffix;
    if (lossless) {
        suffix = tr(" (lossless)");
    } else if (jpegUnused) {
        suffix = inPlace ? tr(" (not for JPEG files: lossless)") : tr(" (not used: lossless)");
    }
    ui_.labelQuality->setText(QualityText(static_cast<float>(value)) + suffix);
}

void SettingsPanel::OnBrowse() {
    OpenFilesRequest request;
    request.prompt = tr(kSelectFolderPrompt);
    request.allowsMultipleSelection = false;
    request.canCreateDirectories = false;
    request.canChooseDirectories = true;
    request.canChooseFiles = false;
    request.memoryKey = QStringLiteral("outputFolder");
    const OpenFilesResult chosen = services_.chooseFilesToOpen(request);
    // A cancel, or no folder, keeps the text. The folder is not checked.
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    ui_.textFieldOutputFolder->setText(chosen->first());
}

std::vector<QWidget*> SettingsPanel::LockedWhileCropping() const {
    return {
        ui_.buttonAddImages,
        ui_.buttonRemoveSelected,
        ui_.buttonRemoveAll,
        ui_.radioAutoCrop,
        ui_.comboAutoCropFormat,
        ui_.autoCropRule,
        ui_.portraitRule,
        ui_.trimRule,
        ui_.padRule,
        ui_.resizeRule,
        ui_.radioCustomCrop,
        ui_.radioCustomCropPixels,
        ui_.textFieldCustomCropPixelsOriginX,
        ui_.textFieldCustomCropPixelsOriginY,
        ui_.textFieldCustomCropPixelsWidth,
        ui_.textFieldCustomCropPixelsHeight,
        ui_.radioCustomCropPercents,
        ui_.textFieldCustomCropPercentsOriginX,
        ui_.stepperCustomCropPercentsOriginX,
        ui_.textFieldCustomCropPercentsOriginY,
        ui_.stepperCustomCropPercentsOriginY,
        ui_.textFieldCustomCropPercentsWidth,
        ui_.stepperCustomCropPercentsWidth,
        ui_.textFieldCustomCropPercentsHeight,
        ui_.stepperCustomCropPercentsHeight,
        ui_.comboFormat,
        ui_.sliderQuality,
        ui_.textFieldName,
        ui_.textFieldOutputFolder,
        ui_.checkKeepEXIFInformationAndCreationDate,
        ui_.checkCropJPEGFilesWithoutReencoding,
        ui_.sizeLimit,
        ui_.checkKeepFolderStructure,
        ui_.buttonBrowse,
        ui_.buttonCropImages,
        ui_.checkReplaceOriginals,
    };
}

void SettingsPanel::Lock() {
    locked_ = true;
    for (QWidget* control : LockedWhileCropping()) {
        control->setEnabled(false);
    }
    ui_.buttonCropImages->setText(tr(kCroppingTitle));
}

void SettingsPanel::Unlock() {
    locked_ = false;
    for (QWidget* control : LockedWhileCropping()) {
        control->setEnabled(true);
    }
    ui_.buttonCropImages->setText(tr(kCropImagesTitle));
    SettleOutputControls();
}

}  // namespace vellumo
