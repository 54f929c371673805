#include "ui/controls/TrimRuleBox.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>

#include "imaging/Trim.h"
#include "ui/controls/DecimalField.h"

namespace vellumo {

TrimRuleBox::TrimRuleBox(QWidget* parent)
    : SwitchedFields(
          tr("Trim uniform borders"), QStringLiteral("checkTrim"),
          tr("Cut away borders of the corners' colour first; the crop is made within what is left"),
          0, parent),
      tolerance_(NumberField("textFieldTrimTolerance", tr("Trim tolerance"))),
      margin_(new QSpinBox(this)) {
    tolerance_->setToolTip(
        tr("How far a colour may be from the border's and still be cut, "
           "in percent of the full range (0 to 100)"));
    margin_->setObjectName(QStringLiteral("spinTrimMargin"));
    margin_->setAccessibleName(tr("Trim margin"));
    margin_->setToolTip(tr("Pixels of the border kept on each side"));
    margin_->setRange(0, kLargestTrimMargin);
    AddField(tr("Tolerance:"), tolerance_, QStringLiteral("%"));
    AddField(tr("Margin:"), margin_, QStringLiteral("px"));
    Write(CropSettings{});
}

void TrimRuleBox::Read(CropSettings& s) const {
    s.trim.on = IsOn();
    // A field emptied while typing trims only the corners' exact colour.
    s.trim.tolerance =
        std::clamp(TextFieldDoubleValue(*tolerance_, 0.0), 0.0, kLargestTrimTolerance);
    s.trim.margin = margin_->value();
}

void TrimRuleBox::Write(const CropSettings& s) {
    SetTextFieldDouble(*tolerance_, s.trim.tolerance);
    const QSignalBlocker quiet(margin_);
    margin_->setValue(s.trim.margin);
    SetOn(s.trim.on);
}

}  // namespace vellumo
