// Window-level commands: quit, close, new, the tutorial and the profiles.

#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>

#include "ui/ViewController.h"
#include "ui/files/PlanFiles.h"
#include "ui/files/ProfileFiles.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui_MainWindow.h"

namespace vellumo {

bool ViewController::windowShouldClose(QWidget&) {
    // Nothing else is ever saved or asked, also while a crop job runs:
    // closing the one window ends the application. Only rectangles adjusted
    // by hand, which took a person's work, are offered to be kept.
    return plans_->AgreeToLeaveAdjustments();
}

void ViewController::OnAppQuit() {
    // Quitting closes the window: the same one question first.
    if (!plans_->AgreeToLeaveAdjustments()) {
        return;
    }
    QCoreApplication::quit();
}

void ViewController::OnFileNew() {
    // A list a person has built is not thrown away unasked; with unsaved
    // adjustments, the question about them is the one asked.
    if (cropAdjustments_->HasUnsavedAdjustments() ? !plans_->AgreeToLeaveAdjustments()
                                                  : !AgreeToEmptyTheList()) {
        return;
    }
    ResetInterface();
    profiles_->Forget();
}

void ViewController::ConnectProfiles() {
    connect(ui_->actionLoadProfile, &QAction::triggered, profiles_, &ProfileFiles::Load);
    connect(ui_->actionSaveProfile, &QAction::triggered, profiles_, &ProfileFiles::Save);
    connect(ui_->actionSaveProfileAs, &QAction::triggered, profiles_, &ProfileFiles::SaveAs);
    // The title names the current profile: "Vellumo — Portraits".
    connect(profiles_, &ProfileFiles::currentPathChanged, this, [this](const QString& path) {
        if (view_.isNull()) {
            return;
        }
        QString title = QString::fromLatin1(kWindowTitle);
        if (!path.isEmpty()) {
            title += QStringLiteral(" \u2014 ") + QFileInfo(path).completeBaseName();
        }
        view_->window()->setWindowTitle(title);
    });
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
