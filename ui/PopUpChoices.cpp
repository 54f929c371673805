#include "ui/PopUpChoices.h"

namespace vellumo {

QStringList AutoCropFormatTitles() {
    return {"1:1", "4:3", "3:2", "16:9"};
}

QStringList OutputFormatTitles() {
    return {"JPG", "JPEG", "JPE", "JP2", "JPX", "PNG", "TIFF", "TIF", "GIF", "BMP"};
}

bool OutputFormatTakesQuality(int index) {
    return index >= 0 && index <= 4;
}

}  // namespace vellumo
