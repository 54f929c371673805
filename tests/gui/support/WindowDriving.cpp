#include "tests/gui/support/WindowDriving.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabWidget>
#include <QTest>

#include "ui/list/ImageTableView.h"
#include "ui/preview/CropPreviewView.h"

namespace vellumo::test {

namespace {

QPoint RowCentre(ImageTableView& table, int row) {
    const QRect cell = table.visualRect(table.model()->index(row, 0));
    if (!cell.isValid()) {
        Fatal("test: row " + std::to_string(row) + " is not visible");
    }
    return cell.center();
}

}  // namespace

void ClickRow(LoadedWindow& loaded, int row) {
    auto& table = loaded.Control<ImageTableView>("tableViewImage");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, RowCentre(table, row));
    if (table.SelectedRow() != row) {
        Fatal("test: clicking row " + std::to_string(row) + " did not select it");
    }
    if (!WaitForPreview(loaded)) {
        Fatal("test: the preview of row " + std::to_string(row) + " did not come");
    }
}

void DeselectRow(LoadedWindow& loaded, int row) {
    auto& table = loaded.Control<ImageTableView>("tableViewImage");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, RowCentre(table, row));
    if (table.SelectedRow() != -1) {
        Fatal("test: ctrl-clicking row " + std::to_string(row) + " left a row selected");
    }
}

bool WaitForPreview(LoadedWindow& loaded, int timeoutMs) {
    return QTest::qWaitFor([&loaded] { return !loaded.preview().isPending(); }, timeoutMs);
}

QImage PreviewPicture(LoadedWindow& loaded) {
    return loaded.Control<CropPreviewView>("imageViewCropPreview").image();
}

// As a person would, the tab that holds `control` is chosen first.
void ShowTabOf(QWidget& control) {
    for (QWidget* page = &control; page != nullptr; page = page->parentWidget()) {
        QWidget* stack = page->parentWidget();
        auto* tabs = stack != nullptr ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
        if (tabs != nullptr && tabs->indexOf(page) >= 0) {
            tabs->setCurrentWidget(page);
        }
    }
}

void Click(QAbstractButton& button) {
    ShowTabOf(button);
    // A radio button or check box is clicked on its indicator: stretched
    // across a wide panel, its middle lies beyond its caption.
    QPoint where = button.rect().center();
    QStyleOptionButton option;
    option.initFrom(&button);
    if (qobject_cast<QRadioButton*>(&button) != nullptr) {
        where = button.style()
                    ->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &button)
                    .center();
    } else if (qobject_cast<QCheckBox*>(&button) != nullptr) {
        where =
            button.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &button).center();
    }
    QTest::mouseClick(&button, Qt::LeftButton, {}, where);
}

void Choose(QComboBox& combo, const QString& title) {
    const int wanted = combo.findText(title);
    if (wanted < 0) {
        Fatal("test: the list has no entry " + title.toStdString());
    }
    combo.setFocus();
    // Up and down keys step through a closed list, choosing as they go.
    while (combo.currentIndex() < wanted) {
        QTest::keyClick(&combo, Qt::Key_Down);
    }
    while (combo.currentIndex() > wanted) {
        QTest::keyClick(&combo, Qt::Key_Up);
    }
}

void Type(QLineEdit& field, const QString& text) {
    field.setFocus();
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
}

QString LabelText(LoadedWindow& loaded, const char* name) {
    return loaded.Control<QLabel>(name).text();
}

bool CropAndWait(LoadedWindow& loaded, int timeoutMs) {
    const std::size_t boxesBefore = loaded.boxes.size();
    Click(loaded.Control<QPushButton>("buttonCropImages"));
    // A refused job shows its notice at once; a job ends with its report,
    // after which the window is no longer cropping.
    return QTest::qWaitFor(
        [&] { return !loaded.controller().isCropping() && loaded.boxes.size() > boxesBefore; },
        timeoutMs);
}

}  // namespace vellumo::test
