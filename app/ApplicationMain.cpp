#include "app/ApplicationMain.h"

#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>

#include "app/AppDelegate.h"
#include "app/WindowLanguage.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"

namespace vellumo {

namespace {

// Ends the process now. Tearing the application down would wait for the
// worker threads: the controller's crop job and preview decodes, Qt's own
// pool. Only the standard streams are flushed. Every file is written under
// a temporary name and renamed into place, so a job cut off here leaves no
// part of a file at an output path.
[[noreturn]] void EndNow() {
    std::fflush(nullptr);
    std::quick_exit(EXIT_SUCCESS);
}

}  // namespace

void ApplicationMain(int argc, char** argv, const Launch& launch) {
    QApplication application(argc, argv);
    // The settings location (the folder each file dialog was last used in,
    // the window's place): ~/.config/Vellumo/Vellumo.conf on Linux.
    QApplication::setOrganizationName(QStringLiteral("Vellumo"));
    QApplication::setApplicationName(QStringLiteral("Vellumo"));
    QApplication::setApplicationVersion(QStringLiteral(VELLUMO_VERSION));
    // Ties the window to the installed menu entry and its icon (the
    // theme's, as installed; run from the build tree, the built-in copy).
    QApplication::setDesktopFileName(QStringLiteral("org.vellumo.Vellumo"));
    QApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("org.vellumo.Vellumo"),
                         QIcon(QStringLiteral(":/icons/org.vellumo.Vellumo.svg"))));
    if (launch.starting && !launch.starting()) {
        EndNow();
    }
    // The window speaks the person's language from its first text on.
    WindowLanguage language;
    language.Install(WindowLanguage::PreferredLanguages());
    AppDelegate delegate(application);

    MainWindow window;
    ViewController controller;
    controller.LoadView(window);
    window.RestoreState();
    window.show();
    delegate.applicationDidFinishLaunching();
    if (launch.launched) {
        launch.launched(window, controller);
    }

    application.exec();
    window.RememberState();
    EndNow();
}

void ApplicationMain(int argc, char** argv, const LaunchHook& launched) {
    ApplicationMain(argc, argv, Launch{{}, launched});
}

}  // namespace vellumo
