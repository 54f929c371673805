#pragma once

#include <QScrollArea>

namespace vellumo {

// A scroll area around a page of settings: it asks for the room its page
// needs, so that where the window has that room nothing scrolls, and it
// scrolls where the window is smaller. (A plain QScrollArea asks for no more
// than 24 lines, whatever its page holds.)
//
// A page that asks for its width only (pageHeightAsked false) takes the
// height its tab widget has for the other pages, and scrolls within it: the
// Output tab, whose options would otherwise take the preview's room.
class SettingsScrollArea : public QScrollArea {
    Q_OBJECT
    Q_PROPERTY(bool pageHeightAsked READ pageHeightAsked WRITE setPageHeightAsked)

  public:
    explicit SettingsScrollArea(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    bool pageHeightAsked() const { return pageHeightAsked_; }
    void setPageHeightAsked(bool asked);

  protected:
    // The page's own layout changes (its fonts settle, a control appears):
    // the area asks for its new room too.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool pageHeightAsked_ = true;
};

}  // namespace vellumo
