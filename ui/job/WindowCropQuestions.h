#pragma once

// The crop command's questions as the window asks them: a message box over
// the window for each, through the window's services (tests answer them).
// Asked from the thread that runs the command, a question is shown on the
// window's thread, which the asking thread waits for.

#include <QObject>
#include <QPointer>
#include <functional>

#include "batch/CropCommand.h"
#include "ui/WindowServices.h"

namespace vellumo {

class WindowCropQuestions final : public CropQuestions {
  public:
    // `context` lives on the window's thread; `beforeQuestion` runs there
    // before each box (the status line says "Preparing…" until then).
    WindowCropQuestions(QObject& context, WindowServices& services,
                        std::function<void()> beforeQuestion = {});

    Answer ReplaceOriginals(std::size_t count) override;
    Answer CreateFolder(const std::string& folder) override;
    Answer WriteUncroppedCopies() override;
    Answer NumberClashes(const std::vector<OutputClash>& clashes,
                         const std::vector<std::string>& list) override;
    OverwriteAnswer Overwrite(const std::string& path) override;

  private:
    // The box's answer, shown on the window's thread.
    BoxAnswer Ask(const MessageBoxRequest& request);

    QPointer<QObject> context_;
    WindowServices& services_;
    std::function<void()> beforeQuestion_;
};

}  // namespace vellumo
