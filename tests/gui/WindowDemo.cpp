// Starts Vellumo with the image files named on the command line already in
// its list, as if they had been added; used for screenshots of the window.
//
//   vellumo_window_demo image...

#include <QStringList>
#include <filesystem>

#include "app/ApplicationMain.h"
#include "ui/ViewController.h"

int main(int argc, char** argv) {
    QStringList paths;
    for (int i = 1; i < argc; ++i) {
        paths << QString::fromStdString(std::filesystem::absolute(argv[i]).lexically_normal());
    }
    vellumo::ApplicationMain(argc, argv,
                             [paths](vellumo::MainWindow&, vellumo::ViewController& controller) {
                                 vellumo::WindowServices& services = controller.services();
                                 const auto realPanel = services.runOpenPanel;
                                 services.runOpenPanel = [paths](const vellumo::OpenPanelRequest&) {
                                     return vellumo::OpenPanelResult(paths);
                                 };
                                 controller.OnAddImages();
                                 services.runOpenPanel = realPanel;
                             });
}
