#include "ui/dialogs/CropQuestions.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "batch/OutputFolder.h"
#include "ui/WindowLocale.h"

namespace vellumo {

namespace {

// Clashes named in the warning's own text; the rest are in its details.
constexpr std::size_t kClashesNamed = 5;

QString PathText(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

// The button titles and questions above, in the window's language.
QString Translated(const char* text) {
    return QCoreApplication::translate("CropQuestions", text);
}

// "out/x.jpg: a/x.jpg, b/x.jpg"
QString ClashLine(const OutputClash& clash, const std::vector<std::string>& list) {
    QStringList sources;
    for (const long index : clash.images) {
        sources << PathText(list.at(static_cast<std::size_t>(index)));
    }
    return PathText(clash.path) + QStringLiteral(": ") + sources.join(QStringLiteral(", "));
}

}  // namespace

MessageBoxRequest CreateFolderRequest(const std::string& folder) {
    return {QCoreApplication::translate("CropQuestions", "The folder %1 does not exist. Create it?")
                .arg(PathText(folder)),
            MessageBoxStyle::Warning,
            {Translated(kCreateFolder), Translated(kCancel)}};
}

MessageBoxRequest ReplaceOriginalsRequest(std::size_t imageCount) {
    const int count = static_cast<int>(imageCount);
    return {count == 1 ? QCoreApplication::translate(
                             "CropQuestions",
                             "Replace the original files of the listed image by their crops? "
                             "The originals cannot be restored.")
                       : QCoreApplication::translate(
                             "CropQuestions",
                             "Replace the original files of the %L1 listed images by their crops? "
                             "The originals cannot be restored.",
                             nullptr, count)
                             .arg(WindowNumber(count)),
            MessageBoxStyle::Warning,
            {Translated(kReplaceOriginals), Translated(kCancel)}};
}

MessageBoxRequest UncroppedCopiesRequest() {
    return {Translated(kUncroppedQuestion),
            MessageBoxStyle::Warning,
            {Translated(kWriteUncroppedCopies), Translated(kCancel)}};
}

MessageBoxRequest ClashWarningRequest(const std::vector<OutputClash>& clashes,
                                      const std::vector<std::string>& list) {
    std::size_t images = 0;
    QStringList named;
    QStringList all;
    for (const OutputClash& clash : clashes) {
        images += clash.images.size();
        all << ClashLine(clash, list);
        if (static_cast<std::size_t>(named.size()) < kClashesNamed) {
            named << all.back();
        }
    }
    if (clashes.size() > kClashesNamed) {
        const int more = static_cast<int>(clashes.size() - kClashesNamed);
        named << QCoreApplication::translate("CropQuestions", "… and %L1 more", nullptr, more)
                     .arg(WindowNumber(more));
    }
    MessageBoxRequest request;
    const int clashing = static_cast<int>(images);
    request.text =
        QCoreApplication::translate(
            "CropQuestions",
            "%L1 images would be written to the same files, one over another:", nullptr, clashing)
            .arg(WindowNumber(clashing));
    request.informativeText = named.join(QLatin1Char('\n'));
    request.details = all.join(QLatin1Char('\n'));
    request.buttons = {Translated(kNumberTheClashingFiles), Translated(kCancel)};
    return request;
}

}  // namespace vellumo
