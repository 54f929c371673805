#pragma once

#include <QSplitter>

namespace vellumo {

// The window's splitter between the list and the settings: when the window
// gets narrower than both panes want, the settings (the second pane) keep
// the width their longest line needs and the list gives way, down to its
// own smallest; a plain splitter would shrink both alike and leave the
// settings scrolling sideways while the list still had room to spare.
class SettingsFirstSplitter : public QSplitter {
    Q_OBJECT

  public:
    explicit SettingsFirstSplitter(QWidget* parent = nullptr);

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace vellumo
