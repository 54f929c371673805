#pragma once

// Profiles: every setting of the window saved to a small JSON file and
// loaded back (File → Load Profile, Save Profile, Save Profile As). The file
// format is the core's, shared with the command line. The profile last
// loaded or saved is the current one: Save writes to it, and the window's
// title names it.

#include <QObject>
#include <QString>

namespace vellumo {

class SettingsPanel;
struct WindowServices;

class ProfileFiles : public QObject {
    Q_OBJECT

  public:
    ProfileFiles(SettingsPanel& settings, WindowServices& services, QObject* parent = nullptr);

    // The current profile's file; empty while there is none.
    const QString& currentPath() const { return currentPath_; }
    void setCurrentPath(const QString& path) { currentPath_ = path; }
    // No current profile any more (a new, empty window).
    void Forget();

    // Asks for a profile and puts its settings into the controls; a profile
    // that cannot be read changes no setting and says why.
    void Load();
    // The same for the profile at `path`, chosen from the recent ones.
    void LoadFile(const QString& path);
    // Writes the settings to the current profile, or asks where as SaveAs
    // does when there is none.
    void Save();
    // Asks where (the extension added when missing) and writes the settings
    // there; that file becomes the current profile.
    void SaveAs();

  Q_SIGNALS:
    // The current profile is now `path` (empty: none).
    void currentPathChanged(const QString& path);
    // The profile at `path` was loaded or saved (for the recent profiles).
    void used(const QString& path);

  private:
    void SaveTo(const QString& path);
    void BecomeCurrent(const QString& path);

    SettingsPanel& settings_;
    WindowServices& services_;
    QString currentPath_;
};

}  // namespace vellumo
