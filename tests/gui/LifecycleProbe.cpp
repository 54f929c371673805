// Starts Vellumo as the program does, with a background job running, then
// ends it the way the first argument says:
//
//   vellumo_gui_lifecycle_probe quit          the Quit command  } while a job
//   vellumo_gui_lifecycle_probe close         closing the window } that never ends runs
//   vellumo_gui_lifecycle_probe close-idle    closing the window, no job running
//   vellumo_gui_lifecycle_probe crop-quit OUT IMAGE...    Quit      } while a real crop
//   vellumo_gui_lifecycle_probe crop-close OUT IMAGE...   closing   } job writes to OUT
//
// The process must end at once, with status 0, asking nothing. The crop modes
// start the window's own job (whole images as PNG into OUT) and end the
// program as soon as the first file is being written.

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QTimer>
#include <QtConcurrent/QtConcurrentRun>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

#include "app/ApplicationMain.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/dialogs/CropQuestions.h"

namespace {

std::atomic<bool> jobRunning{false};

void EndlessJob() {
    jobRunning = true;
    for (;;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

void End(const char* mode, vellumo::MainWindow& window, vellumo::ViewController& controller) {
    if (std::strstr(mode, "quit") != nullptr) {
        controller.OnAppQuit();
    } else {
        window.close();
    }
}

// Starts the window's crop job on the images, then ends the program once a
// file is being written into `out`.
void CropThenEnd(const char* mode, const QString& out, const QStringList& images,
                 vellumo::MainWindow& window, vellumo::ViewController& controller) {
    controller.services().chooseFilesToOpen = [images](const vellumo::OpenFilesRequest&) {
        return vellumo::OpenFilesResult(images);
    };
    // Whole copies are written: the question about them is answered yes.
    controller.services().showMessageBox = [](const vellumo::MessageBoxRequest&) {
        return vellumo::kGoOnAnswer;
    };
    controller.OnAddImages();
    window.findChild<QLineEdit*>("textFieldOutputFolder")->setText(out);
    window.findChild<QComboBox*>("comboFormat")->setCurrentText("PNG");
    controller.OnCropImages();
    std::printf("job running\n");
    std::fflush(stdout);
    auto* watch = new QTimer(&window);
    QObject::connect(watch, &QTimer::timeout, &window, [=, &window, &controller] {
        const QStringList writing =
            QDir(out).entryList({".vellumo-*.tmp"}, QDir::Files | QDir::Hidden);
        if (writing.isEmpty()) {
            return;
        }
        watch->stop();
        std::printf("writing %s\n", qPrintable(writing.first()));
        std::fflush(stdout);
        End(mode, window, controller);
    });
    watch->start(2);
}

}  // namespace

int main(int argc, char** argv) {
    const char* mode = argc > 1 ? argv[1] : "";
    const bool crop = std::strncmp(mode, "crop-", 5) == 0;
    QString out;
    QStringList images;
    if (crop) {
        out = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
        for (int i = 3; i < argc; ++i) {
            images << QString::fromLocal8Bit(argv[i]);
        }
    }
    const bool withJob = std::strcmp(mode, "close-idle") != 0;
    vellumo::ApplicationMain(
        argc, argv,
        [mode, crop, withJob, out, images](vellumo::MainWindow& window,
                                           vellumo::ViewController& controller) {
            std::printf("window %s\n", window.isVisible() ? "shown" : "hidden");
            if (crop) {
                CropThenEnd(mode, out, images, window, controller);
                return;
            }
            if (withJob) {
                controller.DisableInterface();
                (void)QtConcurrent::run(EndlessJob);
                while (!jobRunning) {
                    std::this_thread::sleep_for(std::chrono::milliseconds(5));
                }
                std::printf("job running\n");
            }
            std::fflush(stdout);
            QTimer::singleShot(200, &window,
                               [mode, &window, &controller] { End(mode, window, controller); });
        });
}
