// The control that has the keyboard's focus shows it, in a light palette
// and in a dark one: rendered with the focus a Tab gives it, every control
// Tab stops at looks clearly different from the same control without it.

#include <QAbstractSpinBox>
#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QTabWidget>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/Palettes.h"

using vellumo::test::DarkPalette;
using vellumo::test::LoadedWindow;

namespace {

// Pixels that differ between the two renderings by more than a faint
// shade: a text cursor alone is one line of them, a focus frame runs round
// the control or its caption.
int ClearlyDifferentPixels(const QImage& before, const QImage& after) {
    if (before.size() != after.size()) {
        return 0;
    }
    const QImage a = before.convertToFormat(QImage::Format_RGB32);
    const QImage b = after.convertToFormat(QImage::Format_RGB32);
    int different = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto* lineA = reinterpret_cast<const QRgb*>(a.constScanLine(y));
        const auto* lineB = reinterpret_cast<const QRgb*>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            const int distance = std::max({std::abs(qRed(lineA[x]) - qRed(lineB[x])),
                                           std::abs(qGreen(lineA[x]) - qGreen(lineB[x])),
                                           std::abs(qBlue(lineA[x]) - qBlue(lineB[x]))});
            different += distance > 24 ? 1 : 0;
        }
    }
    return different;
}

QString NameOf(const QWidget& widget) {
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

// The shown controls Tab stops at whose focus cannot be seen.
QStringList FocusUnseen(QWidget& window) {
    QStringList unseen;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || !widget->isEnabled() ||
            (widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr) {
            continue;
        }
        window.setFocus(Qt::OtherFocusReason);
        const QImage before = widget->grab().toImage();
        widget->setFocus(Qt::TabFocusReason);
        const QImage after = widget->grab().toImage();
        const int different = ClearlyDifferentPixels(before, after);
        if (!widget->hasFocus() || different < 2 * widget->fontMetrics().height()) {
            unseen << QStringLiteral("%1 (%2 pixels change)").arg(NameOf(*widget)).arg(different);
        }
    }
    return unseen;
}

}  // namespace

class KeyboardFocusTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theFocusedControlShowsItInBothPalettes_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void theFocusedControlShowsItInBothPalettes() {
        QFETCH(bool, dark);
        const QPalette original = QApplication::palette();
        if (dark) {
            QApplication::setPalette(DarkPalette());
        }
        LoadedWindow loaded;
        loaded.Show();
        QWidget& window = loaded.window();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        // As after a Tab press: styles draw the focus frame only then.
        window.setAttribute(Qt::WA_KeyboardFocusChange);
        QStringList unseen;
        auto& tabs = loaded.Control<QTabWidget>("tabView");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            QApplication::processEvents();
            unseen << FocusUnseen(window);
        }
        unseen.removeDuplicates();
        QApplication::setPalette(original);
        QVERIFY2(unseen.isEmpty(), qPrintable(unseen.join(QStringLiteral("\n  "))));
    }
};

QTEST_MAIN(KeyboardFocusTest)
#include "KeyboardFocusTest.moc"
