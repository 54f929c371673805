#include "ui/job/WindowCropObserver.h"

#include <QFile>
#include <QFileInfo>
#include <iostream>

#include "batch/JobSummary.h"

namespace vellumo {

WindowCropObserver::WindowCropObserver(QObject& context, Handlers handlers)
    : context_(&context), handlers_(std::move(handlers)) {}

bool WindowCropObserver::Starting(const BatchPart& part, std::string& /*reason*/) {
    const long count = static_cast<long>(part.list.size());
    const QString folder =
        part.plan.images.empty()
            ? QString()
            : QFileInfo(QFile::decodeName(QByteArray::fromStdString(part.plan.images.front().path)))
                  .absolutePath();
    if (context_.isNull()) {
        return true;
    }
    // The window shows the job as started (Stop enabled) before its first
    // image begins: the job's thread waits for that.
    QMetaObject::invokeMethod(
        context_.data(), [started = handlers_.started, count, folder] { started(count, folder); },
        Qt::BlockingQueuedConnection);
    return true;
}

void WindowCropObserver::ImageDone(const ImageReport& report) {
    for (const std::string& line : ConsoleLines(report.outcome)) {
        std::cout << line << std::endl;
    }
    if (context_.isNull()) {
        return;
    }
    QMetaObject::invokeMethod(
        context_.data(), [done = handlers_.imageDone, index = report.index] { done(index); },
        Qt::QueuedConnection);
}

}  // namespace vellumo
