#pragma once

// The window's setting controls as one panel: the crop modes and their
// fields, the resize rule and the output settings. It keeps the controls
// consistent with each other (each radio pair, each percent field with its
// stepper, the output controls a format or replacing the originals leaves in
// use, the quality label), reads and writes them as CropSettings
// (SettingsBinding), and locks them while a crop job runs. What the person
// changes is told with a signal; what the program writes is not.

#include <QObject>
#include <QWidget>
#include <memory>
#include <vector>

#include "batch/CropSettings.h"

namespace Ui {
class MainWindow;
}

namespace vellumo {

class SettingsBinding;
struct WindowServices;

class SettingsPanel : public QObject {
    Q_OBJECT

  public:
    // Works with the setting controls of `ui`: fills the two pop-up lists,
    // lets the number fields take numbers only, and connects the controls.
    // The Browse button asks for a folder through `services`.
    SettingsPanel(Ui::MainWindow& ui, WindowServices& services, QObject* parent = nullptr);
    ~SettingsPanel() override;

    // Every setting as the controls show it now. The preview, the labels, the
    // job, profiles and plans all go through this.
    CropSettings Read() const;
    // Puts every setting into the controls (a loaded profile or plan) and
    // settles the output controls, then tells of it (cropRuleChanged: the
    // rule may need more of the selected file, its faces or a trim's
    // content).
    void Write(const CropSettings& settings);
    // Every value back to its start value: custom crop in pixels, an empty
    // rectangle, a centred 60 % one once percents are chosen, "JPG" at
    // quality 80, the usual name template, no folder, no metadata, the
    // originals kept; the auto-crop ratio stays as it was. Enabled states are
    // kept, except those the format and the originals settle. Tells nothing.
    void Reset();

    // While a crop job runs, the job reads the list and the settings: the
    // controls that change them (LockedWhileCropping) are disabled and the
    // crop button says "Cropping..."; Unlock enables them again, the crop
    // button "Crop Images", and settles the output controls.
    void Lock();
    void Unlock();
    bool isLocked() const { return locked_; }

    // The quality label for the slider's value, the format and the options.
    void ShowQuality();

    // The list holds images found through folders (or no longer does): the
    // option to keep their folders' tree is offered only then.
    void SetListFromFolders(bool fromFolders);

  Q_SIGNALS:
    // A crop mode, a rectangle's number or the resize rule was changed.
    void cropChanged();
    // The auto-crop ratio, orientation or anchor was changed.
    void cropRuleChanged();
    // The format, replacing the originals or lossless JPEG cropping was
    // changed: the output size may differ.
    void outputChanged();
    // The name template was typed into, or a token put into it.
    void nameChanged();

  private:
    // The format chosen in the format box; none while the box is empty.
    const OutputFormatInfo* ChosenFormat() const;
    void ConnectCropControls();
    void ConnectPercentControls();
    void ConnectOutputControls();
    // The controls a crop job disables, in the order it disables them.
    std::vector<QWidget*> LockedWhileCropping() const;
    // Enables the output controls that the format and the choice to replace
    // the originals leave in use: the quality slider for formats with a
    // quality, the metadata option for formats that carry metadata, the
    // name, folder and format while the originals are not replaced; the
    // size limit for formats whose quality can be fitted to it; keeping the
    // folders' tree for a list found through folders; the transparent pad
    // fill for formats that keep it. Nothing while locked.
    void SettleOutputControls();
    // The transparent pad fill offered only for an output that keeps it.
    void SettlePadFill();
    // Padding turned on turns the crop modes off (a crop mode chosen turns
    // padding off).
    void OnPadChanged();
    void OnAutoCropFormatSelected();
    void OnBrowse();

    Ui::MainWindow& ui_;
    WindowServices& services_;
    std::unique_ptr<SettingsBinding> binding_;
    bool locked_ = false;
    bool listFromFolders_ = false;
};

}  // namespace vellumo
