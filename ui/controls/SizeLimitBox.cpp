#include "ui/controls/SizeLimitBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <array>

#include "imaging/Formats.h"
#include "imaging/OutputCodec.h"

namespace vellumo {

namespace {

// The units of the pop-up list, in its order; K and M are decimal, as the
// command line's --max-bytes reads them.
struct Unit {
    const char* title;
    std::uint64_t bytes;
};
constexpr std::array<Unit, 3> kUnits = {{
    {QT_TRANSLATE_NOOP("vellumo::SizeLimitBox", "bytes"), 1},
    {QT_TRANSLATE_NOOP("vellumo::SizeLimitBox", "KB"), 1000},
    {QT_TRANSLATE_NOOP("vellumo::SizeLimitBox", "MB"), 1000000},
}};
constexpr int kKilobytes = 1;
// Twelve digits: up to a terabyte in bytes, well inside 64 bits in any unit.
constexpr int kLongestAmount = 12;

}  // namespace

bool ByteLimitFits(OutputFormat format) {
    switch (InfoOf(format).codec) {
        case OutputCodec::Jpeg:
        case OutputCodec::WebP:
        case OutputCodec::Avif:
        case OutputCodec::Heic:
        case OutputCodec::JpegXl:
            return true;
        default:
            return false;
    }
}

SizeLimitBox::SizeLimitBox(QWidget* parent)
    : QWidget(parent),
      amount_(new QLineEdit(this)),
      unit_(new QComboBox(this)),
      scaleDown_(new QCheckBox(tr("Scale down to fit"), this)) {
    amount_->setObjectName(QStringLiteral("textFieldMaxSize"));
    amount_->setAccessibleName(tr("Largest file size"));
    amount_->setPlaceholderText(tr("any size"));
    amount_->setToolTip(
        tr("Each file is written at the highest quality, up to the slider's, that keeps it "
           "within this size"));
    // Whole numbers from 1 on; empty is no limit.
    amount_->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[1-9][0-9]{0,%1}").arg(kLongestAmount - 1)), amount_));
    amount_->setMaximumWidth(120);
    unit_->setObjectName(QStringLiteral("comboMaxSizeUnit"));
    unit_->setAccessibleName(tr("Size unit"));
    for (const Unit& unit : kUnits) {
        unit_->addItem(tr(unit.title));
    }
    unit_->setCurrentIndex(kKilobytes);
    scaleDown_->setObjectName(QStringLiteral("checkScaleDownToFit"));
    scaleDown_->setToolTip(
        tr("When even the lowest quality is too large, the picture is made smaller until it "
           "fits"));
    setFocusProxy(amount_);

    auto* amountRow = new QHBoxLayout;
    amountRow->addWidget(amount_);
    amountRow->addWidget(unit_);
    amountRow->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(amountRow);
    layout->addWidget(scaleDown_);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    SettleScaleDown();

    connect(amount_, &QLineEdit::textEdited, this, [this] {
        SettleScaleDown();
        Q_EMIT changed();
    });
    connect(unit_, &QComboBox::activated, this, &SizeLimitBox::changed);
    connect(scaleDown_, &QCheckBox::clicked, this, &SizeLimitBox::changed);
}

void SizeLimitBox::SettleScaleDown() {
    scaleDown_->setEnabled(!amount_->text().isEmpty());
}

void SizeLimitBox::Read(CropSettings& s) const {
    const std::uint64_t amount = amount_->text().toULongLong();
    const int unit = unit_->currentIndex();
    const std::uint64_t factor =
        unit >= 0 && unit < static_cast<int>(kUnits.size()) ? kUnits[unit].bytes : 1;
    s.byteLimit.maxBytes = amount * factor;
    s.byteLimit.scaleDown = scaleDown_->isChecked();
}

void SizeLimitBox::Write(const CropSettings& s) {
    const std::uint64_t bytes = s.byteLimit.maxBytes;
    // The largest unit that shows the limit exactly.
    int unit = kKilobytes;
    if (bytes > 0) {
        unit = 0;
        for (int i = 0; i < static_cast<int>(kUnits.size()); ++i) {
            if (bytes % kUnits[i].bytes == 0) {
                unit = i;
            }
        }
    }
    unit_->setCurrentIndex(unit);
    amount_->setText(bytes == 0 ? QString() : QString::number(bytes / kUnits[unit].bytes));
    scaleDown_->setChecked(s.byteLimit.scaleDown);
    SettleScaleDown();
}

}  // namespace vellumo
