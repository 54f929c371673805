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
            return kFirstButtonAnswer + request.defaultButton;
        }
        const int answer = boxAnswers.front();
        boxAnswers.pop_front();
        return answer;
    };
    services.runOpenPanel = [this](const OpenPanelRequest& request) -> OpenPanelResult {
        panels.push_back(request);
        if (panelAnswers.empty()) {
            return std::nullopt;
        }
        // Copied out as a plain list: GCC 12 sees the moved-from optional's
        // list as possibly uninitialized.
        const bool chosen = panelAnswers.front().has_value();
        const QStringList paths = chosen ? *panelAnswers.front() : QStringList();
        panelAnswers.pop_front();
        return chosen ? OpenPanelResult(paths) : std::nullopt;
    };
    services.runSavePanel = [this](const SavePanelRequest& request) -> SavePanelResult {
        savePanels.push_back(request);
        if (savePanelAnswers.empty()) {
            return std::nullopt;
        }
        const bool chosen = savePanelAnswers.front().has_value();
        const QString path = chosen ? *savePanelAnswers.front() : QString();
        savePanelAnswers.pop_front();
        return chosen ? SavePanelResult(path) : std::nullopt;
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
    panelAnswers.push_back(paths);
    controller_->OnAddImages();
}

}  // namespace vellumo::test
