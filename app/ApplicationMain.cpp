#include "app/ApplicationMain.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "app/AppDelegate.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"

namespace vellumo {

void ApplicationMain(int argc, char** argv, const LaunchHook& launched) {
    QApplication application(argc, argv);
    // The settings location (the folder each file dialog was last used in):
    // ~/.config/Vellumo/Vellumo.conf on Linux.
    QApplication::setOrganizationName(QStringLiteral("Vellumo"));
    QApplication::setApplicationName(QStringLiteral("Vellumo"));
    AppDelegate delegate(application);

    MainWindow window;
    ViewController controller;
    controller.LoadView(window);
    window.show();
    delegate.applicationDidFinishLaunching();
    if (launched) {
        launched(window, controller);
    }

    application.exec();

    // Tearing the application down would wait for the worker threads: the
    // controller's crop job and preview decodes, Qt's own pool. The process
    // ends here instead; only the standard streams are flushed. Every file
    // is written under a temporary name and renamed into place, so a job cut
    // off here leaves no part of a file at an output path.
    std::fflush(nullptr);
    std::quick_exit(EXIT_SUCCESS);
}

}  // namespace vellumo
