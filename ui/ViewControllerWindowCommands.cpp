// Window-level commands: quit, close, new, the tutorial and the profiles.

#include <QCoreApplication>
#include <QUrl>

#include "ui/ViewController.h"
#include "ui/preview/CropAdjustmentStore.h"

namespace vellumo {

bool ViewController::windowShouldClose(QWidget&) {
    // Nothing else is ever saved or asked, also while a crop job runs:
    // closing the one window ends the application. Only rectangles adjusted
    // by hand, which took a person's work, are offered to be kept.
    return AgreeToLeaveAdjustments();
}

void ViewController::OnAppQuit() {
    // Quitting closes the window: the same one question first.
    if (!AgreeToLeaveAdjustments()) {
        return;
    }
    QCoreApplication::quit();
}

void ViewController::OnFileNew() {
    // A list a person has built is not thrown away unasked; with unsaved
    // adjustments, the question about them is the one asked.
    if (cropAdjustments_->HasUnsavedAdjustments() ? !AgreeToLeaveAdjustments()
                                                  : !AgreeToEmptyTheList()) {
        return;
    }
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
    // Without a browser the address is given, so it can be opened elsewhere.
    if (!services_.openUrl(address)) {
        services_.showMessageBox(NoticeRequest(
            QStringLiteral("No web browser could be opened. The video tutorial is at %1")
                .arg(address.toString())));
    }
}

}  // namespace vellumo
