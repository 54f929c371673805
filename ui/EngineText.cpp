#include "ui/EngineText.h"

#include <QCoreApplication>
#include <QStringList>

namespace vellumo {

namespace {

QString StageText(FailureStage stage, const QString& cause) {
    switch (stage) {
        case FailureStage::Read:
            return cause;
        case FailureStage::Decode:
            return QCoreApplication::translate("Engine", "cannot decode: %1").arg(cause);
        case FailureStage::Crop:
            return QCoreApplication::translate("Engine", "cannot crop: %1").arg(cause);
        case FailureStage::Encode:
        case FailureStage::Write:
            return QCoreApplication::translate("Engine", "cannot write: %1").arg(cause);
        case FailureStage::Metadata:
            return QCoreApplication::translate("Engine", "cannot carry metadata: %1").arg(cause);
    }
    return cause;
}

}  // namespace

QString EngineText(const Sentence& sentence) {
    if (sentence.empty()) {
        return {};
    }
    // Filled in one pass by the core's own function, on the translation's
    // UTF-8: a value holding "%2" (a file name) stays as it is.
    const QString pattern = QCoreApplication::translate("Engine", sentence.pattern.c_str());
    return QString::fromStdString(FillPattern(pattern.toStdString(), sentence.values));
}

QString EngineText(const Sentences& sentences) {
    QStringList parts;
    for (const Sentence& sentence : sentences) {
        parts << EngineText(sentence);
    }
    return parts.join(QCoreApplication::translate("Engine", "; "));
}

QString FailureText(const Failure& failure) {
    if (failure.detail.empty()) {
        return QString::fromStdString(failure.reason);
    }
    return StageText(failure.stage, EngineText(failure.detail));
}

}  // namespace vellumo
