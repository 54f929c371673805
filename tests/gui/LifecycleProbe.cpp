// Starts Vellumo as the program does, runs the window's own crop job, then
// ends the program the way the first argument says:
//
//   vellumo_gui_lifecycle_probe quit          the Quit command  } while the job
//   vellumo_gui_lifecycle_probe close         closing the window } holds every image
//   vellumo_gui_lifecycle_probe close-idle    closing the window, no job running
//   vellumo_gui_lifecycle_probe crop-quit OUT IMAGE...    Quit      } while the job's
//   vellumo_gui_lifecycle_probe crop-close OUT IMAGE...   closing   } worker writes into OUT
//
// The process must end at once, with status 0, asking nothing. The job is
// the window's: its crop command, its thread, its progress. Its images go
// through a gate in front of the real worker processes: in the crop modes
// the first image is cropped by a real worker (whole, as PNG into OUT) and
// every other image is held for ever, so a program that waited for its job
// would never end; in `quit` and `close` every image is held. The program is
// ended once the first image's temporary file appears (crop modes) or once
// the job has begun an image (the others).

#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <memory>
#include <mutex>

#include "app/ApplicationMain.h"
#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/dialogs/CropQuestions.h"
#include "worker/WorkerImageProcessor.h"

namespace {

// Hands the first image of the list to a real worker and holds every other
// one until the process ends; it never lets a held image go, whatever the
// job is told. Dry runs go to the worker.
class GateToTheWorker final : public vellumo::ImageProcessor {
  public:
    explicit GateToTheWorker(bool cropFirst) : cropFirst_(cropFirst) {}

    vellumo::ImageOutcome Process(const vellumo::ImageTask& task) override {
        // Dry runs read the images' headers before the job's questions.
        if (task.kind == vellumo::TaskKind::DryRun) {
            return worker_.Process(task);
        }
        begun_ = true;
        if (cropFirst_ && task.index == 0) {
            return worker_.Process(task);
        }
        std::unique_lock lock(mutex_);
        held_.wait(lock, [] { return false; });
        return {};
    }
    void CancelAll() override { worker_.CancelAll(); }
    int ImagesAtOnce() const override { return 2; }
    bool begun() const { return begun_; }

  private:
    const bool cropFirst_;
    vellumo::WorkerImageProcessor worker_;
    std::atomic<bool> begun_{false};
    std::mutex mutex_;
    std::condition_variable held_;
};

void End(const char* mode, vellumo::MainWindow& window, vellumo::ViewController& controller) {
    if (std::strstr(mode, "quit") != nullptr) {
        controller.OnAppQuit();
    } else {
        window.close();
    }
}

// Calls `ready` on the GUI thread as soon as it returns something, then
// ends the program.
template <typename Ready>
void EndWhen(const char* mode, vellumo::MainWindow& window, vellumo::ViewController& controller,
             Ready ready) {
    auto* watch = new QTimer(&window);
    QObject::connect(watch, &QTimer::timeout, &window, [=, &window, &controller] {
        const QString said = ready();
        if (said.isEmpty()) {
            return;
        }
        watch->stop();
        std::printf("%s\n", qPrintable(said));
        std::fflush(stdout);
        End(mode, window, controller);
    });
    watch->start(2);
}

// Starts the window's crop job on the images, writing whole PNG copies into
// `out`.
void StartCropJob(const QString& out, const QStringList& images, vellumo::MainWindow& window,
                  vellumo::ViewController& controller) {
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
    std::printf("job %s\n", controller.isCropping() ? "running" : "not started");
    std::fflush(stdout);
}

struct Arguments {
    const char* mode = "";
    QString out;
    QStringList images;
};

Arguments Read(int argc, char** argv) {
    Arguments arguments;
    arguments.mode = argc > 1 ? argv[1] : "";
    arguments.out = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    for (int i = 3; i < argc; ++i) {
        arguments.images << QString::fromLocal8Bit(argv[i]);
    }
    return arguments;
}

}  // namespace

int main(int argc, char** argv) {
    const Arguments arguments = Read(argc, argv);
    const char* mode = arguments.mode;
    const bool crop = std::strncmp(mode, "crop-", 5) == 0;
    const bool withJob = std::strcmp(mode, "close-idle") != 0;
    // Outside the crop modes the held images are small ones of our own.
    auto own = std::make_shared<QTemporaryDir>();
    vellumo::ApplicationMain(
        argc, argv, [&](vellumo::MainWindow& window, vellumo::ViewController& controller) {
            std::printf("window %s\n", window.isVisible() ? "shown" : "hidden");
            std::fflush(stdout);
            if (!withJob) {
                QTimer::singleShot(200, &window, [&] { End(mode, window, controller); });
                return;
            }
            auto gate = std::make_shared<GateToTheWorker>(crop);
            controller.SetImageProcessor(gate);
            if (crop) {
                StartCropJob(arguments.out, arguments.images, window, controller);
                const QString out = arguments.out;
                EndWhen(mode, window, controller, [out] {
                    const QStringList writing =
                        QDir(out).entryList({".vellumo-*.tmp"}, QDir::Files | QDir::Hidden);
                    return writing.isEmpty() ? QString()
                                             : QStringLiteral("writing ") + writing.first();
                });
                return;
            }
            QStringList images;
            for (int i = 1; i <= 2; ++i) {
                images << own->filePath(QStringLiteral("held%1.png").arg(i));
                QImage held(64, 48, QImage::Format_RGB32);
                held.fill(Qt::darkCyan);
                held.save(images.back());
            }
            StartCropJob(own->path(), images, window, controller);
            EndWhen(mode, window, controller,
                    [gate] { return gate->begun() ? QStringLiteral("image held") : QString(); });
        });
}
