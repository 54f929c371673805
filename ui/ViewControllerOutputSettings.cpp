// The output settings: format, quality, name template, folder and the
// metadata option.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "batch/CropSettings.h"
#include "imaging/Formats.h"
#include "ui/QualitySlider.h"
#include "ui/QualityText.h"
#include "ui/ViewController.h"

namespace vellumo {

namespace {

constexpr char kSelectFolderPrompt[] = "Select Folder";

}  // namespace

void ViewController::OnFormatSelected() {
    // The values are kept, so an earlier quality comes back with a JPEG
    // format.
    SettleOutputControls();
}

void ViewController::OnReplaceOriginalsSelected() {
    SettleOutputControls();
}

void ViewController::SettleOutputControls() {
    // While a job runs everything stays locked; the job's end settles them.
    if (interfaceLocked_) {
        return;
    }
    const bool inPlace = checkReplaceOriginals->isChecked();
    const OutputFormatInfo* format = OutputFormatAt(comboFormat->currentIndex());
    // Replacing the originals writes each file in its own format, which may
    // take a quality or carry metadata.
    sliderQuality->setEnabled(inPlace || (format != nullptr && format->takesQuality));
    const bool carries = inPlace || (format != nullptr && format->carriesMetadata);
    checkKeepEXIFInformationAndCreationDate->setEnabled(carries);
    checkKeepEXIFInformationAndCreationDate->setToolTip(
        carries ? QString() : QStringLiteral("GIF and BMP files cannot carry EXIF information"));
    comboFormat->setEnabled(!inPlace);
    textFieldName->setEnabled(!inPlace);
    textFieldOutputFolder->setEnabled(!inPlace);
    buttonBrowse->setEnabled(!inPlace);
}

void ViewController::OnQualityChanged() {
    // The label only: the job reads the slider itself.
    labelQuality->setText(QualityText(static_cast<float>(sliderQuality->doubleValue())));
}

void ViewController::OnNameChanged() {
    // Nothing: the template is read when output paths are made.
}

void ViewController::OnBrowse() {
    OpenPanelRequest request;
    request.prompt = QString::fromLatin1(kSelectFolderPrompt);
    request.allowsMultipleSelection = false;
    request.canCreateDirectories = false;
    request.canChooseDirectories = true;
    request.canChooseFiles = false;
    request.memoryKey = QStringLiteral("outputFolder");
    const OpenPanelResult chosen = services_.runOpenPanel(request);
    // A cancel, or no folder, keeps the text. The folder is not checked.
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    textFieldOutputFolder->setText(chosen->first());
}

void ViewController::OnKeepEXIFInformationAndCreationDateSelected() {
    // The click has toggled the box; the job reads it.
}

}  // namespace vellumo
