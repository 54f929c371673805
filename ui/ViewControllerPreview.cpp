// The preview and the four dimension labels.

#include <QLabel>

#include "ui/DimensionText.h"
#include "ui/ViewController.h"

namespace vellumo {

void ViewController::UpdateImageSize() {
    const double width = currentImage_.Width();
    const double height = currentImage_.Height();
    if (!(width > 0.0) || !(height > 0.0)) {
        labelOriginalDimensionsWidth->setText(DimensionText(kWidthCaption, 0));
        labelOriginalDimensionsHeight->setText(DimensionText(kHeightCaption, 0));
        labelOutputDimensionsWidth->setText(DimensionText(kWidthCaption, 0));
        labelOutputDimensionsHeight->setText(DimensionText(kHeightCaption, 0));
        return;
    }
    labelOriginalDimensionsWidth->setText(DimensionText(kWidthCaption, width));
    labelOriginalDimensionsHeight->setText(DimensionText(kHeightCaption, height));
    // The output labels depend on the crop mode and its fields; they are
    // filled here, from the crop rule, once the crop controls are wired.
}

}  // namespace vellumo
