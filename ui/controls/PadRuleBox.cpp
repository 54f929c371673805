#include "ui/controls/PadRuleBox.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include "imaging/Padding.h"
#include "ui/controls/DecimalField.h"

namespace vellumo {

namespace {

// The fills in the order of PadBackground.
constexpr const char* kFills[] = {
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Colour"),
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Edge"),
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Blur"),
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Transparent"),
};

QLineEdit* RatioField(QWidget* parent, const char* name, const QString& accessibleName) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setAccessibleName(accessibleName);
    field->setValidator(UnsignedDecimals(field));
    field->setMaximumWidth(56);
    field->setAlignment(Qt::AlignRight);
    return field;
}

QString ColourName(RgbColour colour) {
    return QString::fromStdString(ColourText(colour));
}

}  // namespace

PadRuleBox::PadRuleBox(QWidget* parent)
    : QWidget(parent),
      on_(new QCheckBox(tr("Pad to ratio"), this)),
      ratioWidth_(RatioField(this, "textFieldPadRatioWidth", tr("Pad ratio width"))),
      ratioHeight_(RatioField(this, "textFieldPadRatioHeight", tr("Pad ratio height"))),
      background_(new QComboBox(this)),
      colour_(new QLineEdit(this)),
      chooseColour_(new QPushButton(tr("Choose…"), this)) {
    on_->setObjectName(QStringLiteral("checkPad"));
    on_->setToolTip(tr("Place the whole crop on a canvas of this ratio instead of cutting it"));
    background_->setObjectName(QStringLiteral("comboPadBackground"));
    background_->setAccessibleName(tr("Pad background"));
    for (const char* fill : kFills) {
        background_->addItem(tr(fill));
    }
    colour_->setObjectName(QStringLiteral("textFieldPadColour"));
    colour_->setAccessibleName(tr("Pad colour"));
    colour_->setToolTip(tr("A colour name (white, black, grey…) or #rrggbb"));
    colour_->setMaximumWidth(88);
    chooseColour_->setObjectName(QStringLiteral("buttonPadColour"));
    chooseColour_->setAccessibleName(tr("Choose pad colour"));

    auto* ratioRow = new QHBoxLayout;
    ratioRow->addWidget(on_);
    ratioRow->addWidget(ratioWidth_);
    ratioRow->addWidget(new QLabel(QStringLiteral(":"), this));
    ratioRow->addWidget(ratioHeight_);
    ratioRow->addStretch(1);
    auto* fillRow = new QHBoxLayout;
    fillRow->setContentsMargins(24, 0, 0, 0);
    fillRow->addWidget(new QLabel(tr("Background:"), this));
    fillRow->addWidget(background_);
    fillRow->addWidget(colour_);
    fillRow->addWidget(chooseColour_);
    fillRow->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(ratioRow);
    layout->addLayout(fillRow);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    Write(CropSettings{});
    const auto settles = [this] {
        SettleFields();
        Q_EMIT changed();
    };
    connect(on_, &QCheckBox::clicked, this, settles);
    connect(background_, &QComboBox::activated, this, settles);
    connect(ratioWidth_, &QLineEdit::textEdited, this, &PadRuleBox::changed);
    connect(ratioHeight_, &QLineEdit::textEdited, this, &PadRuleBox::changed);
    connect(colour_, &QLineEdit::textEdited, this, settles);
    connect(chooseColour_, &QPushButton::clicked, this, &PadRuleBox::OnChooseColour);
}

RgbColour PadRuleBox::Colour() const {
    return ColourNamed(colour_->text().trimmed().toStdString()).value_or(lastColour_);
}

void PadRuleBox::SettleFields() {
    const bool on = on_->isChecked();
    const bool colour = background_->currentIndex() == static_cast<int>(PadBackground::Colour);
    for (QWidget* control :
         {static_cast<QWidget*>(ratioWidth_), static_cast<QWidget*>(ratioHeight_),
          static_cast<QWidget*>(background_)}) {
        control->setEnabled(on);
    }
    colour_->setEnabled(on && colour);
    chooseColour_->setEnabled(on && colour);
    const RgbColour shown = Colour();
    QPixmap swatch(12, 12);
    swatch.fill(QColor(shown.red, shown.green, shown.blue));
    chooseColour_->setIcon(QIcon(swatch));
}

void PadRuleBox::OnChooseColour() {
    const RgbColour now = Colour();
    const QColor chosen =
        QColorDialog::getColor(QColor(now.red, now.green, now.blue), this, tr("Pad colour"));
    // A cancelled dialog gives no colour and changes nothing.
    if (!chosen.isValid()) {
        return;
    }
    lastColour_ = RgbColour{static_cast<std::uint8_t>(chosen.red()),
                            static_cast<std::uint8_t>(chosen.green()),
                            static_cast<std::uint8_t>(chosen.blue())};
    colour_->setText(ColourName(lastColour_));
    SettleFields();
    Q_EMIT changed();
}

void PadRuleBox::Read(CropSettings& s) const {
    s.pad.on = on_->isChecked();
    // A side emptied while typing, or out of bounds, is the usual side.
    const auto side = [](const QLineEdit& field, double usual) {
        const double value = TextFieldDoubleValue(field, usual);
        return value >= kSmallestRatioSide && value <= kLargestRatioSide ? value : usual;
    };
    s.pad.ratio = {side(*ratioWidth_, s.pad.ratio.width), side(*ratioHeight_, s.pad.ratio.height)};
    const int fill = background_->currentIndex();
    s.pad.background = fill < 0 ? PadBackground::Colour : static_cast<PadBackground>(fill);
    s.pad.colour = Colour();
}

void PadRuleBox::Write(const CropSettings& s) {
    on_->setChecked(s.pad.on);
    SetTextFieldDouble(*ratioWidth_, s.pad.ratio.width);
    SetTextFieldDouble(*ratioHeight_, s.pad.ratio.height);
    background_->setCurrentIndex(static_cast<int>(s.pad.background));
    lastColour_ = s.pad.colour;
    colour_->setText(ColourName(s.pad.colour));
    SettleFields();
}

}  // namespace vellumo
