#include "ui/files/PlanFiles.h"

#include <QFile>
#include <QFileInfo>

#include "batch/CropPlan.h"
#include "ui/WindowLocale.h"
#include "ui/WindowServices.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/list/ImageList.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"

namespace vellumo {

namespace {

constexpr char kPlanFileType[] = "vellumoplan";
constexpr char kPlansDialog[] = "plans";
constexpr char kLeaveAdjustmentsQuestion[] =
    QT_TRANSLATE_NOOP("vellumo::PlanFiles", "Save the crop adjustments before closing?");
constexpr char kNoLongerExists[] =
    QT_TRANSLATE_NOOP("vellumo::PlanFiles", "the file no longer exists");

}  // namespace

PlanFiles::PlanFiles(ImageList& list, SettingsPanel& settings, CropAdjustmentStore& adjustments,
                     WindowServices& services, QObject* parent)
    : QObject(parent),
      list_(list),
      settings_(settings),
      adjustments_(adjustments),
      services_(services) {}

bool PlanFiles::AgreeToLeaveAdjustments() {
    if (!adjustments_.HasUnsavedAdjustments()) {
        return true;
    }
    const BoxAnswer answer =
        services_.showMessageBox({tr(kLeaveAdjustmentsQuestion),
                                  MessageBoxStyle::Warning,
                                  {tr("Save"), tr("Don't Save"), tr("Cancel")}});
    if (answer == kSaveAdjustments) {
        return Save();
    }
    return answer == kDontSaveAdjustments;
}

bool PlanFiles::Save() {
    SaveFileRequest request;
    request.title = tr("Save Crop Plan");
    request.fileType = QString::fromLatin1(kPlanFileType);
    request.suggestedName = QStringLiteral("Untitled.vellumoplan");
    request.memoryKey = QString::fromLatin1(kPlansDialog);
    const SaveFileResult chosen = services_.chooseFileToSave(request);
    if (!chosen || chosen->isEmpty()) {
        return false;
    }
    QString path = *chosen;
    if (!path.endsWith(QString::fromLatin1(kCropPlanExtension), Qt::CaseInsensitive)) {
        path += QString::fromLatin1(kCropPlanExtension);
    }
    const CropPlan plan = MakeCropPlan(settings_.Read(), NativePaths(list_.paths()),
                                       adjustments_.ForJob(list_.paths()));
    const SaveResult saved = WriteCropPlan(QFile::encodeName(path).toStdString(), plan);
    if (!saved.saved) {
        services_.showMessageBox(
            NoticeRequest(tr("The crop plan could not be saved to %1: %2.")
                              .arg(path, QString::fromStdString(saved.reason))));
        return false;
    }
    adjustments_.MarkSaved();
    Q_EMIT used(path);
    return true;
}

void PlanFiles::Open() {
    if (!AgreeToLeaveAdjustments()) {
        return;
    }
    const OpenFilesResult chosen = services_.chooseFilesToOpen(
        OpenFilesRequest::OneFile(QString::fromLatin1(kPlanFileType), tr("Open Crop Plan"),
                                  QString::fromLatin1(kPlansDialog)));
    if (!chosen || chosen->isEmpty()) {
        return;
    }
    OpenFile(chosen->constFirst());
}

void PlanFiles::OpenRecent(const QString& file) {
    if (AgreeToLeaveAdjustments()) {
        OpenFile(file);
    }
}

void PlanFiles::OpenFile(const QString& file) {
    // All or nothing: a plan that cannot be read changes nothing.
    const Loaded<CropPlan> plan =
        ReadCropPlan(QFile::encodeName(file).toStdString(), settings_.Read());
    if (!plan) {
        services_.showMessageBox(
            NoticeRequest(tr("The crop plan %1 could not be opened: %2.")
                              .arg(file, QString::fromStdString(plan.reason()))));
        return;
    }
    // The list never holds a path twice, whatever the file says.
    QStringList paths;
    CropAdjustmentStore::Rects rects;
    for (const PlannedImage& image : plan->images) {
        const QString path = QFile::decodeName(QByteArray::fromStdString(image.path));
        if (ListContainsPath(paths, path)) {
            continue;
        }
        paths.push_back(path);
        if (image.rect) {
            rects.insert(path, *image.rect);
        }
    }
    list_.ReplaceAll(paths);
    adjustments_.ReplaceAll(rects);
    settings_.Write(plan->settings);
    Q_EMIT opened();
    Q_EMIT used(file);
    MarkMissingImages();
}

void PlanFiles::MarkMissingImages() {
    // Images that have gone stay in the list, marked; the job fails them.
    QStringList missing;
    for (const QString& path : list_.paths()) {
        if (!QFileInfo::exists(path)) {
            list_.MarkUnreadable(path, tr(kNoLongerExists));
            missing.push_back(path);
        }
    }
    if (missing.isEmpty()) {
        return;
    }
    const int count = static_cast<int>(missing.size());
    MessageBoxRequest notice = NoticeRequest(
        count == 1 ? tr("1 image of the crop plan no longer exists: %1").arg(missing.front())
                   : tr("%L1 images of the crop plan no longer exist.", nullptr, count)
                         .arg(WindowNumber(count)));
    notice.informativeText = tr("They stay in the list, marked, and fail when cropping.");
    notice.details = missing.join(QLatin1Char('\n'));
    services_.showMessageBox(notice);
}

}  // namespace vellumo
