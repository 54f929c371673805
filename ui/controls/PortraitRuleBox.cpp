#include "ui/controls/PortraitRuleBox.h"

#include <QLineEdit>
#include <algorithm>

#include "ui/controls/TextFieldNumber.h"

namespace vellumo {

namespace {

// The shares a profile may hold, in percent of the output's height.
constexpr float kSmallestShare = 1.0f;
constexpr float kLargestShare = 99.0f;

float ShareOf(const QLineEdit& field, float fallback) {
    bool ok = false;
    const float value = field.text().toFloat(&ok);
    return ok ? std::clamp(value, kSmallestShare, kLargestShare) : fallback;
}

}  // namespace

PortraitRuleBox::PortraitRuleBox(QWidget* parent)
    : SwitchedFields(tr("Head and shoulders"), QStringLiteral("checkHeadAndShoulders"),
                     tr("A portrait of the largest face in each image, of the chosen ratio"), 24,
                     parent),
      faceHeight_(NumberField("textFieldFaceHeight", tr("Face height"))),
      eyeLine_(NumberField("textFieldEyeLine", tr("Eye line"))) {
    faceHeight_->setToolTip(tr("The face's height, in percent of the output's height"));
    eyeLine_->setToolTip(tr("Where the eyes lie, in percent of the output's height from its top"));
    AddField(tr("Face height:"), faceHeight_, QStringLiteral("%"));
    AddField(tr("Eye line:"), eyeLine_, QStringLiteral("%"));
    Write(CropSettings{});
}

void PortraitRuleBox::Read(CropSettings& s) const {
    if (!IsOn()) {
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
    SetTextFieldFloat(*faceHeight_, shares.faceHeight);
    SetTextFieldFloat(*eyeLine_, shares.eyeLine);
    SetOn(s.portraitOfFace.has_value());
}

}  // namespace vellumo
