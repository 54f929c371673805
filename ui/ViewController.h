#pragma once

// The main window's controller. It builds the parts of the window and
// connects them; each part owns one thing:
// - ImageList: the ordered image paths and their marks (the model of the
//   table and of the contact sheet, which share one selection);
// - PreviewSession: the selected image, decoded and drawn off the GUI thread;
// - SettingsPanel: the setting controls, read and written as CropSettings;
// - ContactSheetController: the contact sheet, the list/sheet switch and the
//   thumbnails;
// - ProfileFiles and PlanFiles: profiles and crop plans;
// - WindowCropJob: the crop command, its questions, progress and report;
// - CropAdjustmentStore: rectangles adjusted by hand, and their history.
// What is left here: the list's commands, the selection travelling to the
// preview and the labels, the interface's states and the window commands.
// All of it runs on the GUI thread.

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <memory>

#include "batch/CropRectangle.h"
#include "batch/CropSettings.h"
#include "batch/ImageProcessor.h"
#include "ui/MainWindow.h"
#include "ui/WindowServices.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/list/ImageList.h"
#include "ui/preview/PreviewSession.h"

namespace Ui {
class MainWindow;
}

namespace vellumo {

class ContactSheetController;
class CropAdjustmentStore;
class PlanFiles;
class ProfileFiles;
class WindowCropJob;

class ViewController : public QObject, public WindowDelegate {
    Q_OBJECT

  public:
    static constexpr char kWindowTitle[] = "Vellumo";
    static constexpr char kVideoTutorialAddress[] = "https://vellumo.app/help/video-tutorial";
    // How long the preview's size must stay still before a picture that has
    // become too small for it is decoded again.
    static constexpr int kPreviewResizeSettleMs = 200;

    // Starts with an empty list, no image, no profile, and no window yet.
    explicit ViewController(QObject* parent = nullptr);
    // Ends a crop job under way first (it uses the services).
    ~ViewController() override;

    // Builds the window's parts over the controls of `window` (its typed
    // Ui::MainWindow), connects them and the commands, then SetUpControls.
    void LoadView(MainWindow& window);
    // Answers the window's close question, shows the list in the table and
    // resets the interface.
    void SetUpControls();

    ImageList& imageList() { return *imageList_; }
    const ImageList& imageList() const { return *imageList_; }
    PreviewSession& preview() { return *preview_; }
    SettingsPanel& settings() { return *settings_; }
    ProfileFiles& profiles() { return *profiles_; }
    PlanFiles& plans() { return *plans_; }
    CropAdjustmentStore& cropAdjustments() { return *cropAdjustments_; }
    // Null before LoadView.
    ContactSheetController* contactSheet() { return contactSheet_; }
    // The desktop services the commands use; tests replace them.
    WindowServices& services() { return services_; }
    // What crops each image of a job (worker processes unless replaced); a
    // replacement is used from the next job on.
    void SetImageProcessor(std::shared_ptr<ImageProcessor> processor);

    // What the job does with the image at `path` of `fullSize` pixels under
    // `settings`: its adjusted rectangle if it has one, else the rule's.
    ResolvedCrop CropOfImage(const CropSettings& settings, const QString& path,
                             Size fullSize) const;
    int imageCount() const;
    // True from the moment a job is agreed to until its report is shown.
    bool isCropping() const;

    // Empties the list, the adjustments and the preview; every setting back
    // to its start value (SettingsPanel::Reset); enabled states are kept.
    void ResetInterface();
    // While a crop job runs: the settings panel locked (the controls that
    // change the list or the settings disabled, the crop button
    // "Cropping..."), no crop plan to open, the preview's rectangle shown
    // but not adjustable.
    void DisableInterface();
    // After a crop job: all of that undone, the output controls settled.
    void EnableInterface();

    // The selected row's file is opened in the preview (decoded away from the
    // GUI thread, the preview busy meanwhile), then the preview and the labels
    // are refreshed. No row, or one that cannot be decoded, clears them as
    // ClearImageListSelection does; an undecodable row is marked.
    void ShowSelectedImage();
    // Closes the preview's image and empties the preview and the labels; the
    // selected rows stay as they are.
    void ClearImageListSelection();
    // Redraws the preview with the crop marked (away from the GUI thread),
    // the contact sheet's cells and the labels. No preview without an image.
    void UpdateCropPreview();
    // The four dimension labels and the note under the preview, for the
    // current image under the settings as they are now.
    void UpdateImageSize();
    // The line under the name field: the name the template gives the image
    // shown (or the list's first), with what the window knows of it.
    void ShowOutputName();

    bool windowShouldClose(QWidget& window) override;

  public Q_SLOTS:

    void OnAppQuit();
    void OnFileNew();
    void OnVideoTutorial();

    void OnResetCrop();
    void OnResetAllCrops();

    void OnAddImages();
    // Appends these images to the list in their order, leaving out those it
    // holds (the program's arguments, a second start's files); `folders` are
    // the folders given that they were found through (ImageList::folders).
    void AppendImages(const QStringList& paths, const QStringList& folders = {});
    void OnRemoveSelected();
    void OnRemoveAll();

    // Takes one snapshot of the list, the settings and the adjustments and
    // hands it to the crop job (WindowCropJob::Crop).
    void OnCropImages();
    // Stops the running job (the Stop button, Esc).
    void OnStopCropping();

  private:
    void ConnectCommands();
    void ConnectAdjustments();
    // The desktop hears of the batch: progress on the dock, a notification.
    void ConnectDesktop();
    void ConnectContactSheet();
    void ConnectPreview();
    void ConnectProfiles();
    // The settings panel's changes to the preview and the labels.
    void ConnectSettings();
    // The preview's rectangle moved or resized by a person.
    void OnCropAdjusted(const Rect& rect, bool byKeys);
    void OnAdjustmentsChanged(const QStringList& paths);
    // Every contact sheet cell's crop worked out afresh.
    void RefreshContactSheet();
    // The count under the list: "120 images", "120 images, 3 selected".
    void ShowImageCount();
    // However the list changed (added, dropped, removed, reset): its count,
    // the folder options and the name line follow.
    void OnListChanged();
    // Asks before a non-empty list is emptied; true when it may be.
    bool AgreeToEmptyTheList();
    // Empties the preview; pictures still being made for it are dropped.
    void EmptyPreview();
    // A change of ratio, orientation or anchor.
    void OnCropRuleChanged();
    // After the preview has grown: decodes the current image again when its
    // picture would now be shown enlarged.
    void DecodeAgainIfPictureTooSmall();

    // The window's controls, as the interface description declares them;
    // owned by the window.
    Ui::MainWindow* ui_ = nullptr;
    QPointer<QWidget> view_;
    // The parts; children of the controller.
    ImageList* imageList_ = nullptr;
    WindowServices services_;
    std::shared_ptr<ImageProcessor> imageProcessor_;
    PreviewSession* preview_ = nullptr;
    CropAdjustmentStore* cropAdjustments_ = nullptr;
    // Made by LoadView, over the window's controls.
    SettingsPanel* settings_ = nullptr;
    ProfileFiles* profiles_ = nullptr;
    PlanFiles* plans_ = nullptr;
    WindowCropJob* cropJob_ = nullptr;
    ContactSheetController* contactSheet_ = nullptr;
    // Waits for the preview's size to settle before decoding again.
    QTimer previewResizeSettle_;
};

}  // namespace vellumo
