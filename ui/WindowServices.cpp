#include "ui/WindowServices.h"

#include <QDesktopServices>

namespace vellumo {

WindowServices WindowServices::Desktop(const std::function<QWidget*()>& parent) {
    WindowServices services;
    services.showMessageBox = [parent](const MessageBoxRequest& request) {
        return RunMessageBox(request, parent());
    };
    services.runOpenPanel = [parent](const OpenPanelRequest& request) {
        return RunOpenPanel(request, parent());
    };
    services.runSavePanel = [parent](const SavePanelRequest& request) {
        return RunSavePanel(request, parent());
    };
    services.openUrl = [](const QUrl& address) { return QDesktopServices::openUrl(address); };
    return services;
}

}  // namespace vellumo
