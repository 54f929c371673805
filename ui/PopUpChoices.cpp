#include "ui/PopUpChoices.h"

#include <string_view>

#include "batch/CropSettings.h"
#include "imaging/Formats.h"

namespace vellumo {

namespace {

template <std::size_t N>
QStringList Titles(const std::array<std::string_view, N>& titles) {
    QStringList list;
    for (const std::string_view title : titles) {
        list << QString::fromLatin1(title.data(), static_cast<qsizetype>(title.size()));
    }
    return list;
}

}  // namespace

QStringList AutoCropFormatTitles() {
    return Titles(kAutoCropFormatTitles);
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
