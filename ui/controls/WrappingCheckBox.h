#pragma once

#include <QCheckBox>

namespace vellumo {

// A check box whose text wraps onto further lines where the box is narrower
// than its text: a long option in a longer language no longer makes its
// settings tab scroll sideways. Its text, accessible name and behaviour are
// a QCheckBox's; it asks for a few words' width at least, and the height its
// lines take at the width it is given.
class WrappingCheckBox : public QCheckBox {
    Q_OBJECT

  public:
    explicit WrappingCheckBox(QWidget* parent = nullptr);
    explicit WrappingCheckBox(const QString& text, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    // The whole box takes a click, its text's further lines too.
    bool hitButton(const QPoint& pos) const override;

  private:
    // Where the text begins, after the indicator.
    int TextLeft() const;
    // Whether the text's mnemonic is underlined, as text flags.
    int Mnemonics() const;
    // The height of a single-line box.
    int LineHeight() const;
    // What a single-line box keeps besides its text: the indicator and the
    // gap before the text, and the style's margin after it.
    int Chrome() const;
    // The width the text may take in a box this wide.
    int TextRoom(int width) const;
    // The text's lines at this width of the whole box.
    QRect TextBounds(int width) const;
};

}  // namespace vellumo
