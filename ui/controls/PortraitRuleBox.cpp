#include "ui/controls/PortraitRuleBox.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/controls/DecimalField.h"
#include "ui/controls/TextFieldNumber.h"

namespace vellumo {

namespace {

// The shares a profile may hold, in percent of the output's height.
constexpr float kSmallestShare = 1.0f;
constexpr float kLargestShare = 99.0f;

QLineEdit* ShareField(QWidget* parent, const char* name, const QString& accessibleName) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setAccessibleName(accessibleName);
    field->setValidator(UnsignedDecimals(field));
    field->setMaximumWidth(56);
    field->setAlignment(Qt::AlignRight);
    return field;
}

float ShareOf(const QLineEdit& field, float fallback) {
    bool ok = false;
    const float value = field.text().toFloat(&ok);
    return ok ? std::clamp(value, kSmallestShare, kLargestShare) : fallback;
}

}  // namespace

PortraitRuleBox::PortraitRuleBox(QWidget* parent)
    : QWidget(parent),
      on_(new QCheckBox(tr("Head and shoulders"), this)),
      faceHeight_(ShareField(this, "textFieldFaceHeight", tr("Face height"))),
      eyeLine_(ShareField(this, "textFieldEyeLine", tr("Eye line"))) {
    on_->setObjectName(QStringLiteral("checkHeadAndShoulders"));
    on_->setToolTip(tr("A portrait of the largest face in each image, of the chosen ratio"));
    faceHeight_->setToolTip(tr("The face's height, in percent of the output's height"));
    eyeLine_->setToolTip(tr("Where the eyes lie, in percent of the output's height from its top"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(24, 0, 0, 0);
    layout->addWidget(on_);
    layout->addSpacing(8);
    layout->addWidget(new QLabel(tr("Face height:"), this));
    layout->addWidget(faceHeight_);
    layout->addWidget(new QLabel(QStringLiteral("%"), this));
    layout->addSpacing(8);
    layout->addWidget(new QLabel(tr("Eye line:"), this));
    layout->addWidget(eyeLine_);
    layout->addWidget(new QLabel(QStringLiteral("%"), this));
    layout->addStretch(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    Write(CropSettings{});
    connect(on_, &QCheckBox::clicked, this, [this] {
        SettleFields();
        Q_EMIT changed();
    });
    connect(faceHeight_, &QLineEdit::textEdited, this, &PortraitRuleBox::changed);
    connect(eyeLine_, &QLineEdit::textEdited, this, &PortraitRuleBox::changed);
}

void PortraitRuleBox::SettleFields() {
    faceHeight_->setEnabled(on_->isChecked());
    eyeLine_->setEnabled(on_->isChecked());
}

void PortraitRuleBox::Read(CropSettings& s) const {
    if (!on_->isChecked()) {
        s.portraitOfFace.reset();
        return;
    }
    // A field emptied while typing keeps the usual share.
    const HeadAndShoulders usual;
    s.portraitOfFace = HeadAndShoulders{ShareOf(*faceHeight_, usual.faceHeight),
                                        ShareOf(*eyeLine_, usual.eyeLine)};
}

void PortraitRuleBox::Write(const CropSettings& s) {
    const HeadAndShoulders shares = s.portraitOfFace.value_or(HeadAndShoulders{});
    on_->setChecked(s.portraitOfFace.has_value());
    SetTextFieldFloat(*faceHeight_, shares.faceHeight);
    SetTextFieldFloat(*eyeLine_, shares.eyeLine);
    SettleFields();
}

}  // namespace vellumo
