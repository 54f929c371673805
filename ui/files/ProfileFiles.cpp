#include "ui/files/ProfileFiles.h"

#include <QFile>
#include <QFileInfo>

#include "batch/Profile.h"
#include "ui/WindowServices.h"
#include "ui/controls/SettingsPanel.h"

namespace vellumo {

namespace {

constexpr char kProfileFileType[] = "vellumo";
constexpr char kProfilesDialog[] = "profiles";

}  // namespace

ProfileFiles::ProfileFiles(SettingsPanel& settings, WindowServices& services, QObject* parent)
    : QObject(parent), settings_(settings), services_(services) {}

void ProfileFiles::Forget() {
    BecomeCurrent(QString());
}

void ProfileFiles::BecomeCurrent(const QString& path) {
    currentPath_ = path;
    Q_EMIT currentPathChanged(path);
    if (!path.isEmpty()) {
        Q_EMIT used(path);
    }
}

void ProfileFiles::SaveTo(const QString& path) {
    const SaveResult saved = WriteProfile(QFile::encodeName(path).toStdString(), settings_.Read());
    if (!saved.saved) {
        services_.showMessageBox(
            NoticeRequest(tr("The profile could not be saved to %1: %2.")
                              .arg(path, QString::fromStdString(saved.reason))));
        return;
    }
    BecomeCurrent(path);
}

void ProfileFiles::Save() {
    if (currentPath_.isEmpty()) {
        SaveAs();
        return;
    }
    SaveTo(currentPath_);
}

void ProfileFiles::SaveAs() {
    SaveFileRequest request;
    request.title = tr("Save Profile");
    request.fileType = QString::fromLatin1(kProfileFileType);
    request.suggestedName = currentPath_.isEmpty() ? QStringLiteral("Untitled.vellumo")
                                                   : QFileInfo(currentPath_).fileName();
    request.memoryKey = QString::fromLatin1(kProfilesDialog);
    const SaveFileResult chosen = services_.chooseFileToSave(request);
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    QString path = *chosen;
    if (!path.endsWith(QString::fromLatin1(kProfileExtension), Qt::CaseInsensitive)) {
        path += QString::fromLatin1(kProfileExtension);
    }
    SaveTo(path);
}

void ProfileFiles::Load() {
    const OpenFilesResult chosen = services_.chooseFilesToOpen(
        OpenFilesRequest::OneFile(QString::fromLatin1(kProfileFileType), tr("Load Profile"),
                                  QString::fromLatin1(kProfilesDialog)));
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    LoadFile(chosen->constFirst());
}

void ProfileFiles::LoadFile(const QString& path) {
    // All or nothing: a profile that cannot be read changes no setting.
    const Loaded<CropSettings> loaded =
        ReadProfile(QFile::encodeName(path).toStdString(), settings_.Read());
    if (!loaded) {
        services_.showMessageBox(
            NoticeRequest(tr("The profile %1 could not be loaded: %2.")
                              .arg(path, QString::fromStdString(loaded.reason()))));
        return;
    }
    settings_.Write(*loaded);
    BecomeCurrent(path);
}

}  // namespace vellumo
