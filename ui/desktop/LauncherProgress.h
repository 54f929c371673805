#pragma once

// The batch's progress on the window's taskbar or dock entry, where the
// desktop shows one: the com.canonical.Unity.LauncherEntry "Update" signal
// on the session bus, which GNOME's docks and KDE's task manager read, for
// the entry of org.vellumo.Vellumo.desktop. Without a session bus nothing
// is sent.

#include <QObject>

namespace vellumo {

class LauncherProgress : public QObject {
    Q_OBJECT

  public:
    explicit LauncherProgress(QObject* parent = nullptr);

    // The fraction of the batch done, 0 to 1, shown on the entry.
    void Show(double fraction);
    // The batch ended: the entry shows no progress.
    void Hide();

  private:
    void Send(double fraction, bool visible);
};

}  // namespace vellumo
