#include "ui/controls/TrimRuleBox.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "imaging/Trim.h"
#include "ui/controls/DecimalField.h"

namespace vellumo {

TrimRuleBox::TrimRuleBox(QWidget* parent)
    : QWidget(parent),
      on_(new QCheckBox(tr("Trim uniform borders"), this)),
      tolerance_(new QLineEdit(this)),
      margin_(new QSpinBox(this)) {
    on_->setObjectName(QStringLiteral("checkTrim"));
    on_->setToolTip(
        tr("Cut away borders of the corners' colour first; the crop is made within what is left"));
    tolerance_->setObjectName(QStringLiteral("textFieldTrimTolerance"));
    tolerance_->setAccessibleName(tr("Trim tolerance"));
    tolerance_->setToolTip(
        tr("How far a colour may be from the border's and still be cut, "
           "in percent of the full range (0 to 100)"));
    tolerance_->setValidator(UnsignedDecimals(tolerance_));
    tolerance_->setMaximumWidth(56);
    tolerance_->setAlignment(Qt::AlignRight);
    margin_->setObjectName(QStringLiteral("spinTrimMargin"));
    margin_->setAccessibleName(tr("Trim margin"));
    margin_->setToolTip(tr("Pixels of the border kept on each side"));
    margin_->setRange(0, kLargestTrimMargin);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(on_);
    layout->addSpacing(8);
    layout->addWidget(new QLabel(tr("Tolerance:"), this));
    layout->addWidget(tolerance_);
    layout->addWidget(new QLabel(QStringLiteral("%"), this));
    layout->addSpacing(8);
    layout->addWidget(new QLabel(tr("Margin:"), this));
    layout->addWidget(margin_);
    layout->addWidget(new QLabel(QStringLiteral("px"), this));
    layout->addStretch(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    Write(CropSettings{});
    connect(on_, &QCheckBox::clicked, this, [this] {
        SettleFields();
        Q_EMIT changed();
    });
    connect(tolerance_, &QLineEdit::textEdited, this, &TrimRuleBox::changed);
    // Typing and the arrows alike; Write sets the value quietly.
    connect(margin_, &QSpinBox::valueChanged, this, &TrimRuleBox::changed);
}

void TrimRuleBox::SettleFields() {
    tolerance_->setEnabled(on_->isChecked());
    margin_->setEnabled(on_->isChecked());
}

void TrimRuleBox::Read(CropSettings& s) const {
    s.trim.on = on_->isChecked();
    // A field emptied while typing trims only the corners' exact colour.
    s.trim.tolerance =
        std::clamp(TextFieldDoubleValue(*tolerance_, 0.0), 0.0, kLargestTrimTolerance);
    s.trim.margin = margin_->value();
}

void TrimRuleBox::Write(const CropSettings& s) {
    on_->setChecked(s.trim.on);
    SetTextFieldDouble(*tolerance_, s.trim.tolerance);
    const QSignalBlocker quiet(margin_);
    margin_->setValue(s.trim.margin);
    SettleFields();
}

}  // namespace vellumo
