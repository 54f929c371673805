#pragma once

#include <QObject>

class QApplication;

namespace vellumo {

// The application's delegate: answers the application's questions about its
// own lifecycle. It keeps no state of its own: what is kept between runs
// (the last folders, the window's place) belongs to the window.
class AppDelegate : public QObject {
    Q_OBJECT

  public:
    // Applies the answers to `application` and listens for its end.
    explicit AppDelegate(QApplication& application);

    // Called once the window is shown.
    void applicationDidFinishLaunching();
    // Called when the event loop is about to end.
    void applicationWillTerminate();
    // Closing the one window ends the application: there is never an
    // application without its window.
    bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }
};

}  // namespace vellumo
