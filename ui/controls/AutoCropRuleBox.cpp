#include "ui/controls/AutoCropRuleBox.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/controls/FlowLayout.h"
#include "ui/controls/TextFieldNumber.h"

namespace vellumo {

namespace {

// A positive decimal: a zero, a sign or anything but digits and one point
// cannot be typed.
QValidator* PositiveDecimals(QObject* parent) {
    return new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral(R"(^(?=.*[1-9])\d{1,6}(\.\d{0,4})?$)")), parent);
}

struct AnchorButton {
    CropAnchor anchor;
    const char* objectName;
    const char* glyph;  // an arrow pointing where the rectangle goes
    const char* tip;
    int row, column;
};

constexpr AnchorButton kGrid[] = {
    {CropAnchor::TopLeft, "anchorTopLeft", "\u2196",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Top left"), 0, 0},
    {CropAnchor::Top, "anchorTop", "\u2191", QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Top"),
     0, 1},
    {CropAnchor::TopRight, "anchorTopRight", "\u2197",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Top right"), 0, 2},
    {CropAnchor::Left, "anchorLeft", "\u2190",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Left"), 1, 0},
    {CropAnchor::Centre, "anchorCentre", "\u2022",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Centre"), 1, 1},
    {CropAnchor::Right, "anchorRight", "\u2192",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Right"), 1, 2},
    {CropAnchor::BottomLeft, "anchorBottomLeft", "\u2199",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Bottom left"), 2, 0},
    {CropAnchor::Bottom, "anchorBottom", "\u2193",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Bottom"), 2, 1},
    {CropAnchor::BottomRight, "anchorBottomRight", "\u2198",
     QT_TRANSLATE_NOOP("vellumo::AutoCropRuleBox", "Bottom right"), 2, 2},
};

QToolButton* Checkable(QWidget* parent, const char* name, const QString& text, const QString& tip) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleDescription(tip);
    button->setCheckable(true);
    return button;
}

}  // namespace

// The 3 x 3 picker beside the ratio's settings, the smart placements under
// them: the whole box is no taller than the picker.
QWidget* AutoCropRuleBox::AnchorGrid() {
    auto* holder = new QWidget(this);
    auto* grid = new QGridLayout(holder);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    for (const AnchorButton& a : kGrid) {
        QToolButton* button =
            Checkable(holder, a.objectName, QString::fromUtf8(a.glyph), tr(a.tip));
        // A screen reader says the place ("Top left"), not the arrow drawn.
        button->setAccessibleName(tr(a.tip));
        // A little wider than tall, and never narrower than its arrow needs
        // when a narrow window squeezes the settings.
        const QSize hint = button->sizeHint();
        button->setMinimumWidth(std::max(hint.width(), hint.height() + 4));
        anchors_->addButton(button, static_cast<int>(a.anchor));
        grid->addWidget(button, a.row, a.column);
    }
    return holder;
}

AutoCropRuleBox::AutoCropRuleBox(QWidget* parent)
    : QWidget(parent),
      ratioWidth_(new QLineEdit(this)),
      ratioHeight_(new QLineEdit(this)),
      matchOrientation_(new QCheckBox(tr("Match each image's orientation"), this)),
      anchors_(new QButtonGroup(this)) {
    ratioWidth_->setObjectName(QStringLiteral("textFieldRatioWidth"));
    ratioHeight_->setObjectName(QStringLiteral("textFieldRatioHeight"));
    ratioWidth_->setAccessibleName(tr("Custom ratio width"));
    ratioHeight_->setAccessibleName(tr("Custom ratio height"));
    matchOrientation_->setObjectName(QStringLiteral("checkMatchOrientation"));
    matchOrientation_->setToolTip(
        tr("Turn the rectangle so that its longer side follows each image's longer side"));
    for (QLineEdit* field : {ratioWidth_, ratioHeight_}) {
        field->setValidator(PositiveDecimals(field));
        field->setMaximumWidth(64);
        field->setAlignment(Qt::AlignRight);
    }

    auto* ratioRow = new QHBoxLayout;
    ratioRow->addWidget(new QLabel(tr("Custom ratio:"), this));
    ratioRow->addWidget(ratioWidth_);
    ratioRow->addWidget(new QLabel(QStringLiteral(":"), this));
    ratioRow->addWidget(ratioHeight_);
    ratioRow->addStretch(1);

    QWidget* gridHolder = AnchorGrid();
    QToolButton* attention = Checkable(this, "anchorAttention", tr("Attention"),
                                       tr("Where the eye goes: skin, saturated colour, edges"));
    QToolButton* entropy =
        Checkable(this, "anchorEntropy", tr("Entropy"), tr("The busiest part of the picture"));
    QToolButton* faces =
        Checkable(this, "anchorFaces", tr("Faces"), tr("As many faces as fit, kept whole"));
    anchors_->addButton(attention, static_cast<int>(CropAnchor::Attention));
    anchors_->addButton(entropy, static_cast<int>(CropAnchor::Entropy));
    anchors_->addButton(faces, static_cast<int>(CropAnchor::Faces));
    anchors_->setExclusive(true);
    auto* smartRow = new QHBoxLayout;
    smartRow->addWidget(new QLabel(tr("Position:"), this));
    smartRow->addWidget(attention);
    smartRow->addWidget(entropy);
    smartRow->addWidget(faces);
    smartRow->addStretch(1);

    auto* settingsHolder = new QWidget(this);
    auto* settings = new QVBoxLayout(settingsHolder);
    settings->setContentsMargins(0, 0, 0, 0);
    settings->setSpacing(2);
    settings->addLayout(ratioRow);
    settings->addWidget(matchOrientation_);
    settings->addLayout(smartRow);

    // The picker goes under the settings where the tab is too narrow for
    // both side by side.
    auto* layout = new FlowLayout;
    setLayout(layout);
    layout->setContentsMargins(24, 0, 0, 0);
    layout->setSpacing(8);
    layout->setRowSpacing(4);
    layout->addWidget(settingsHolder);
    layout->addWidget(gridHolder);

    // As tall as its lines at the width it is given (a fixed policy would
    // cap it at one line where the picker has wrapped under the settings).
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    Write(CropSettings{});
    connect(ratioWidth_, &QLineEdit::textEdited, this, &AutoCropRuleBox::changed);
    connect(ratioHeight_, &QLineEdit::textEdited, this, &AutoCropRuleBox::changed);
    connect(matchOrientation_, &QCheckBox::clicked, this, &AutoCropRuleBox::changed);
    connect(anchors_, &QButtonGroup::idClicked, this, &AutoCropRuleBox::changed);
}

void AutoCropRuleBox::SetCustomRatioChosen(bool chosen) {
    ratioWidth_->setEnabled(chosen);
    ratioHeight_->setEnabled(chosen);
}

void AutoCropRuleBox::Read(CropSettings& s) const {
    // A field left empty while typing keeps no ratio: the rule then has no
    // rectangle, as for any ratio it cannot use.
    s.customRatio = {ratioWidth_->text().toDouble(), ratioHeight_->text().toDouble()};
    s.matchOrientation = matchOrientation_->isChecked();
    const int id = anchors_->checkedId();
    s.anchor = id < 0 ? CropAnchor::Centre : static_cast<CropAnchor>(id);
}

void AutoCropRuleBox::Write(const CropSettings& s) {
    ratioWidth_->setText(QString::number(s.customRatio.width, 'g', 10));
    ratioHeight_->setText(QString::number(s.customRatio.height, 'g', 10));
    matchOrientation_->setChecked(s.matchOrientation);
    if (QAbstractButton* button = anchors_->button(static_cast<int>(s.anchor))) {
        button->setChecked(true);
    }
}

}  // namespace vellumo
