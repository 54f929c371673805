#pragma once

// The main window's controller. It owns everything the user works with in
// the window: the ordered list of image paths, the image shown in the
// preview, and the window's typed controls (Ui::MainWindow, from the
// interface description). Every command of the window arrives here. All of it runs
// on the GUI thread; decoding previews and the crop job run on worker
// threads, which never touch a control: they get plain values taken on the
// GUI thread and hand their results back to it as queued calls.

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "batch/CropCommand.h"
#include "batch/CropJob.h"
#include "batch/CropRectangle.h"
#include "batch/CropSettings.h"
#include "batch/ImageProcessor.h"
#include "batch/OutputPlan.h"
#include "batch/PreviewDecoder.h"
#include "imaging/Image.h"
#include "ui/MainWindow.h"
#include "ui/WindowServices.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/list/ImageList.h"
#include "ui/list/ImageTableView.h"
#include "ui/preview/CropFrame.h"
#include "ui/preview/PreviewSession.h"

namespace Ui {
class MainWindow;
}

namespace vellumo {

class CropAdjustmentStore;
class ContactSheetController;
class PlanFiles;
class ProfileFiles;

class ViewController : public QObject, public WindowDelegate {
    Q_OBJECT

  public:
    static constexpr char kWindowTitle[] = "Vellumo";
    static constexpr char kVideoTutorialAddress[] = "https://vellumo.app/help/video-tutorial";
    // How long the preview's size must stay still before a picture that has
    // become too small for it is decoded again.
    static constexpr int kPreviewResizeSettleMs = 200;

    // Starts with an empty list, an empty current image, the accepted
    // extensions, no profile, and no window yet.
    explicit ViewController(QObject* parent = nullptr);
    ~ViewController() override;

    // ---- Loading the window -----------------------------------------------

    // Works with the controls of `window` (its typed Ui::MainWindow),
    // connects the commands, then runs SetUpControls.
    void LoadView(MainWindow& window);
    // Becomes the window's and the table's delegate, fills the two pop-up
    // lists and resets the interface.
    void SetUpControls();

    // ---- State ------------------------------------------------------------

    // The list of images, which the table and the contact sheet show.
    ImageList& imageList() { return *imageList_; }
    const ImageList& imageList() const { return *imageList_; }
    // The image shown in the preview: the selected row's file, its decoding
    // and the drawing of its crop.
    PreviewSession& preview() { return *preview_; }
    // Profiles and crop plans: their files and the questions around them.
    ProfileFiles& profiles() { return *profiles_; }
    PlanFiles& plans() { return *plans_; }

    // The desktop services the commands use; tests replace them.
    WindowServices& services() { return services_; }

    // What crops each image of a job (worker processes unless replaced); a
    // replacement is used from the next job on.
    void SetImageProcessor(std::shared_ptr<ImageProcessor> processor);

    // The setting controls, read and written as CropSettings.
    SettingsPanel& settings() { return *settings_; }

    // ---- Interface states (ViewControllerInterfaceStates.cpp) -------------

    // Puts every value back to its start value; enabled states are kept.
    void ResetInterface();
    // While a crop job runs: the settings panel locked (the controls that
    // change the list or the settings disabled, the crop button
    // "Cropping..."), no crop plan to open, the preview's rectangle not
    // adjustable.
    void DisableInterface();
    // After a crop job: all of that undone, the output controls settled by
    // the format.
    void EnableInterface();

    // ---- Image list (ViewControllerImageList.cpp) -------------------------

    // Empties the current image and the preview and refreshes the dimension
    // labels; the table's selected rows stay as they are.
    void ClearImageListSelection();
    int imageCount() const;

    // ---- Preview and dimension labels (ViewControllerPreview.cpp) ---------

    // The selected row's file becomes the current image (decoded away from
    // the GUI thread, the preview busy meanwhile), then the preview and the
    // labels are refreshed. No row, or one that cannot be decoded, clears
    // them as ClearImageListSelection does; an undecodable row is marked.
    void ShowSelectedImage();
    // Redraws the preview with the crop marked (away from the GUI thread) and
    // refreshes the labels. Nothing without a current image.
    void UpdateCropPreview();
    // The four dimension labels and the note under the preview, for the
    // current image under the settings as they are now.
    void UpdateImageSize();

    // ---- Rectangles adjusted by hand (ViewControllerAdjustments.cpp) -------

    CropAdjustmentStore& cropAdjustments() { return *cropAdjustments_; }
    // What the job does with the image at `path` of `fullSize` pixels under
    // `settings`: its adjusted rectangle if it has one, else the rule's.
    ResolvedCrop CropOfImage(const CropSettings& settings, const QString& path,
                             Size fullSize) const;
    // The contact sheet, the list/sheet switch and the thumbnails; null
    // before LoadView.
    ContactSheetController* contactSheet() { return contactSheet_; }

    // ---- Crop job (ViewControllerCropJob.cpp) -----------------------------

