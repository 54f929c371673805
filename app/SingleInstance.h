#pragma once

// One Vellumo window per user: a second `vellumo FILE…` hands its paths to
// the window already open (through a local socket in the user's runtime
// folder) and ends, as photo tools do.

#include <QLocalServer>
#include <QObject>
#include <QStringList>

namespace vellumo {

class SingleInstance : public QObject {
    Q_OBJECT

  public:
    explicit SingleInstance(QObject* parent = nullptr);

    // Hands `paths` (made absolute here, since the running window has a
    // current folder of its own) to a Vellumo already running; true when it
    // took them.
    static bool HandOver(const QStringList& paths, bool recursive);

    // Takes later starts' paths from now on; false when another process
    // listens already (two started at the same moment: this one stays on
    // its own).
    bool Listen();

  Q_SIGNALS:
    // A later start's paths, absolute, and whether it was --recursive.
    void pathsArrived(const QStringList& paths, bool recursive);

  private:
    void Accept();

    QLocalServer server_;
};

}  // namespace vellumo
