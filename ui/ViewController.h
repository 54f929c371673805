#pragma once

// The main window's controller. It owns everything the user works with in
// the window: the ordered list of image paths, the image shown in the
// preview, and references to all controls (outlets, found by name when the
// window is loaded). Every command of the window arrives here. All of it runs
// on the GUI thread.

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <vector>

#include "imaging/Image.h"
#include "ui/ImageTableView.h"
#include "ui/MainWindow.h"
#include "ui/Outlet.h"
#include "ui/WindowServices.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace vellumo {

class CropPreviewView;
class ImageListModel;
class LatchingRadioButton;
class QualitySlider;
class Stepper;

class ViewController : public QObject, public WindowDelegate, public TableDropDelegate {
    Q_OBJECT

  public:
    static constexpr char kWindowTitle[] = "Vellumo";
    static constexpr char kVideoTutorialAddress[] = "https://vellumo.app/help/video-tutorial";

    // Starts with an empty list, an empty current image, the accepted
    // extensions, no profile, and no outlet connected.
    explicit ViewController(QObject* parent = nullptr);
    ~ViewController() override;

    // ---- Loading the window -----------------------------------------------

    // Connects every outlet to the control of that name in `window` (a
    // missing control stops the program, naming it), connects the commands,
    // then runs viewDidLoad.
    void LoadView(QWidget& window);
    // Becomes the window's and the table's delegate, fills the two pop-up
    // lists and resets the interface.
    void viewDidLoad();

    // ---- State ------------------------------------------------------------

    const QStringList& listImagePaths() const { return listImagePaths_; }
    const Image& currentImage() const { return currentImage_; }
    void setCurrentImage(const Image& image) { currentImage_ = image; }
    const QStringList& acceptedExtensions() const { return acceptedExtensions_; }
    const QString& currentProfilePath() const { return currentProfilePath_; }
    void setCurrentProfilePath(const QString& path) { currentProfilePath_ = path; }

    // The desktop services the commands use; tests replace them.
    WindowServices& services() { return services_; }

    // ---- Interface states (ViewControllerInterfaceStates.cpp) -------------

    // Puts every value back to its start value; enabled states are kept.
    void ResetInterface();
    // While a crop job runs: 27 controls disabled, the crop button "Cropping...".
    void DisableInterface();
    // After a crop job: the 27 controls enabled, the crop button "Crop Images",
    // the quality slider by the output format.
    void EnableInterface();

    // ---- Image list (ViewControllerImageList.cpp) -------------------------

    void RefreshImageList();
    // Empties the current image and the preview and refreshes the dimension
    // labels; the table's selected rows stay as they are.
    void ClearImageListSelection();
    int numberOfRowsInTableView() const;

    // ---- Dimension labels -------------------------------------------------

    void UpdateImageSize();

    // ---- Window and table delegate ----------------------------------------

    bool windowShouldClose(QWidget& window) override;
    TableDragOperation tableViewValidateDrop(ImageTableView& table, const TableDragInfo& info,
                                             int proposedRow,
                                             TableDropOperation operation) override;
    bool tableViewAcceptDrop(ImageTableView& table, const TableDragInfo& info, int row,
                             TableDropOperation operation) override;

  public Q_SLOTS:
    // ---- Window commands (ViewControllerWindowCommands.cpp) ---------------

    void OnAppQuit();
    void OnFileNew();
    void OnVideoTutorial();
    void OnLoadProfile();
    void OnSaveProfile();
    void OnSaveProfileAs();

    // ---- Image list commands (ViewControllerImageList.cpp) ----------------

    void OnAddImages();
    void OnRemoveSelected();
    void OnRemoveAll();

  private:
    void ConnectOutlets(QWidget& window);
    void ConnectCommands();
    // The 27 controls a crop job disables, in the order it disables them.
    std::vector<QWidget*> ControlsLockedWhileCropping() const;
    void EmptyPreview();

    // State, in declaration order.
    QStringList listImagePaths_;
    Image currentImage_;
    const QStringList acceptedExtensions_;
    QString currentProfilePath_;

