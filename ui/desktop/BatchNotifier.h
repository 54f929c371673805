#pragma once

// Tells the desktop that a batch ended while the window was not active: a
// notification through the freedesktop Notifications service on the
// session bus (org.freedesktop.Notifications), with the report's sentence,
// its counts and a "Show in Folder" action. Without a notification service
// (no session bus, none running) nothing is sent and nothing fails.

#include <QObject>
#include <QString>
#include <QUrl>
#include <functional>

#include "batch/CropJob.h"

namespace vellumo {

class BatchNotifier : public QObject {
    Q_OBJECT

  public:
    // `windowActive` says whether the person is looking at the window;
    // `openFolder` shows a folder (the window's services).
    BatchNotifier(std::function<bool()> windowActive, std::function<bool(const QUrl&)> openFolder,
                  QObject* parent = nullptr);

    // Called when a batch's report is ready; `folder` is where it wrote.
    void BatchEnded(const JobReport& report, const QString& folder);

  private Q_SLOTS:
    // The service's signal when a person chose one of a notification's actions.
    void OnActionInvoked(uint id, const QString& action);

  private:
    std::function<bool()> windowActive_;
    std::function<bool(const QUrl&)> openFolder_;
    uint lastId_ = 0;
    QString lastFolder_;
};

}  // namespace vellumo
