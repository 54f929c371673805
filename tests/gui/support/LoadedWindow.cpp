#include "tests/gui/support/LoadedWindow.h"

#include <QTest>

namespace vellumo::test {

LoadedWindow::LoadedWindow()
    : window_(std::make_unique<MainWindow>()), controller_(std::make_unique<ViewController>()) {
    WindowServices& services = controller_->services();
    services.showMessageBox = [this](const MessageBoxRequest& request) {
        boxes.push_back(request);
        // Unanswered boxes get Return: their default button.
        if (boxAnswers.empty()) {
            return BoxAnswer{request.defaultButton};
        }
        const BoxAnswer answer = boxAnswers.front();
        boxAnswers.pop_front();
        return answer;
    };
    services.chooseFilesToOpen = [this](const OpenFilesRequest& request) -> OpenFilesResult {
        openDialogs.push_back(request);
        if (openDialogAnswers.empty()) {
            return std::nullopt;
        }
        // Copied out as a plain list: GCC 12 sees the moved-from optional's
        // list as possibly uninitialized.
        const bool chosen = openDialogAnswers.front().has_value();
        const QStringList paths = chosen ? *openDialogAnswers.front() : QStringList();
        openDialogAnswers.pop_front();
        return chosen ? OpenFilesResult(paths) : std::nullopt;
    };
    services.chooseFileToSave = [this](const SaveFileRequest& request) -> SaveFileResult {
        saveDialogs.push_back(request);
        if (saveDialogAnswers.empty()) {
            return std::nullopt;
        }
        const bool chosen = saveDialogAnswers.front().has_value();
        const QString path = chosen ? *saveDialogAnswers.front() : QString();
        saveDialogAnswers.pop_front();
        return chosen ? SaveFileResult(path) : std::nullopt;
    };
    services.openUrl = [this](const QUrl& address) {
        openedUrls.push_back(address);
        return false;
    };
    controller_->LoadView(*window_);
}

void LoadedWindow::Show() {
    window_->show();
    if (!QTest::qWaitForWindowExposed(window_.get())) {
        Fatal("test: the window was not shown");
    }
}

void LoadedWindow::AddImages(const QStringList& paths) {
    openDialogAnswers.push_back(paths);
    controller_->OnAddImages();
}

}  // namespace vellumo::test
