#pragma once

#include <QStringList>
#include <QUrl>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "imaging/Fatal.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/WindowServices.h"
#include "ui/controls/SettingsPanel.h"
#include "ui/files/PlanFiles.h"
#include "ui/files/ProfileFiles.h"
#include "ui/list/ImageList.h"
#include "ui/preview/PreviewSession.h"
#include "ui/sheet/ContactSheetController.h"

namespace vellumo::test {

// The main window with its controller, loaded the way the application loads
// it, but with answerers in place of the desktop services:
// - message boxes are recorded and answered from `boxAnswers` (the default
//   button, as Return would, once the queue is empty);
// - file dialogs are recorded and answered from `openDialogAnswers` (a cancel once
//   the queue is empty), save dialogs likewise from `saveDialogAnswers`;
// - web addresses are recorded and fail to open.
class LoadedWindow {
  public:
    LoadedWindow();

    MainWindow& window() { return *window_; }
    ViewController& controller() { return *controller_; }
    // The window's list of images (the model of the table and the sheet).
    ImageList& imageList() { return controller_->imageList(); }
    // The image shown in the preview.
    PreviewSession& preview() { return controller_->preview(); }
    // The setting controls, read and written as CropSettings.
    SettingsPanel& settings() { return controller_->settings(); }
    // The contact sheet and the thumbnails.
    ContactSheetController& contactSheet() { return *controller_->contactSheet(); }
    // Profiles and crop plans.
    ProfileFiles& profiles() { return controller_->profiles(); }
    PlanFiles& plans() { return controller_->plans(); }

    // Shows the window and waits until it is laid out on the screen.
    void Show();

    // The control of that name and kind; stops the test program when there
    // is none.
    template <class T>
    T& Control(const char* name) {
        T* control = window_->findChild<T*>(QString::fromLatin1(name));
        if (control == nullptr) {
            Fatal(std::string("test: the window has no ") + T::staticMetaObject.className() +
                  " named " + name);
        }
        return *control;
    }

    // Adds the paths with the add-images command, the panel choosing them.
    void AddImages(const QStringList& paths);

    std::vector<MessageBoxRequest> boxes;
    std::deque<BoxAnswer> boxAnswers;
    std::vector<OpenFilesRequest> openDialogs;
    std::deque<OpenFilesResult> openDialogAnswers;
    std::vector<SaveFileRequest> saveDialogs;
    std::deque<SaveFileResult> saveDialogAnswers;
    std::vector<QUrl> openedUrls;

  private:
    std::unique_ptr<MainWindow> window_;
    std::unique_ptr<ViewController> controller_;
};

}  // namespace vellumo::test
