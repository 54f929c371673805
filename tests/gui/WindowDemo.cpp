// Starts Vellumo with the image files named on the command line already in
// its list, as if they had been added; used for screenshots of the window.
//
//   vellumo_window_demo [--auto RATIO] [--anchor BUTTON] [--select ROW]
//                       [--name TEMPLATE] [--output FOLDER] [--crop] [--sheet]
//                       [--size WIDTHxHEIGHT] [--adjust ROW=X,Y,W,H]... [--tab INDEX]
//                       image...
//
// --auto chooses auto crop with that ratio (an entry of the list, or any
// W:H as a custom ratio), --anchor clicks the anchor button of that object
// name ("anchorTop"), --select selects a row (from 0), as clicks would;
// --name and --output fill the name template and the output folder; --crop
// presses Crop Images once the window shows; --sheet shows the list as a
// contact sheet; --size gives the window that size; --adjust gives the image
// of that row its own crop rectangle (in its pixels, origin at the
// lower-left corner), as a drag on the preview would; --tab shows the
// settings tab of that index (from 0).

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QSize>
#include <QStringList>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include "app/ApplicationMain.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/preview/CropAdjustmentStore.h"

namespace {

struct DemoOptions {
    QString autoCropRatio;
    QString anchorButton;
    int selectedRow = -1;
    int tab = -1;
    QString nameTemplate;
    QString outputFolder;
    bool crop = false;
    bool sheet = false;
    QSize size;
    std::vector<std::pair<int, vellumo::Rect>> adjustments;
    QStringList paths;
};

DemoOptions ParseOptions(int argc, char** argv) {
    DemoOptions options;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument == "--auto" && i + 1 < argc) {
            options.autoCropRatio = QString::fromLocal8Bit(argv[++i]);
        } else if (argument == "--anchor" && i + 1 < argc) {
            options.anchorButton = QString::fromLocal8Bit(argv[++i]);
        } else if (argument == "--select" && i + 1 < argc) {
            options.selectedRow = std::atoi(argv[++i]);
        } else if (argument == "--name" && i + 1 < argc) {
            options.nameTemplate = QString::fromLocal8Bit(argv[++i]);
        } else if (argument == "--output" && i + 1 < argc) {
            options.outputFolder = QString::fromLocal8Bit(argv[++i]);
        } else if (argument == "--tab" && i + 1 < argc) {
            options.tab = std::atoi(argv[++i]);
        } else if (argument == "--crop") {
            options.crop = true;
        } else if (argument == "--size" && i + 1 < argc) {
            const QStringList sides = QString::fromLocal8Bit(argv[++i]).split('x');
            if (sides.size() == 2) {
                options.size = QSize(sides[0].toInt(), sides[1].toInt());
            }
        } else if (argument == "--adjust" && i + 1 < argc) {
            const QStringList parts = QString::fromLocal8Bit(argv[++i]).split('=');
            const QStringList sides = parts.value(1).split(',');
            if (parts.size() == 2 && sides.size() == 4) {
                options.adjustments.push_back(
                    {parts[0].toInt(), vellumo::Rect{sides[0].toDouble(), sides[1].toDouble(),
                                                     sides[2].toDouble(), sides[3].toDouble()}});
            }
        } else if (argument == "--sheet") {
            options.sheet = true;
        } else {
            options.paths << QString::fromStdString(
                std::filesystem::absolute(argv[i]).lexically_normal());
        }
    }
    return options;
}

}  // namespace

int main(int argc, char** argv) {
    const DemoOptions options = ParseOptions(argc, argv);
    vellumo::ApplicationMain(
        argc, argv, [options](vellumo::MainWindow& window, vellumo::ViewController& controller) {
            if (options.size.isValid()) {
                window.resize(options.size);
            }
            vellumo::WindowServices& services = controller.services();
            const auto realPanel = services.chooseFilesToOpen;
            // One file a time, so the list keeps the order given.
            for (const QString& path : options.paths) {
                services.chooseFilesToOpen = [path](const vellumo::OpenFilesRequest&) {
                    return vellumo::OpenFilesResult(QStringList{path});
                };
                controller.OnAddImages();
            }
            services.chooseFilesToOpen = realPanel;

            for (const auto& [row, rect] : options.adjustments) {
                if (row >= 0 && row < controller.imageList().paths().size()) {
                    controller.cropAdjustments().Adjust(controller.imageList().paths()[row], rect,
                                                        false);
                }
            }
            if (!options.autoCropRatio.isEmpty()) {
                auto* ratios = window.findChild<QComboBox*>("comboAutoCropFormat");
                int index = ratios->findText(options.autoCropRatio);
                const QStringList sides = options.autoCropRatio.split(':');
                if (index < 0 && sides.size() == 2) {
                    // Any other W:H is a custom ratio.
                    index = ratios->count() - 1;
                    window.findChild<QLineEdit*>("textFieldRatioWidth")->setText(sides[0]);
                    window.findChild<QLineEdit*>("textFieldRatioHeight")->setText(sides[1]);
                }
                if (index < 0) {
                    std::fprintf(stderr, "no auto-crop ratio %s\n",
                                 qPrintable(options.autoCropRatio));
                    std::exit(2);
                }
                ratios->setCurrentIndex(index);
                Q_EMIT ratios->activated(index);
                window.findChild<QAbstractButton*>("radioAutoCrop")->click();
            }
            if (!options.anchorButton.isEmpty()) {
                auto* button = window.findChild<QAbstractButton*>(options.anchorButton);
                if (button == nullptr) {
                    std::fprintf(stderr, "no anchor button %s\n", qPrintable(options.anchorButton));
                    std::exit(2);
                }
                button->click();
            }
            if (options.selectedRow >= 0) {
                window.findChild<QTableView*>("tableViewImage")->selectRow(options.selectedRow);
            }
            if (!options.nameTemplate.isEmpty()) {
                window.findChild<QLineEdit*>("textFieldName")->setText(options.nameTemplate);
            }
            if (!options.outputFolder.isEmpty()) {
                window.findChild<QLineEdit*>("textFieldOutputFolder")
                    ->setText(options.outputFolder);
            }
            if (options.tab >= 0) {
                window.findChild<QTabWidget*>("tabView")->setCurrentIndex(options.tab);
            }
            if (options.sheet) {
                window.findChild<QAction*>("actionShowContactSheet")->trigger();
            }
            if (options.crop) {
                auto* button = window.findChild<QAbstractButton*>("buttonCropImages");
                QTimer::singleShot(500, button, [button] { button->click(); });
            }
        });
}
