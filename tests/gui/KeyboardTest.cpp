// Everything can be reached from the keyboard: Tab goes through every
// control of the window in reading order (the images' side, then the
// settings from top to bottom, then the preview and the job's buttons), the
// preview's crop among them, and Tab reaches the Output tab's controls once
// it is shown.

#include <QAbstractButton>
#include <QApplication>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <algorithm>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"

using vellumo::test::LoadedWindow;

namespace {

// The widgets Tab stops at, in order, starting from `first`, once round.
QList<QWidget*> TabChain(QWidget* first) {
    QList<QWidget*> chain;
    QWidget* at = first;
    do {
        if (at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) != 0) {
            chain << at;
        }
        at = at->nextInFocusChain();
    } while (at != first && chain.size() < 500);
    return chain;
}

QStringList Names(const QList<QWidget*>& widgets) {
    QStringList names;
    for (const QWidget* widget : widgets) {
        names << (widget->objectName().isEmpty()
                      ? QString::fromLatin1(widget->metaObject()->className())
                      : widget->objectName());
    }
    return names;
}

// Those of `expected` that are in `chain`, in the chain's order.
QStringList InOrderOf(const QStringList& chain, const QStringList& expected) {
    QStringList found;
    for (const QString& name : chain) {
        if (expected.contains(name) && !found.contains(name)) {
            found << name;
        }
    }
    return found;
}

}  // namespace

class KeyboardTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void tabGoesThroughEveryControlOfTheCropTabInReadingOrder() {
        LoadedWindow loaded;
        loaded.Show();
        const QStringList chain = Names(TabChain(&loaded.Control<QWidget>("buttonAddImages")));
        const QStringList reading = {"buttonAddImages",
                                     "buttonRemoveSelected",
                                     "buttonRemoveAll",
                                     "buttonShowList",
                                     "buttonShowContactSheet",
                                     "tableViewImage",
                                     "qt_tabwidget_tabbar",
                                     "radioAutoCrop",
                                     "comboAutoCropFormat",
                                     "checkMatchOrientation",
                                     "anchorTopLeft",
                                     "anchorTop",
                                     "anchorTopRight",
                                     "anchorLeft",
                                     "anchorCentre",
                                     "anchorRight",
                                     "anchorBottomLeft",
                                     "anchorBottom",
                                     "anchorBottomRight",
                                     "anchorAttention",
                                     "anchorEntropy",
                                     "anchorFaces",
                                     "radioCustomCrop",
                                     "radioCustomCropPixels",
                                     "textFieldCustomCropPixelsOriginX",
                                     "textFieldCustomCropPixelsOriginY",
                                     "textFieldCustomCropPixelsWidth",
                                     "textFieldCustomCropPixelsHeight",
                                     "radioCustomCropPercents",
                                     "textFieldCustomCropPercentsOriginX",
                                     "stepperCustomCropPercentsOriginX",
                                     "textFieldCustomCropPercentsOriginY",
                                     "stepperCustomCropPercentsOriginY",
                                     "textFieldCustomCropPercentsWidth",
                                     "stepperCustomCropPercentsWidth",
                                     "textFieldCustomCropPercentsHeight",
                                     "stepperCustomCropPercentsHeight",
                                     "imageViewCropPreview",
                                     "buttonCropImages"};
        QCOMPARE(InOrderOf(chain, reading), reading);
    }

    void tabReachesTheFacesTrimAndPadControlsInReadingOrder() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.Control<QTabWidget>("tabView").setCurrentIndex(2);
        const QStringList chain = Names(TabChain(&loaded.Control<QWidget>("buttonAddImages")));
        const QStringList reading = {
            "qt_tabwidget_tabbar",  "checkHeadAndShoulders", "checkTrim", "checkPad",
            "imageViewCropPreview", "buttonCropImages"};
        QCOMPARE(InOrderOf(chain, reading), reading);
    }

    void tabReachesTheOutputTabsControlsInReadingOrder() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.Control<QTabWidget>("tabView").setCurrentIndex(1);
        const QStringList chain = Names(TabChain(&loaded.Control<QWidget>("buttonAddImages")));
        const QStringList reading = {"qt_tabwidget_tabbar",
                                     "comboFormat",
                                     "sliderQuality",
                                     "textFieldMaxSize",
                                     "comboMaxSizeUnit",
                                     "textFieldName",
                                     "buttonNameTokens",
                                     "textFieldOutputFolder",
                                     "buttonBrowse",
                                     "checkKeepEXIFInformationAndCreationDate",
                                     "checkCropJPEGFilesWithoutReencoding",
                                     "checkReplaceOriginals",
                                     "comboResize",
                                     "imageViewCropPreview",
                                     "buttonCropImages"};
        QCOMPARE(InOrderOf(chain, reading), reading);
    }

    void theArrowKeysMoveTheCropAndTheViewTellsWhereItIs() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({vellumo::test::Write(vellumo::test::Plain(200, 100, Qt::green),
                                               dir.filePath(QStringLiteral("a.png")))});
        vellumo::test::Click(loaded.Control<QAbstractButton>("radioAutoCrop"));
        vellumo::test::ClickRow(loaded, 0);
        auto& preview = loaded.Control<QWidget>("imageViewCropPreview");
        // The 1:1 crop of a 200 x 100 picture, centred.
        QTRY_COMPARE(preview.accessibleDescription(),
                     QStringLiteral("Crop 100 by 100 pixels at 50, 0 from the top left; arrow "
                                    "keys move it by one pixel, with Shift by ten"));
        preview.setFocus();
        QTest::keyClick(&preview, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(&preview, Qt::Key_Right);
        QTRY_VERIFY(preview.accessibleDescription().startsWith(
            QStringLiteral("Crop 100 by 100 pixels at 61, 0 ")));
    }
};

QTEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
