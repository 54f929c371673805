#include "ui/controls/FocusFrameStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QWidget>

namespace vellumo {

namespace {

// The selection colour, moved away from the background's lightness until
// the two differ clearly.
QColor FrameColour(const QPalette& palette, const QColor& background) {
    QColor colour = palette.color(QPalette::Highlight);
    const bool darkBackground = background.lightness() < 128;
    for (int step = 0; step < 4 && std::abs(colour.lightness() - background.lightness()) < 96;
         ++step) {
        colour = darkBackground ? colour.lighter(140) : colour.darker(140);
    }
    return colour;
}

}  // namespace

FocusFrameStyle::FocusFrameStyle(const QString& baseStyle) : QProxyStyle(baseStyle) {}

void FocusFrameStyle::Install() {
    if (qobject_cast<FocusFrameStyle*>(QApplication::style()) == nullptr) {
        QApplication::setStyle(new FocusFrameStyle(QApplication::style()->name()));
    }
}

void FocusFrameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(option);
    if (element != PE_FrameFocusRect || focus == nullptr ||
        !option->state.testFlag(State_KeyboardFocusChange)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QColor background = focus->backgroundColor.isValid()
                                  ? focus->backgroundColor
                                  : option->palette.color(QPalette::Window);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(QPen(FrameColour(option->palette, background), 1.0));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 1.5, 1.5);
    painter->restore();
}

// Fusion shows a push button's focus only by its outline, the outline a
// default button always has, and a tab's by a faint tint: focused, either
// gets the frame inside.
void FocusFrameStyle::drawControl(ControlElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if ((element != CE_PushButton && element != CE_TabBarTab) ||
        !option->state.testFlag(State_HasFocus)) {
        return;
    }
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(*option);
    focus.rect = element == CE_PushButton ? subElementRect(SE_PushButtonFocusRect, option, widget)
                                          : option->rect.adjusted(3, 3, -3, -2);
    focus.backgroundColor = option->palette.color(QPalette::Button);
    drawPrimitive(PE_FrameFocusRect, &focus, painter, widget);
}

void PaintFocusFrame(const QWidget& widget, QPainter& painter, const QRect& rect) {
    if (!widget.hasFocus()) {
        return;
    }
    QStyleOptionFocusRect option;
    option.initFrom(&widget);
    option.rect = rect;
    option.backgroundColor = widget.palette().color(widget.backgroundRole());
    widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
}

}  // namespace vellumo
