// Profiles: every setting of the window saved to a small JSON file and
// loaded back. The file format is the core's, shared with the command line.

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>

#include "batch/Profile.h"
#include "ui/LatchingRadioButton.h"
#include "ui/QualitySlider.h"
#include "ui/QualityText.h"
#include "ui/Stepper.h"
#include "ui/TextFieldNumber.h"
#include "ui/ViewController.h"

namespace vellumo {

namespace {

constexpr char kProfileFileType[] = "vellumo";
constexpr char kProfilesDialog[] = "profiles";

QString Text(const std::string& bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

}  // namespace

void ViewController::ApplySettingsToControls(const CropSettings& s) {
    radioAutoCrop->setChecked(s.autoCrop);
    radioCustomCrop->setChecked(s.customCrop);
    radioCustomCropPixels->setChecked(s.customCropPixels);
    radioCustomCropPercents->setChecked(s.customCropPercents);
    comboAutoCropFormat->setCurrentIndex(static_cast<int>(s.autoCropFormat));

    SetTextFieldFloat(*textFieldCustomCropPixelsOriginX, s.pixelsOriginX);
    SetTextFieldFloat(*textFieldCustomCropPixelsOriginY, s.pixelsOriginY);
    SetTextFieldFloat(*textFieldCustomCropPixelsWidth, s.pixelsWidth);
    SetTextFieldFloat(*textFieldCustomCropPixelsHeight, s.pixelsHeight);
    SetTextFieldFloat(*textFieldCustomCropPercentsOriginX, s.percentsOriginX);
    SetTextFieldFloat(*textFieldCustomCropPercentsOriginY, s.percentsOriginY);
    SetTextFieldFloat(*textFieldCustomCropPercentsWidth, s.percentsWidth);
    SetTextFieldFloat(*textFieldCustomCropPercentsHeight, s.percentsHeight);
    // The steppers go on from the fields' values (kept within their range).
    stepperCustomCropPercentsOriginX->setValue(s.percentsOriginX);
    stepperCustomCropPercentsOriginY->setValue(s.percentsOriginY);
    stepperCustomCropPercentsWidth->setValue(s.percentsWidth);
    stepperCustomCropPercentsHeight->setValue(s.percentsHeight);

    comboFormat->setCurrentIndex(static_cast<int>(s.outputFormat));
    sliderQuality->setDoubleValue(s.quality);
    labelQuality->setText(QualityText(s.quality));
    textFieldName->setText(Text(s.nameTemplate));
    textFieldOutputFolder->setText(Text(s.outputFolder));
    checkKeepEXIFInformationAndCreationDate->setChecked(s.keepMetadata);
    SettleOutputControls();

    UpdateCropPreview();
}

void ViewController::ProfileIsNow(const QString& path) {
    currentProfilePath_ = path;
    if (!view_.isNull()) {
        view_->window()->setWindowTitle(QString::fromLatin1(kWindowTitle) +
                                        QStringLiteral(" \u2014 ") +
                                        QFileInfo(path).completeBaseName());
    }
}

void ViewController::SaveProfileTo(const QString& path) {
    const SaveResult saved =
        WriteProfile(QFile::encodeName(path).toStdString(), CropSettingsFromControls());
    if (!saved.saved) {
        services_.showMessageBox({"The profile could not be saved to " + path + ": " +
                                      QString::fromStdString(saved.reason) + ".",
                                  MessageBoxStyle::Warning,
                                  {QStringLiteral("OK")}});
        return;
    }
    ProfileIsNow(path);
}

void ViewController::OnSaveProfile() {
    if (currentProfilePath_.isEmpty()) {
        OnSaveProfileAs();
        return;
    }
    SaveProfileTo(currentProfilePath_);
}

void ViewController::OnSaveProfileAs() {
    SavePanelRequest request;
    request.title = QStringLiteral("Save Profile");
    request.fileType = QString::fromLatin1(kProfileFileType);
    request.suggestedName = currentProfilePath_.isEmpty()
                                ? QStringLiteral("Untitled.vellumo")
                                : QFileInfo(currentProfilePath_).fileName();
    request.memoryKey = QString::fromLatin1(kProfilesDialog);
    const SavePanelResult chosen = services_.runSavePanel(request);
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    QString path = *chosen;
    if (!path.endsWith(QString::fromLatin1(kProfileExtension), Qt::CaseInsensitive)) {
        path += QString::fromLatin1(kProfileExtension);
    }
    SaveProfileTo(path);
}

void ViewController::OnLoadProfile() {
    OpenPanelRequest request;
    request.allowsMultipleSelection = false;
    request.canChooseFiles = true;
    request.canChooseDirectories = false;
    request.allowedFileTypes = {QString::fromLatin1(kProfileFileType)};
    request.prompt = QStringLiteral("Load Profile");
    request.memoryKey = QString::fromLatin1(kProfilesDialog);
    const OpenPanelResult chosen = services_.runOpenPanel(request);
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    const QString path = chosen->constFirst();
    // All or nothing: a profile that cannot be read changes no setting.
    const Loaded<CropSettings> loaded =
        ReadProfile(QFile::encodeName(path).toStdString(), CropSettingsFromControls());
    if (!loaded) {
        services_.showMessageBox({"The profile " + path + " could not be loaded: " +
                                      QString::fromStdString(loaded.reason()) + ".",
                                  MessageBoxStyle::Warning,
                                  {QStringLiteral("OK")}});
        return;
    }
    ApplySettingsToControls(*loaded);
    ProfileIsNow(path);
}

}  // namespace vellumo
