#include "ui/controls/WrappingCheckBox.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "ui/controls/FocusFrameStyle.h"

namespace vellumo {

namespace {

constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
// The narrowest the text gets, in average characters: about two words a
// line, however long the language's words.
constexpr int kLeastCharacters = 16;

}  // namespace

WrappingCheckBox::WrappingCheckBox(QWidget* parent) : WrappingCheckBox(QString(), parent) {}

WrappingCheckBox::WrappingCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
    // The height follows the lines; a fixed height would cut off all but
    // the first.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int WrappingCheckBox::TextLeft() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this).left();
}

int WrappingCheckBox::Mnemonics() const {
    // Underlined only where the style underlines a QCheckBox's.
    return style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0
               ? Qt::TextShowMnemonic
               : Qt::TextHideMnemonic;
}

int WrappingCheckBox::LineHeight() const {
    return QCheckBox::sizeHint().height();
}

int WrappingCheckBox::Chrome() const {
    return QCheckBox::sizeHint().width() - fontMetrics().size(Qt::TextShowMnemonic, text()).width();
}

int WrappingCheckBox::TextRoom(int width) const {
    return std::max(1, width - Chrome());
}

QRect WrappingCheckBox::TextBounds(int width) const {
    const int textWidth = TextRoom(width);
    return fontMetrics().boundingRect(QRect(0, 0, textWidth, 0), kTextFlags | Mnemonics(), text());
}

QSize WrappingCheckBox::minimumSizeHint() const {
    const QSize oneLine = QCheckBox::sizeHint();
    // The longest word sets the least width too: words are never broken.
    const int least = fontMetrics().averageCharWidth() * kLeastCharacters;
    int longestWord = 0;
    for (const QString& word : text().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        longestWord = std::max(longestWord, fontMetrics().horizontalAdvance(word));
    }
    const int width = std::min(oneLine.width(), Chrome() + std::max(least, longestWord));
    return {width, oneLine.height()};
}

bool WrappingCheckBox::hasHeightForWidth() const {
    return true;
}

int WrappingCheckBox::heightForWidth(int width) const {
    // The extra lines add their height to a single-line box's.
    return LineHeight() + TextBounds(width).height() - fontMetrics().height();
}

void WrappingCheckBox::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    // The indicator as on a single-line box, beside the first line; the
    // focus frame goes round the text, drawn below.
    option.text.clear();
    option.state.setFlag(QStyle::State_HasFocus, false);
    option.rect.setHeight(LineHeight());
    painter.drawControl(QStyle::CE_CheckBox, option);
    const int top = (LineHeight() - fontMetrics().height()) / 2;
    const QRect lines(TextLeft(), top, TextRoom(width()), height() - top);
    painter.drawItemText(lines, kTextFlags | Mnemonics(), palette(), isEnabled(), text(),
                         QPalette::WindowText);
    if (focused) {
        const QRect bounds = TextBounds(width()).translated(lines.topLeft());
        PaintFocusFrame(*this, painter, bounds.adjusted(-2, -1, 2, 1));
    }
}

bool WrappingCheckBox::hitButton(const QPoint& pos) const {
    return rect().contains(pos);
}

}  // namespace vellumo
