#pragma once

#include <QProxyStyle>

class QPainter;
class QWidget;

namespace vellumo {

// The desktop's style with a focus frame that can be seen: Fusion draws it
// in the selection colour at a third of its strength, which all but vanishes
// on a dark palette. This one draws it opaque, in the selection colour made
// lighter on a dark background and darker on a light one, still only after
// the keyboard moved the focus, as Fusion does.
class FocusFrameStyle : public QProxyStyle {
    Q_OBJECT

  public:
    // Wraps the application's style, once.
    static void Install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;

  private:
    explicit FocusFrameStyle(const QString& baseStyle);
};

// Draws the focus frame of `widget` around `rect` when the widget has the
// keyboard's focus: for the window's own controls that the style does not
// draw (the preview, the steppers, an empty list).
void PaintFocusFrame(const QWidget& widget, QPainter& painter, const QRect& rect);

}  // namespace vellumo
