#include "ui/controls/SwitchedFields.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/controls/DecimalField.h"
#include "ui/controls/FlowLayout.h"

namespace vellumo {

namespace {

// Room between the check box and a labelled field, and between fields.
constexpr int kFieldGap = 8;
// Room between the controls of a line, and between the lines a row wraps
// onto.
constexpr int kControlGap = 2;
constexpr int kWrappedLineGap = 4;

}  // namespace

SwitchedFields::SwitchedFields(const QString& title, const QString& checkName,
                               const QString& toolTip, int indent, QWidget* parent)
    : QWidget(parent),
      on_(new QCheckBox(title, this)),
      lines_(new QVBoxLayout(this)),
      row_(WrappingLine()) {
    on_->setObjectName(checkName);
    on_->setToolTip(toolTip);
    row_->setContentsMargins(indent, 0, 0, 0);
    row_->addWidget(on_);
    lines_->setContentsMargins(0, 0, 0, 0);
    lines_->setSpacing(2);
    lines_->addLayout(row_);
    // As tall as its lines at the width it is given: one, or more where the
    // row wraps (a fixed policy would cap it at one line).
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(on_, &QCheckBox::clicked, this, [this] {
        SettleFields();
        Q_EMIT changed();
    });
}

bool SwitchedFields::IsOn() const {
    return on_->isChecked();
}

void SwitchedFields::SetOn(bool on) {
    on_->setChecked(on);
    SettleFields();
}

QLineEdit* SwitchedFields::NumberField(const char* name, const QString& accessibleName) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QString::fromLatin1(name));
    field->setAccessibleName(accessibleName);
    field->setValidator(UnsignedDecimals(field));
    field->setMaximumWidth(56);
    field->setAlignment(Qt::AlignRight);
    return field;
}

QWidget* SwitchedFields::Group(std::initializer_list<QWidget*> controls) {
    auto* holder = new QWidget(this);
    auto* group = new QHBoxLayout(holder);
    group->setContentsMargins(0, 0, 0, 0);
    group->setSpacing(kControlGap);
    for (QWidget* control : controls) {
        control->setParent(holder);
        group->addWidget(control);
    }
    return holder;
}

FlowLayout* SwitchedFields::WrappingLine() const {
    auto* line = new FlowLayout;
    line->setSpacing(kControlGap);
    line->setRowSpacing(kWrappedLineGap);
    line->setWrapIndent(WrapIndent());
    return line;
}

int SwitchedFields::WrapIndent() const {
    return style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, on_) +
           style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, on_);
}

// Each labelled field is a group of its own in the row, so that the row
// wraps between fields, never between a label and its field.
void SwitchedFields::Put(const QString& label, QWidget* field, const QString& unit) {
    if (!label.isEmpty() || group_ == nullptr) {
        auto* holder = new QWidget(this);
        group_ = new QHBoxLayout(holder);
        group_->setSpacing(kControlGap);
        group_->setContentsMargins(label.isEmpty() ? 0 : kFieldGap, 0, 0, 0);
        row_->addWidget(holder);
    }
    QWidget* holder = group_->parentWidget();
    if (!label.isEmpty()) {
        group_->addWidget(new QLabel(label, holder));
    }
    field->setParent(holder);
    group_->addWidget(field);
    if (!unit.isEmpty()) {
        group_->addWidget(new QLabel(unit, holder));
    }
    AddSwitched(field);
}

void SwitchedFields::AddField(const QString& label, QLineEdit* field, const QString& unit) {
    Put(label, field, unit);
    connect(field, &QLineEdit::textEdited, this, &SwitchedFields::changed);
}

void SwitchedFields::AddField(const QString& label, QSpinBox* field, const QString& unit) {
    Put(label, field, unit);
    // Typing and the arrows alike.
    connect(field, &QSpinBox::valueChanged, this, &SwitchedFields::changed);
}

void SwitchedFields::AddSwitched(QWidget* control) {
    switched_.push_back(control);
}

void SwitchedFields::AddLine(QLayout* line) {
    lines_->addLayout(line);
}

void SwitchedFields::SettleFields() {
    for (QWidget* control : switched_) {
        control->setEnabled(on_->isChecked());
    }
}

}  // namespace vellumo
