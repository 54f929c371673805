#include "ui/WindowServices.h"

#include <QDesktopServices>

namespace vellumo {

WindowServices WindowServices::Desktop(const std::function<QWidget*()>& parent) {
    WindowServices services;
    services.showMessageBox = [parent](const MessageBoxRequest& request) {
        return RunMessageBox(request, parent());
    };
    services.chooseFilesToOpen = [parent](const OpenFilesRequest& request) {
        return RunOpenFilesDialog(request, parent());
    };
    services.chooseFileToSave = [parent](const SaveFileRequest& request) {
        return RunSaveFileDialog(request, parent());
    };
    services.openUrl = [](const QUrl& address) { return QDesktopServices::openUrl(address); };
    return services;
}

}  // namespace vellumo