    // True from the moment a job starts until its report is shown.
    bool isCropping() const { return cropping_; }

    // ---- Window and table delegate ----------------------------------------

    bool windowShouldClose(QWidget& window) override;

  public Q_SLOTS:
    // ---- Window commands (ViewControllerWindowCommands.cpp) ---------------

    void OnAppQuit();
    void OnFileNew();
    void OnVideoTutorial();

    // ---- Adjustments and crop plans (ViewControllerAdjustments.cpp) -------

    void OnResetCrop();
    void OnResetAllCrops();

    // ---- Image list commands (ViewControllerImageList.cpp) ----------------

    void OnAddImages();
    // Appends these images to the list in their order, leaving out those it
    // holds (the program's arguments, a second start's files).
    void AppendImages(const QStringList& paths);
    void OnRemoveSelected();
    void OnRemoveAll();

    // ---- The crop command (ViewControllerCropJob.cpp) ---------------------

    // Checks that there are images and an output folder (offering to make a
    // missing one), asks before the originals are replaced, locks the
    // interface, asks before writing only uncropped copies (after the
    // images' sizes were read away from the GUI thread), settles images that
    // would share an output path, asks about every existing output file,
    // then starts the job on a worker thread and returns.
    void OnCropImages();
    // While a job runs (the Stop button, Esc): no new image begins, the
    // images under way end without leaving a partial file, and the report
    // says how many were written.
    void OnStopCropping();

  private:
    void ConnectAdjustments();
    // The preview's rectangle moved or resized by a person.
    void OnCropAdjusted(const Rect& rect, bool byKeys);
    void OnAdjustmentsChanged(const QStringList& paths);
    // The contact sheet, its commands and the thumbnails, after SetUpControls.
    void ConnectContactSheet();
    // Every contact sheet cell's crop worked out afresh.
    void RefreshContactSheet();
    void ConnectCommands();
    // The settings panel's changes to the preview and the labels.
    void ConnectSettings();
    // The count under the list: "120 images", "120 images, 3 selected".
    void ShowImageCount();
    // Asks before a non-empty list is emptied; true when it may be.
    bool AgreeToEmptyTheList();
    // Empties the preview; pictures still being made for it are dropped.
    void EmptyPreview();
    // The preview session's results to the view, the list and the labels.
    void ConnectPreview();
    // A change of ratio, orientation or anchor.
    void OnCropRuleChanged();
    // After the preview has grown: decodes the current image again when its
    // picture would now be shown enlarged.
    void DecodeAgainIfPictureTooSmall();

    // The profile commands, and the title that names the current profile.
    void ConnectProfiles();

    // The crop command's steps, in order (ViewControllerCropJob.cpp): run
    // on the job's thread once agreed to, the job started, each image
    // reported, the end.
    void RunCropCommand(std::shared_ptr<const CropCommand> command);
    void StartCropJob(long count, const QString& folder);
    void ReportCropProgress(long index);
    void FinishCropCommand(const CropCommandResult& result);
    void FinishCropJob(const JobReport& report);
    void ShowCropResult(const JobReport& report);
    void ShowCropRefusal(const CropRefusal& refusal);
    // Ends the command before the job started, the interface unlocked.
    void AbandonCropCommand();

    // State, in declaration order.

    // The line under the progress bar: which image the job is at, and how
    // long it will take.
    // How many images the list holds, under it.
    // Under the preview: why the selected image is written whole or clipped,
    // and whether only its first frame is.

    // The menu commands.

    // The window's controls, as the interface description declares them;
    // owned by the window.
    Ui::MainWindow* ui_ = nullptr;
    QPointer<QWidget> view_;
    // The setting controls; a child of the controller, made by LoadView.
    SettingsPanel* settings_ = nullptr;
    ProfileFiles* profiles_ = nullptr;
    PlanFiles* plans_ = nullptr;
    // A child of the controller, made by ConnectContactSheet.
    ContactSheetController* contactSheet_ = nullptr;
    // The list of images; a child of the controller.
    ImageList* imageList_ = nullptr;
    WindowServices services_;
    std::shared_ptr<ImageProcessor> imageProcessor_;
    // The current image; a child of the controller.
    PreviewSession* preview_ = nullptr;
    // Rectangles adjusted by hand, and their history.
    CropAdjustmentStore* cropAdjustments_ = nullptr;
    // Waits for the preview's size to settle before decoding again.
    QTimer previewResizeSettle_;

    bool cropping_ = false;
    long jobImageCount_ = 0;
    long jobImagesHandled_ = 0;
    // Stops the running job.
    std::stop_source jobStop_;
    // Where the report's "Show in Folder" leads.
    QString jobFolder_;
    QElapsedTimer jobClock_;

    // Last, so that it goes first: a controller that is destroyed waits for
    // its job's worker (the application itself ends without destroying it,
    // so it never waits for a job). The preview session waits for its own.
    QThreadPool jobWork_;
};

}  // namespace vellumo
