#include "ui/controls/ResizeRuleBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

namespace vellumo {

namespace {

// Titles by ResizeMode.
const char* const kModeTitles[] = {QT_TRANSLATE_NOOP("vellumo::ResizeRuleBox", "None"),
                                   QT_TRANSLATE_NOOP("vellumo::ResizeRuleBox", "To width"),
                                   QT_TRANSLATE_NOOP("vellumo::ResizeRuleBox", "To height"),
                                   QT_TRANSLATE_NOOP("vellumo::ResizeRuleBox", "To fit within"),
                                   QT_TRANSLATE_NOOP("vellumo::ResizeRuleBox", "To exactly")};

QSpinBox* Side(QWidget* parent, const char* name, int start) {
    auto* side = new QSpinBox(parent);
    side->setObjectName(QString::fromLatin1(name));
    side->setRange(1, kLargestResizeSide);
    side->setValue(start);
    side->setSuffix(QStringLiteral(" px"));
    side->setKeyboardTracking(false);
    return side;
}

}  // namespace

ResizeRuleBox::ResizeRuleBox(QWidget* parent)
    : QWidget(parent),
      mode_(new QComboBox(this)),
      width_(Side(this, "spinResizeWidth", 1920)),
      height_(Side(this, "spinResizeHeight", 1080)),
      enlarge_(new QCheckBox(tr("Allow enlarging"), this)) {
    mode_->setObjectName(QStringLiteral("comboResize"));
    for (const char* title : kModeTitles) {
        mode_->addItem(tr(title));
    }
    mode_->setToolTip(
        tr("\"To exactly\" crops to the ratio width:height first, so nothing is "
           "distorted"));
    mode_->setAccessibleName(tr("Resize after cropping"));
    // Tab comes to the box at its first control (the window's tab order
    // names the box).
    setFocusProxy(mode_);
    width_->setAccessibleName(tr("Resize width"));
    height_->setAccessibleName(tr("Resize height"));
    enlarge_->setObjectName(QStringLiteral("checkAllowEnlarging"));
    enlarge_->setToolTip(tr("Without it, a crop smaller than the size keeps its own size"));

    auto* sides = new QHBoxLayout;
    sides->addWidget(width_);
    sides->addWidget(new QLabel(QStringLiteral("\u00d7"), this));
    sides->addWidget(height_);
    sides->addStretch(1);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mode_, 0, 0);
    layout->addLayout(sides, 1, 0);
    layout->addWidget(enlarge_, 2, 0);

    // Never squeezed below its controls' heights: the tab scrolls instead.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    SettleSides();
    connect(mode_, &QComboBox::activated, this, [this] {
        SettleSides();
        Q_EMIT changed();
    });
    connect(width_, &QSpinBox::valueChanged, this, &ResizeRuleBox::changed);
    connect(height_, &QSpinBox::valueChanged, this, &ResizeRuleBox::changed);
    connect(enlarge_, &QCheckBox::clicked, this, &ResizeRuleBox::changed);
}

void ResizeRuleBox::SettleSides() {
    const auto mode = static_cast<ResizeMode>(mode_->currentIndex());
    width_->setEnabled(mode != ResizeMode::None && mode != ResizeMode::Height);
    height_->setEnabled(mode != ResizeMode::None && mode != ResizeMode::Width);
    enlarge_->setEnabled(mode != ResizeMode::None);
}

void ResizeRuleBox::Read(CropSettings& s) const {
    s.resize.mode = static_cast<ResizeMode>(std::max(0, mode_->currentIndex()));
    s.resize.width = s.resize.mode == ResizeMode::Height ? 0 : width_->value();
    s.resize.height = s.resize.mode == ResizeMode::Width ? 0 : height_->value();
    if (s.resize.mode == ResizeMode::None) {
        s.resize.width = 0;
        s.resize.height = 0;
    }
    s.resize.enlarge = enlarge_->isChecked();
}

void ResizeRuleBox::Write(const CropSettings& s) {
    mode_->setCurrentIndex(static_cast<int>(s.resize.mode));
    if (s.resize.width > 0) {
        width_->setValue(s.resize.width);
    }
    if (s.resize.height > 0) {
        height_->setValue(s.resize.height);
    }
    enlarge_->setChecked(s.resize.enlarge);
    SettleSides();
}

}  // namespace vellumo
