#pragma once

#include <QScrollArea>

namespace vellumo {

// A scroll area around a page of settings: it asks for the room its page
// needs, so that where the window has that room nothing scrolls, and it
// scrolls where the window is smaller. (A plain QScrollArea asks for no more
// than 24 lines, whatever its page holds.)
class SettingsScrollArea : public QScrollArea {
    Q_OBJECT

  public:
    explicit SettingsScrollArea(QWidget* parent = nullptr);

    QSize sizeHint() const override;

  protected:
    // The page's own layout changes (its fonts settle, a control appears):
    // the area asks for its new room too.
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace vellumo
