#include "ui/CropResult.h"

#include <QFile>
#include <QStringList>

namespace vellumo {

namespace {

QString PathText(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

}  // namespace

MessageBoxRequest CropResultRequest(const JobReport& report) {
    MessageBoxRequest request;
    if (report.allSucceeded) {
        request.text = QString::fromLatin1(kImagesCroppedSuccessfully);
        request.style = MessageBoxStyle::Informational;
    } else {
        request.text = QString::fromLatin1(kSomeImagesNotCropped);
        request.style = MessageBoxStyle::Warning;
    }
    request.buttons = {QStringLiteral("OK")};

    QStringList lines;
    for (const ImageReport& image : report.images) {
        switch (image.outcome.status) {
            case ImageStatus::Failed:
                lines << QStringLiteral("Not cropped: %1 (%2)")
                             .arg(PathText(image.source),
                                  QString::fromStdString(image.outcome.reason));
                break;
            case ImageStatus::Skipped:
                lines << QStringLiteral("Skipped: %1 (%2 already exists and was kept)")
                             .arg(PathText(image.source), PathText(image.output));
                break;
            case ImageStatus::Written:
            case ImageStatus::Planned:
                break;
        }
    }
    request.details = lines.join(QLatin1Char('\n'));
    return request;
}

}  // namespace vellumo
