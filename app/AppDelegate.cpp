#include "app/AppDelegate.h"

#include <QApplication>

namespace vellumo {

AppDelegate::AppDelegate(QApplication& application) : QObject(&application) {
    // The application never refuses or delays its end: no question is asked
    // and nothing waits, also while a crop job runs.
    application.setQuitOnLastWindowClosed(applicationShouldTerminateAfterLastWindowClosed());
    connect(&application, &QCoreApplication::aboutToQuit, this,
            &AppDelegate::applicationWillTerminate);
}

void AppDelegate::applicationDidFinishLaunching() {
    // No list or profile to restore: a run starts from the defaults.
}

void AppDelegate::applicationWillTerminate() {
    // Nothing of its own to save; the window keeps its place itself.
}

}  // namespace vellumo
