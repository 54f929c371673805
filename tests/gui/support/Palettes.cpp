#include "tests/gui/support/Palettes.h"

#include <QColor>

namespace vellumo::test {

QPalette DarkPalette() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 48));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::AlternateBase, QColor(40, 40, 44));
    dark.setColor(QPalette::Text, QColor(235, 235, 235));
    dark.setColor(QPalette::Button, QColor(55, 55, 58));
    dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    dark.setColor(QPalette::Highlight, QColor(38, 79, 120));
    dark.setColor(QPalette::HighlightedText, QColor(255, 255, 255));
    return dark;
}

}  // namespace vellumo::test
