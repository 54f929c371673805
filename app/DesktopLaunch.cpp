#include "app/DesktopLaunch.h"

#include <QApplication>
#include <QTimer>
#include <memory>
#include <optional>

#include "app/LaunchArguments.h"
#include "app/SingleInstance.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/dialogs/MessageBox.h"

namespace vellumo {

namespace {

struct Start {
    QStringList paths;
    bool recursive = false;
    SingleInstance* instance = nullptr;
};

// Lists what `paths` stand for and names what gave nothing, after the
// window has painted itself.
void AddToWindow(ViewController& controller, const QStringList& paths, bool recursive) {
    const LaunchRequest request = ExpandLaunchPaths(paths, recursive);
    if (!request.images.isEmpty()) {
        controller.AppendImages(request.images, request.folders);
    }
    const QString warning = LaunchWarningText(request);
    if (!warning.isEmpty()) {
        QTimer::singleShot(0, &controller, [&controller, warning] {
            MessageBoxRequest box = NoticeRequest(
                QCoreApplication::translate("DesktopLaunch", "Some items could not be added."));
            box.style = MessageBoxStyle::Warning;
            box.informativeText = warning;
            controller.services().showMessageBox(box);
        });
    }
}

}  // namespace

Launch DesktopLaunch(int argc, char** argv) {
    auto start = std::make_shared<Start>();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    // --help and --version are answered before any display is opened, as
    // command-line programs do (the parser prints through an application
    // object: a plain one when there is none yet).
    std::optional<QCoreApplication> plain;
    if (QCoreApplication::instance() == nullptr) {
        plain.emplace(argc, argv);
        QCoreApplication::setApplicationName(QStringLiteral("vellumo"));
        QCoreApplication::setApplicationVersion(QStringLiteral(VELLUMO_VERSION));
    }
    start->paths = ParseLaunchArguments(arguments, start->recursive);
    Launch launch;
    launch.starting = [start] { return !SingleInstance::HandOver(start->paths, start->recursive); };
    launch.launched = [start](MainWindow& window, ViewController& controller) {
        start->instance = new SingleInstance(&controller);
        start->instance->Listen();
        QObject::connect(start->instance, &SingleInstance::pathsArrived, &controller,
                         [&window, &controller](const QStringList& paths, bool recursive) {
                             AddToWindow(controller, paths, recursive);
                             // Over a question the window waits for, it
                             // would hide it.
                             if (QApplication::activeModalWidget() == nullptr) {
                                 window.raise();
                                 window.activateWindow();
                             }
                         });
        AddToWindow(controller, start->paths, start->recursive);
    };
    return launch;
}

}  // namespace vellumo
