#include "ui/SettingsWrapping.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QStyle>

#include "ui/controls/FlowLayout.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

// Puts `flow` where `row` was in `parent`, and deletes the row (its widgets
// must have been taken out of it).
void Replace(QBoxLayout& parent, QLayout* row, FlowLayout* flow) {
    const int index = parent.indexOf(row);
    parent.removeItem(row);
    delete row;
    parent.insertLayout(index, flow);
}

// A widget holding `grid`, so that the grid moves as one in a flow.
QWidget* Holder(QBoxLayout& row, QGridLayout* grid, QWidget* parent) {
    row.removeItem(grid);
    grid->setParent(nullptr);
    auto* holder = new QWidget(parent);
    grid->setContentsMargins(0, 0, 0, 0);
    holder->setLayout(grid);
    return holder;
}

// The radio button's text is as wide as the tab allows; the list of ratios
// goes under the text when both do not fit.
void WrapAutoCropRow(Ui::MainWindow& ui) {
    QRadioButton* choice = ui.radioAutoCrop;
    auto* flow = new FlowLayout;
    flow->setContentsMargins(0, 0, 0, 0);
    flow->setSpacing(ui.autoCropLayout->spacing());
    flow->setRowSpacing(2);
    flow->setWrapIndent(
        choice->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, choice) +
        choice->style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, choice));
    ui.autoCropLayout->removeWidget(choice);
    ui.autoCropLayout->removeWidget(ui.comboAutoCropFormat);
    flow->addWidget(choice);
    flow->addWidget(ui.comboAutoCropFormat);
    Replace(*ui.cropTabLayout, ui.autoCropLayout, flow);
}

// The pixels' and the percents' fields side by side where there is room,
// else one under the other.
void WrapCustomCropRow(Ui::MainWindow& ui) {
    QHBoxLayout& row = *ui.customCropLayout;
    // The indent and the gap between the two as the row had them.
    const int indent = ui.customCropIndent->sizeHint().width();
    const int gap = ui.customCropGap->sizeHint().width();
    auto* flow = new FlowLayout;
    flow->setContentsMargins(indent, 0, 0, 0);
    flow->setSpacing(gap);
    flow->setRowSpacing(ui.customPixelsLayout->verticalSpacing());
    flow->addWidget(Holder(row, ui.customPixelsLayout, ui.cropTabContents));
    flow->addWidget(Holder(row, ui.customPercentsLayout, ui.cropTabContents));
    Replace(*ui.cropTabLayout, &row, flow);
}

}  // namespace

void WrapCropTabRows(Ui::MainWindow& ui) {
    WrapAutoCropRow(ui);
    WrapCustomCropRow(ui);
}

}  // namespace vellumo
