#include "ui/EngineText.h"

#include <QCoreApplication>
#include <QStringList>

namespace vellumo {

namespace {

// %1 … %9 replaced in one pass, so that a value holding "%2" (a file name)
// stays as it is.
QString Filled(const QString& pattern, const std::vector<std::string>& values) {
    QString filled;
    filled.reserve(pattern.size());
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar next = i + 1 < pattern.size() ? pattern.at(i + 1) : QChar();
        const int number = next.digitValue();
        if (pattern.at(i) == u'%' && number >= 1 &&
            static_cast<std::size_t>(number) <= values.size()) {
            filled += QString::fromStdString(values[static_cast<std::size_t>(number) - 1]);
            ++i;
        } else {
            filled += pattern.at(i);
        }
    }
    return filled;
}

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
    return Filled(QCoreApplication::translate("Engine", sentence.pattern.c_str()), sentence.values);
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
