#pragma once

// What the window makes of a crop command's progress: each step, told on
// the thread that runs the command, is handed to the window's thread in
// order; the job's start is shown before the job's thread goes on. The lines the window has always
// written on standard output are written as each image is done.

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

#include "batch/CropCommand.h"

namespace vellumo {

class WindowCropObserver final : public CropObserver {
  public:
    struct Handlers {
        // The job begins: how many images, and the folder of the first output.
        std::function<void(long count, const QString& folder)> started;
        // An image is done (its index in the list).
        std::function<void(long index)> imageDone;
    };
    WindowCropObserver(QObject& context, Handlers handlers);

    bool Starting(const BatchPart& part, std::string& reason) override;
    void ImageDone(const ImageReport& report) override;

  private:
    QPointer<QObject> context_;
    Handlers handlers_;
};

}  // namespace vellumo
