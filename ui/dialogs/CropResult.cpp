#include "ui/dialogs/CropResult.h"

#include <QFile>
#include <QStringList>

#include "ui/EngineText.h"
#include "ui/dialogs/ReportText.h"

namespace vellumo {

namespace {

QString ImageFailureText(const ImageOutcome& outcome) {
    return outcome.failure ? FailureText(*outcome.failure) : QString();
}

QString Translated(const char* text) {
    return QCoreApplication::translate("CropResult", text);
}

QString PathText(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

}  // namespace

QString CropResultText(const char* text) {
    return Translated(text);
}

MessageBoxRequest CropResultRequest(const JobReport& report) {
    MessageBoxRequest request;
    if (report.stopped) {
        request.text = StoppedSentenceText(report);
        request.style = MessageBoxStyle::Warning;
    } else if (report.allSucceeded) {
        request.text = Translated(kImagesCroppedSuccessfully);
        request.style = MessageBoxStyle::Informational;
    } else {
        request.text = Translated(kSomeImagesNotCropped);
        request.style = MessageBoxStyle::Warning;
    }
    request.informativeText = JobCountsText(report);
    request.buttons = {Translated(kShowInFolder), QCoreApplication::translate("MessageBox", "OK")};
    request.defaultButton = 1;

    QStringList lines;
    for (const ImageReport& image : report.images) {
        switch (image.outcome.status) {
            case ImageStatus::Failed:
                lines << QCoreApplication::translate("CropResult", "Not cropped: %1 (%2)")
                             .arg(PathText(image.source), ImageFailureText(image.outcome));
                break;
            case ImageStatus::Skipped:
                lines << QCoreApplication::translate("CropResult",
                                                     "Skipped: %1 (%2 already exists and was kept)")
                             .arg(PathText(image.source), PathText(image.output));
                break;
            case ImageStatus::Written:
            case ImageStatus::Planned:
                for (const ImageNote& note : image.outcome.notes) {
                    if (note.kind == NoteKind::MetadataNotCarried) {
                        lines << QCoreApplication::translate("CropResult",
                                                             "Metadata not kept: %1 (%2)")
                                     .arg(PathText(image.source),
                                          QString::fromStdString(note.detail));
                    }
                }
                if (!image.outcome.warnings.empty()) {
                    lines << QCoreApplication::translate("CropResult", "Warning: %1 (%2)")
                                 .arg(PathText(image.source), EngineText(image.outcome.warnings));
                }
                break;
        }
    }
    request.details = lines.join(QLatin1Char('\n'));
    return request;
}

}  // namespace vellumo
