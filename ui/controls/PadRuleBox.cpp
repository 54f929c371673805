#include "ui/controls/PadRuleBox.h"

#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QStandardItemModel>

#include "imaging/Padding.h"
#include "ui/controls/DecimalField.h"
#include "ui/controls/FlowLayout.h"

namespace vellumo {

namespace {

// The fills in the order of PadBackground.
constexpr const char* kFills[] = {
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Colour"),
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Edge"),
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Blur"),
    QT_TRANSLATE_NOOP("vellumo::PadRuleBox", "Transparent"),
};

QString ColourName(RgbColour colour) {
    return QString::fromStdString(ColourText(colour));
}

}  // namespace

PadRuleBox::PadRuleBox(QWidget* parent)
    : SwitchedFields(tr("Pad to ratio"), QStringLiteral("checkPad"),
                     tr("Place the whole image, or what the trim leaves, on a canvas of this "
                        "ratio instead of cutting it: the crop modes are turned off"),
                     0, parent),
      ratioWidth_(NumberField("textFieldPadRatioWidth", tr("Pad ratio width"))),
      ratioHeight_(NumberField("textFieldPadRatioHeight", tr("Pad ratio height"))),
      background_(new QComboBox(this)),
      colour_(new QLineEdit(this)),
      chooseColour_(new QPushButton(tr("Choose…"), this)) {
    AddField(QString(), ratioWidth_, QStringLiteral(":"));
    AddField(QString(), ratioHeight_, QString());
    AddLine(FillLine());
    Write(CropSettings{});
    const auto settles = [this] {
        SettleFields();
        Q_EMIT changed();
    };
    connect(background_, &QComboBox::activated, this, settles);
    connect(colour_, &QLineEdit::textEdited, this, settles);
    connect(chooseColour_, &QPushButton::clicked, this, &PadRuleBox::OnChooseColour);
}

QLayout* PadRuleBox::FillLine() {
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
    AddSwitched(background_);

    // The colour and its button go under the background's list where the
    // line is narrower than the three.
    FlowLayout* line = WrappingLine();
    line->setContentsMargins(24, 0, 0, 0);
    line->addWidget(Group({new QLabel(tr("Background:"), this), background_}));
    line->addWidget(Group({colour_, chooseColour_}));
    return line;
}

RgbColour PadRuleBox::Colour() const {
    return ColourNamed(colour_->text().trimmed().toStdString()).value_or(lastColour_);
}

void PadRuleBox::SettleFields() {
    SwitchedFields::SettleFields();
    const bool colour = background_->currentIndex() == static_cast<int>(PadBackground::Colour);
    colour_->setEnabled(IsOn() && colour);
    chooseColour_->setEnabled(IsOn() && colour);
    const bool transparent =
        background_->currentIndex() == static_cast<int>(PadBackground::Transparent);
    background_->setToolTip(transparent ? noTransparency_ : QString());
    const RgbColour shown = Colour();
    QPixmap swatch(12, 12);
    swatch.fill(QColor(shown.red, shown.green, shown.blue));
    chooseColour_->setIcon(QIcon(swatch));
}

void PadRuleBox::SetTransparencyKept(bool kept, const QString& why) {
    noTransparency_ = kept ? QString() : why;
    // A QComboBox's own model: its items can be disabled one by one.
    auto* fills = qobject_cast<QStandardItemModel*>(background_->model());
    if (QStandardItem* item = fills != nullptr
                                  ? fills->item(static_cast<int>(PadBackground::Transparent))
                                  : nullptr) {
        item->setEnabled(kept);
        item->setToolTip(noTransparency_);
    }
    SettleFields();
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
    s.pad.on = IsOn();
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
    SetTextFieldDouble(*ratioWidth_, s.pad.ratio.width);
    SetTextFieldDouble(*ratioHeight_, s.pad.ratio.height);
    background_->setCurrentIndex(static_cast<int>(s.pad.background));
    lastColour_ = s.pad.colour;
    colour_->setText(ColourName(s.pad.colour));
    SetOn(s.pad.on);
}

}  // namespace vellumo
