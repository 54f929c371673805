#include "ui/controls/PopUpChoices.h"

#include <QCoreApplication>
#include <string_view>

#include "batch/CropSettings.h"
#include "imaging/Formats.h"

namespace vellumo {

QStringList AutoCropFormatTitles() {
    QStringList list;
    for (const AutoCropRatio& entry : kAutoCropRatios) {
        list << QString::fromLatin1(entry.title.data(), static_cast<qsizetype>(entry.title.size()));
    }
    // The batch library's title of the last entry, in the window's language.
    list << QCoreApplication::translate("PopUpChoices", "Custom…");
    static_assert(kCustomRatioTitle == "Custom…");
    return list;
}

QStringList OutputFormatTitles() {
    QStringList list;
    for (const OutputFormatInfo& format : kOutputFormats) {
        list << QString::fromLatin1(format.title.data(),
                                    static_cast<qsizetype>(format.title.size()));
    }
    return list;
}

}  // namespace vellumo
