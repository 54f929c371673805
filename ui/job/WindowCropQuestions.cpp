#include "ui/job/WindowCropQuestions.h"

#include <QFile>
#include <QThread>

#include "ui/dialogs/CropQuestions.h"
#include "ui/dialogs/OverwriteBox.h"

namespace vellumo {

WindowCropQuestions::WindowCropQuestions(QObject& context, WindowServices& services,
                                         std::function<void()> beforeQuestion)
    : context_(&context), services_(services), beforeQuestion_(std::move(beforeQuestion)) {}

BoxAnswer WindowCropQuestions::Ask(const MessageBoxRequest& request) {
    BoxAnswer answer = kNoButtonPressed;  // a window that is gone asks nobody
    const auto ask = [&] {
        if (beforeQuestion_) {
            beforeQuestion_();
        }
        answer = services_.showMessageBox(request);
    };
    if (context_.isNull()) {
        return answer;  // the window is gone: nobody to ask
    }
    if (QThread::currentThread() == context_->thread()) {
        ask();
    } else {
        QMetaObject::invokeMethod(context_.data(), ask, Qt::BlockingQueuedConnection);
    }
    return answer;
}

Answer WindowCropQuestions::ReplaceOriginals(std::size_t count) {
    return Ask(ReplaceOriginalsRequest(count)) == kGoOnAnswer ? Answer::Yes : Answer::No;
}

Answer WindowCropQuestions::CreateFolder(const std::string& folder) {
    return Ask(CreateFolderRequest(folder)) == kGoOnAnswer ? Answer::Yes : Answer::No;
}

Answer WindowCropQuestions::WriteUncroppedCopies() {
    return Ask(UncroppedCopiesRequest()) == kGoOnAnswer ? Answer::Yes : Answer::No;
}

Answer WindowCropQuestions::NumberClashes(const std::vector<OutputClash>& clashes,
                                          const std::vector<std::string>& list) {
    return Ask(ClashWarningRequest(clashes, list)) == kGoOnAnswer ? Answer::Yes : Answer::No;
}

OverwriteAnswer WindowCropQuestions::Overwrite(const std::string& path) {
    return OverwriteAnswerOfBox(
        Ask(OverwriteBoxRequest(QFile::decodeName(QByteArray::fromStdString(path)))));
}

}  // namespace vellumo
