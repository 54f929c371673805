#include "ui/controls/SwitchedFields.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>

#include "ui/controls/DecimalField.h"

namespace vellumo {

namespace {

// Room between the check box and a labelled field, and between fields.
constexpr int kFieldGap = 8;

}  // namespace

SwitchedFields::SwitchedFields(const QString& title, const QString& checkName,
                               const QString& toolTip, int indent, QWidget* parent)
    : QWidget(parent),
      on_(new QCheckBox(title, this)),
      lines_(new QVBoxLayout(this)),
      row_(new QHBoxLayout) {
    on_->setObjectName(checkName);
    on_->setToolTip(toolTip);
    row_->setContentsMargins(indent, 0, 0, 0);
    row_->addWidget(on_);
    // Fields go in before the stretch, which keeps them to the left.
    row_->addStretch(1);
    lines_->setContentsMargins(0, 0, 0, 0);
    lines_->setSpacing(2);
    lines_->addLayout(row_);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
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

void SwitchedFields::Put(const QString& label, QWidget* field, const QString& unit) {
    const auto append = [this](QWidget* widget) { row_->insertWidget(row_->count() - 1, widget); };
    if (!label.isEmpty()) {
        row_->insertSpacing(row_->count() - 1, kFieldGap);
        append(new QLabel(label, this));
    }
    append(field);
    if (!unit.isEmpty()) {
        append(new QLabel(unit, this));
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
