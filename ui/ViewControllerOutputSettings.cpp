// The output settings: format, quality, name template, folder and the
// metadata option.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "batch/CropSettings.h"
#include "imaging/Formats.h"
#include "imaging/OutputCodec.h"
#include "ui/ViewController.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/QualityText.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

constexpr char kSelectFolderPrompt[] = "Select Folder";

}  // namespace

void ViewController::OnFormatSelected() {
    // The values are kept, so an earlier quality comes back with a JPEG
    // format. A JPEG cropped without re-encoding changes the output size.
    SettleOutputControls();
    UpdateImageSize();
}

void ViewController::OnReplaceOriginalsSelected() {
    SettleOutputControls();
    UpdateImageSize();
}

void ViewController::OnCropJPEGFilesWithoutReencodingSelected() {
    // The quality label says whether it is used; the output labels show
    // the rectangle on the file's block grid.
    SettleOutputControls();
    UpdateImageSize();
}

namespace {

// Why the metadata option is off for `format`.
QString CannotCarryText(const OutputFormatInfo* format) {
    if (format == nullptr || format->codec == OutputCodec::Gif ||
        format->codec == OutputCodec::Bmp) {
        return QStringLiteral("GIF and BMP files cannot carry EXIF information");
    }
    return QStringLiteral("Vellumo writes only the colour profile into %1 files")
        .arg(QString::fromLatin1(format->title.data(), static_cast<int>(format->title.size())));
}

}  // namespace

void ViewController::SettleOutputControls() {
    // While a job runs everything stays locked; the job's end settles them.
    if (interfaceLocked_) {
        return;
    }
    const bool inPlace = ui_->checkReplaceOriginals->isChecked();
    const std::optional<OutputFormat> chosen =
        OutputFormatAtPosition(ui_->comboFormat->currentIndex());
    const OutputFormatInfo* format = chosen ? &InfoOf(*chosen) : nullptr;
    // Replacing the originals writes each file in its own format, which may
    // take a quality or carry metadata.
    ui_->sliderQuality->setEnabled(inPlace || (format != nullptr && format->takesQuality));
    const bool carries = inPlace || (format != nullptr && format->carriesMetadata);
    ui_->checkKeepEXIFInformationAndCreationDate->setEnabled(carries);
    ui_->checkKeepEXIFInformationAndCreationDate->setToolTip(carries ? QString()
                                                                     : CannotCarryText(format));
    // Replaced originals keep their format, so a JPEG among them may be
    // cropped without re-encoding.
    const bool jpeg = format != nullptr && format->codec == OutputCodec::Jpeg;
    ui_->checkCropJPEGFilesWithoutReencoding->setEnabled(inPlace || jpeg);
    ui_->comboFormat->setEnabled(!inPlace);
    ui_->textFieldName->setEnabled(!inPlace);
    ui_->textFieldOutputFolder->setEnabled(!inPlace);
    ui_->buttonBrowse->setEnabled(!inPlace);
    OnQualityChanged();
}

void ViewController::OnQualityChanged() {
    // The label only: the job reads the slider itself. At the top, WebP and
    // JPEG XL are written without loss, and the label says so; JPEG files
    // cropped without re-encoding do not use the quality at all.
    const double value = ui_->sliderQuality->doubleValue();
    const std::optional<OutputFormat> chosen =
        OutputFormatAtPosition(ui_->comboFormat->currentIndex());
    const OutputFormatInfo* format = chosen ? &InfoOf(*chosen) : nullptr;
    const bool inPlace = ui_->checkReplaceOriginals->isChecked();
    const bool lossless =
        format != nullptr && LosslessAtFullQuality(format->codec) && !inPlace && value >= 100.0;
    const bool jpegUnused = ui_->checkCropJPEGFilesWithoutReencoding->isChecked() &&
                            (inPlace || (format != nullptr && format->codec == OutputCodec::Jpeg));
    QString suffix;
    if (lossless) {
        suffix = QStringLiteral(" (lossless)");
    } else if (jpegUnused) {
        suffix = inPlace ? QStringLiteral(" (not for JPEG files: lossless)")
                         : QStringLiteral(" (not used: lossless)");
    }
    ui_->labelQuality->setText(QualityText(static_cast<float>(value)) + suffix);
}

void ViewController::OnNameChanged() {
    // Nothing: the template is read when output paths are made.
}

void ViewController::OnBrowse() {
    OpenFilesRequest request;
    request.prompt = QString::fromLatin1(kSelectFolderPrompt);
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
    ui_->textFieldOutputFolder->setText(chosen->first());
}

void ViewController::OnKeepEXIFInformationAndCreationDateSelected() {
    // The click has toggled the box; the job reads it.
}

}  // namespace vellumo
