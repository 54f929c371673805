#include "ui/dialogs/CropQuestions.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "batch/OutputFolder.h"

namespace vellumo {

namespace {

// Clashes named in the warning's own text; the rest are in its details.
constexpr std::size_t kClashesNamed = 5;

QString PathText(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

QString Latin1(const char* text) {
    return QString::fromLatin1(text);
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
    return {PathText(CreateFolderQuestion(folder)),
            MessageBoxStyle::Warning,
            {Latin1(kCreateFolder), Latin1(kCancel)}};
}

MessageBoxRequest ReplaceOriginalsRequest(std::size_t imageCount) {
    const QString images = imageCount == 1 ? QStringLiteral("the listed image")
                                           : QStringLiteral("the %1 listed images").arg(imageCount);
    return {QStringLiteral("Replace the original files of %1 by their crops? The originals "
                           "cannot be restored.")
                .arg(images),
            MessageBoxStyle::Warning,
            {Latin1(kReplaceOriginals), Latin1(kCancel)}};
}

MessageBoxRequest UncroppedCopiesRequest() {
    return {Latin1(kUncroppedQuestion),
            MessageBoxStyle::Warning,
            {Latin1(kWriteUncroppedCopies), Latin1(kCancel)}};
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
        named << QStringLiteral("… and %1 more").arg(clashes.size() - kClashesNamed);
    }
    MessageBoxRequest request;
    request.text = QStringLiteral("%1 images would be written to the same files, one over another:")
                       .arg(images);
    request.informativeText = named.join(QLatin1Char('\n'));
    request.details = all.join(QLatin1Char('\n'));
    request.buttons = {Latin1(kNumberTheClashingFiles), Latin1(kCancel)};
    return request;
}

}  // namespace vellumo