    // Outlets, in declaration order.
    Outlet<QPushButton> buttonAddImages{"buttonAddImages"};
    Outlet<QPushButton> buttonRemoveSelected{"buttonRemoveSelected"};
    Outlet<QPushButton> buttonRemoveAll{"buttonRemoveAll"};
    Outlet<QProgressBar> progressIndicator{"progressIndicator"};
    Outlet<QPushButton> buttonCropImages{"buttonCropImages"};
    Outlet<ImageTableView> tableViewImage{"tableViewImage"};
    Outlet<QLabel> labelOriginalDimensionsWidth{"labelOriginalDimensionsWidth"};
    Outlet<QLabel> labelOriginalDimensionsHeight{"labelOriginalDimensionsHeight"};
    Outlet<QLabel> labelOutputDimensionsWidth{"labelOutputDimensionsWidth"};
    Outlet<QLabel> labelOutputDimensionsHeight{"labelOutputDimensionsHeight"};
    Outlet<LatchingRadioButton> radioAutoCrop{"radioAutoCrop"};
    Outlet<QComboBox> comboAutoCropFormat{"comboAutoCropFormat"};
    Outlet<LatchingRadioButton> radioCustomCrop{"radioCustomCrop"};
    Outlet<LatchingRadioButton> radioCustomCropPixels{"radioCustomCropPixels"};
    Outlet<QLineEdit> textFieldCustomCropPixelsOriginX{"textFieldCustomCropPixelsOriginX"};
    Outlet<QLineEdit> textFieldCustomCropPixelsOriginY{"textFieldCustomCropPixelsOriginY"};
    Outlet<QLineEdit> textFieldCustomCropPixelsWidth{"textFieldCustomCropPixelsWidth"};
    Outlet<QLineEdit> textFieldCustomCropPixelsHeight{"textFieldCustomCropPixelsHeight"};
    Outlet<LatchingRadioButton> radioCustomCropPercents{"radioCustomCropPercents"};
    Outlet<QLineEdit> textFieldCustomCropPercentsOriginX{"textFieldCustomCropPercentsOriginX"};
    Outlet<Stepper> stepperCustomCropPercentsOriginX{"stepperCustomCropPercentsOriginX"};
    Outlet<QLineEdit> textFieldCustomCropPercentsOriginY{"textFieldCustomCropPercentsOriginY"};
    Outlet<Stepper> stepperCustomCropPercentsOriginY{"stepperCustomCropPercentsOriginY"};
    Outlet<QLineEdit> textFieldCustomCropPercentsWidth{"textFieldCustomCropPercentsWidth"};
    Outlet<Stepper> stepperCustomCropPercentsWidth{"stepperCustomCropPercentsWidth"};
    Outlet<QLineEdit> textFieldCustomCropPercentsHeight{"textFieldCustomCropPercentsHeight"};
    Outlet<Stepper> stepperCustomCropPercentsHeight{"stepperCustomCropPercentsHeight"};
    Outlet<QComboBox> comboFormat{"comboFormat"};
    Outlet<QualitySlider> sliderQuality{"sliderQuality"};
    Outlet<QLabel> labelQuality{"labelQuality"};
    Outlet<QLineEdit> textFieldName{"textFieldName"};
    Outlet<QLineEdit> textFieldOutputFolder{"textFieldOutputFolder"};
    Outlet<QPushButton> buttonBrowse{"buttonBrowse"};
    Outlet<QCheckBox> checkKeepEXIFInformationAndCreationDate{
        "checkKeepEXIFInformationAndCreationDate"};
    Outlet<QTabWidget> tabView{"tabView"};
    Outlet<CropPreviewView> imageViewCropPreview{"imageViewCropPreview"};

    // The menu commands.
    Outlet<QAction> actionNew{"actionNew"};
    Outlet<QAction> actionLoadProfile{"actionLoadProfile"};
    Outlet<QAction> actionSaveProfile{"actionSaveProfile"};
    Outlet<QAction> actionSaveProfileAs{"actionSaveProfileAs"};
    Outlet<QAction> actionQuit{"actionQuit"};
    Outlet<QAction> actionVideoTutorial{"actionVideoTutorial"};

    QPointer<QWidget> view_;
    ImageListModel* imageListModel_ = nullptr;
    WindowServices services_;
};

}  // namespace vellumo
