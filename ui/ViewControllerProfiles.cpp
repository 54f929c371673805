// Profiles: every setting of the window saved to a small JSON file and
// loaded back. The file format is the core's, shared with the command line.

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>

#include "batch/Profile.h"
#include "ui/ViewController.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/QualityText.h"
#include "ui/controls/SettingsBinding.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/TextFieldNumber.h"

namespace vellumo {

namespace {

constexpr char kProfileFileType[] = "vellumo";
constexpr char kProfilesDialog[] = "profiles";

}  // namespace

void ViewController::ProfileIsNow(const QString& path) {
    currentProfilePath_ = path;
    if (!view_.isNull()) {
        view_->window()->setWindowTitle(QString::fromLatin1(kWindowTitle) +
                                        QStringLiteral(" \u2014 ") +
                                        QFileInfo(path).completeBaseName());
    }
}

void ViewController::SaveProfileTo(const QString& path) {
    const SaveResult saved = WriteProfile(QFile::encodeName(path).toStdString(), settings_->Read());
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
    SaveFileRequest request;
    request.title = QStringLiteral("Save Profile");
    request.fileType = QString::fromLatin1(kProfileFileType);
    request.suggestedName = currentProfilePath_.isEmpty()
                                ? QStringLiteral("Untitled.vellumo")
                                : QFileInfo(currentProfilePath_).fileName();
    request.memoryKey = QString::fromLatin1(kProfilesDialog);
    const SaveFileResult chosen = services_.chooseFileToSave(request);
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
    OpenFilesRequest request;
    request.allowsMultipleSelection = false;
    request.canChooseFiles = true;
    request.canChooseDirectories = false;
    request.allowedFileTypes = {QString::fromLatin1(kProfileFileType)};
    request.prompt = QStringLiteral("Load Profile");
    request.memoryKey = QString::fromLatin1(kProfilesDialog);
    const OpenFilesResult chosen = services_.chooseFilesToOpen(request);
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    const QString path = chosen->constFirst();
    // All or nothing: a profile that cannot be read changes no setting.
    const Loaded<CropSettings> loaded =
        ReadProfile(QFile::encodeName(path).toStdString(), settings_->Read());
    if (!loaded) {
        services_.showMessageBox({"The profile " + path + " could not be loaded: " +
                                      QString::fromStdString(loaded.reason()) + ".",
                                  MessageBoxStyle::Warning,
                                  {QStringLiteral("OK")}});
        return;
    }
    settings_->Write(*loaded);
    ProfileIsNow(path);
}

}  // namespace vellumo
