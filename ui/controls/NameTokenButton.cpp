#include "ui/controls/NameTokenButton.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <array>

namespace vellumo {

namespace {

struct TokenEntry {
    const char* token;
    const char* meaning;
};
// In the order a name is usually read; [Date:…] is the date with a pattern
// of its own (batch/DateFormat.h), offered with the time of day.
constexpr std::array<TokenEntry, 10> kTokenEntries = {{
    {"[FileName]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the image's own name")},
    {"[FileIndex]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "its place in the list")},
    {"[Folder]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the name of its folder")},
    {"[Ext]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "its extension")},
    {"[Date]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the day it was taken")},
    {"[Date:yyyy-MM-dd HH-mm-ss]",
     QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the day and time it was taken")},
    {"[Camera]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the camera's model")},
    {"[Width]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the output's width in pixels")},
    {"[Height]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the output's height in pixels")},
    {"[Ratio]", QT_TRANSLATE_NOOP("vellumo::NameTokenButton", "the output's aspect ratio")},
}};

}  // namespace

NameTokenButton::NameTokenButton(QWidget* parent) : QToolButton(parent) {
    setText(tr("Tokens"));
    setToolTip(tr("Put a token into the name at the cursor"));
    setAccessibleName(tr("Name tokens"));
    setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuNameTokens"));
    for (const TokenEntry& entry : kTokenEntries) {
        const QString token = QString::fromLatin1(entry.token);
        // "[FileName] – the image's own name"
        QAction* action = menu->addAction(token + QStringLiteral(" \u2013 ") + tr(entry.meaning));
        action->setData(token);
        connect(action, &QAction::triggered, this, [this, token] { Insert(token); });
    }
    setMenu(menu);
}

void NameTokenButton::Insert(const QString& token) {
    if (field_ == nullptr || !field_->isEnabled()) {
        return;
    }
    // As typed: the selection is replaced, the cursor ends after the token,
    // and Undo takes it out again.
    field_->insert(token);
    field_->setFocus(Qt::OtherFocusReason);
    Q_EMIT tokenInserted();
}

}  // namespace vellumo
