// Window-level commands: quit, close, new, the tutorial and the profiles.

#include <QCoreApplication>
#include <QUrl>

#include "ui/ViewController.h"

namespace vellumo {

bool ViewController::windowShouldClose(QWidget&) {
    // Nothing is ever saved and nothing is asked, also while a crop job runs:
    // closing the one window ends the application.
    return true;
}

void ViewController::OnAppQuit() {
    QCoreApplication::quit();
}

void ViewController::OnFileNew() {
    ResetInterface();
    currentProfilePath_.clear();
    if (!view_.isNull()) {
        view_->window()->setWindowTitle(QString::fromLatin1(kWindowTitle));
    }
}

void ViewController::OnVideoTutorial() {
    const QUrl address(QString::fromLatin1(kVideoTutorialAddress), QUrl::StrictMode);
    if (!address.isValid()) {
        return;
    }
    // A missing or failing browser is not the user's problem to solve here.
    services_.openUrl(address);
}

}  // namespace vellumo
