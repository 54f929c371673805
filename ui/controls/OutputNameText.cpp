#include "ui/controls/OutputNameText.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include "batch/NameTemplate.h"
#include "imaging/Formats.h"

namespace vellumo {

QString OutputFileNameText(const CropSettings& settings, const NameExample& example) {
    if (example.path.isEmpty()) {
        return {};
    }
    if (settings.replaceOriginals) {
        return QFileInfo(example.path).fileName();
    }
    std::string problem;
    const std::optional<NameTemplate> name = NameTemplate::Parse(settings.nameTemplate, problem);
    if (!name) {
        return QString::fromStdString(problem);
    }
    NameValues values;
    values.source = QFile::encodeName(example.path).toStdString();
    values.index = example.index;
    values.outputSize = example.outputSize;
    std::string file = name->Expand(values, NameTemplate::Missing::KeptAsToken).name;
    file += '.';
    file += OutputFormatExtension(settings.outputFormat);
    return QFile::decodeName(QByteArray::fromStdString(file));
}

QString OutputNameLine(const CropSettings& settings, const NameExample& example) {
    if (example.path.isEmpty()) {
        return {};
    }
    std::string problem;
    if (!settings.replaceOriginals && !NameTemplate::Parse(settings.nameTemplate, problem)) {
        return QCoreApplication::translate("vellumo::OutputNameText", "Not a name: %1")
            .arg(QString::fromStdString(problem));
    }
    return QCoreApplication::translate("vellumo::OutputNameText", "Becomes: %1")
        .arg(OutputFileNameText(settings, example));
}

}  // namespace vellumo
