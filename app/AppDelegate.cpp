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
    // No settings, list or profile to restore.
}

void AppDelegate::applicationWillTerminate() {
    // Nothing to save: the application keeps nothing between runs.
}

}  // namespace vellumo
