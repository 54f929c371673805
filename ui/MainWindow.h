#pragma once

#include <QMainWindow>
#include <memory>

class QSplitter;

namespace Ui {
class MainWindow;
}

namespace vellumo {

// Answers the window's questions about itself.
class WindowDelegate {
  public:
    // Whether the window may close now.
    virtual bool windowShouldClose(QWidget& window) = 0;

  protected:
    ~WindowDelegate() = default;
};

// The application's one window, built from the interface description
// resources/MainWindow.ui: every control, the menu bar and their shortcuts.
// It keeps the typed controls of that description for the classes that
// work with them.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // Every control of the description, by its object name.
    Ui::MainWindow& ui() { return *ui_; }

    void SetDelegate(WindowDelegate* delegate);

    // The size, position and splitter the window had when the last run
    // ended, kept beside the last folders (the application restores them;
    // windows made by tests start as described).
    void RestoreState();
    void RememberState() const;

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    std::unique_ptr<Ui::MainWindow> ui_;
    WindowDelegate* delegate_ = nullptr;
    QSplitter* splitter_ = nullptr;
    bool splitInitially_ = false;
    QByteArray restoredSplit_;  // applied at the first show
};

}  // namespace vellumo
