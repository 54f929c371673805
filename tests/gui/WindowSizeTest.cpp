// The window at its smallest: every control keeps the size it needs to be
// read and used, the crop and output tabs scroll, and the window cannot be
// made smaller than that.

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QTest>

#include "tests/gui/support/LoadedWindow.h"
#include "ui/list/ImageTableView.h"

using vellumo::test::LoadedWindow;

namespace {

// The controls a person reads or uses.
bool IsControl(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QSlider*>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
           qobject_cast<const QProgressBar*>(widget) != nullptr ||
           (qobject_cast<const QLabel*>(widget) != nullptr && !widget->objectName().isEmpty());
}

// Controls squeezed below the size they ask for at least, named.
QStringList Squeezed(QWidget& window) {
    QStringList squeezed;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!IsControl(widget) || !widget->isVisibleTo(&window)) {
            continue;
        }
        // A spin box's own line edit lies inside the box's frame: the box is
        // the control.
        if (qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) != nullptr) {
            continue;
        }
        // A label that wraps must still show a line; any other shows all of
        // its text.
        const auto* label = qobject_cast<QLabel*>(widget);
        const QSize needed =
            label != nullptr && label->wordWrap() ? QSize(1, widget->fontMetrics().height())
            : label != nullptr ? widget->sizeHint().expandedTo(widget->minimumSize())
                               : widget->minimumSizeHint();
        if (widget->width() < needed.width() || widget->height() < needed.height()) {
            squeezed << QStringLiteral("%1 %2x%3 < %4x%5")
                            .arg(widget->objectName(), QString::number(widget->width()),
                                 QString::number(widget->height()), QString::number(needed.width()),
                                 QString::number(needed.height()));
        }
    }
    return squeezed;
}

}  // namespace

class WindowSizeTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void atItsSmallestEveryControlKeepsItsSize() {
        LoadedWindow loaded;
        loaded.Show();
        QWidget& window = loaded.window();
        // The layout keeps the window from getting smaller than its controls
        // need.
        window.resize(1, 1);
        QApplication::processEvents();
        const QSize smallest = window.size();
        qInfo("smallest window: %d x %d", smallest.width(), smallest.height());
        QVERIFY2(
            smallest.width() >= 400 && smallest.height() >= 300 && smallest.width() <= 625 &&
                smallest.height() <= 512,
            qPrintable(QStringLiteral("%1 x %2").arg(smallest.width()).arg(smallest.height())));
        auto& tabs = loaded.Control<QTabWidget>("tabView");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            QApplication::processEvents();
            const QStringList squeezed = Squeezed(window);
            QVERIFY2(squeezed.isEmpty(), qPrintable(squeezed.join(QStringLiteral("; "))));
        }
        // The list and the preview keep room to be used.
        QVERIFY(loaded.Control<vellumo::ImageTableView>("tableViewImage").height() >= 120);
        QVERIFY(loaded.Control<QWidget>("imageViewCropPreview").height() >= 100);
        QVERIFY(loaded.Control<QWidget>("imageViewCropPreview").width() >= 200);
    }

    // Narrowed, the window takes the width from the list first: the crop
    // tab needs no scrolling sideways at 625 pixels.
    void aNarrowWindowKeepsTheCropTabsWidth() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.window().resize(625, 512);
        QApplication::processEvents();
        QCOMPARE(loaded.window().width(), 625);
        auto& area = loaded.Control<QScrollArea>("scrollCrop");
        QVERIFY2(!area.horizontalScrollBar()->isVisible(),
                 qPrintable(QStringLiteral("crop tab %1 wide, its page %2")
                                .arg(area.viewport()->width())
                                .arg(area.widget()->minimumSizeHint().width())));
    }

    void theTabsScrollWhatDoesNotFit() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.window().resize(1, 1);
        QApplication::processEvents();
        for (const char* name : {"scrollCrop", "scrollOutput"}) {
            auto& area = loaded.Control<QScrollArea>(name);
            QVERIFY2(area.widgetResizable(), name);
            QVERIFY2(area.widget() != nullptr, name);
        }
        // The crop tab's fields stay whole, reached by scrolling.
        auto& area = loaded.Control<QScrollArea>("scrollCrop");
        auto& field = loaded.Control<QLineEdit>("textFieldCustomCropPercentsHeight");
        area.ensureWidgetVisible(&field);
        QApplication::processEvents();
        const QPoint inViewport = field.mapTo(area.viewport(), QPoint(0, 0));
        QVERIFY(area.viewport()->rect().contains(QRect(inViewport, field.size())));
    }

    void theWindowGrowsAndTheSettingsShowWhole() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.window().resize(1280, 800);
        QTRY_COMPARE(loaded.window().size(), QSize(1280, 800));
        QApplication::processEvents();
        QVERIFY2(loaded.window().size() == QSize(1280, 800),
                 qPrintable(QStringLiteral("%1 x %2, at most %3 x %4")
                                .arg(loaded.window().width())
                                .arg(loaded.window().height())
                                .arg(loaded.window().maximumWidth())
                                .arg(loaded.window().maximumHeight())));
        // At that size the crop tab needs no scrolling, the preview takes the
        // rest, and the job's line stays one line under the list.
        auto& area = loaded.Control<QScrollArea>("scrollCrop");
        QVERIFY2(area.viewport()->height() >= area.widget()->minimumSizeHint().height(),
                 qPrintable(QStringLiteral("%1 < %2; area %3 hint %4; tabs %5 hint %6")
                                .arg(area.viewport()->height())
                                .arg(area.widget()->minimumSizeHint().height())
                                .arg(area.height())
                                .arg(area.sizeHint().height())
                                .arg(loaded.Control<QWidget>("tabView").height())
                                .arg(loaded.Control<QWidget>("tabView").sizeHint().height())));
        // (The crop rules' controls take 90 px of the 800; the preview keeps
        // the rest, a third of the screen's height.)
        QVERIFY(loaded.Control<QWidget>("imageViewCropPreview").height() >= 240);
        auto& status = loaded.Control<QLabel>("labelJobStatus");
        QVERIFY(status.height() <= 2 * status.fontMetrics().height());
    }

    void theWindowCannotBeMadeSmaller() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.window().resize(300, 200);
        QApplication::processEvents();
        QVERIFY(loaded.window().width() > 300);
        QVERIFY(loaded.window().height() > 200);
        QCOMPARE(loaded.window().minimumSize(), loaded.window().layout()->totalMinimumSize());
    }
};

QTEST_MAIN(WindowSizeTest)
#include "WindowSizeTest.moc"
