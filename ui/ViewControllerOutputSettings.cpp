// The output settings: format, quality, name template, folder and the
// metadata option.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "batch/CropSettings.h"
#include "ui/QualitySlider.h"
#include "ui/QualityText.h"
#include "ui/ViewController.h"

namespace vellumo {

namespace {

constexpr char kSelectFolderPrompt[] = "Select Folder";

}  // namespace

void ViewController::OnFormatSelected() {
    // The value is kept, so an earlier quality comes back with a JPEG
    // format.
    sliderQuality->setEnabled(OutputFormatTakesQuality(comboFormat->currentIndex()));
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
