#include "ui/dialogs/ReportText.h"

#include <QCoreApplication>
#include <QStringList>

#include "batch/JobSummary.h"

namespace vellumo {

namespace {

// Qt's counts are ints; a list of more than two thousand million images is
// not shown.
int Int(long count) {
    return static_cast<int>(count);
}

// English says "1 image", not "1 images": a count of one has texts of its
// own; the translations' plural forms take the rest.
QString ImagesText(long count) {
    return count == 1
               ? QCoreApplication::translate("ReportText", "1 image")
               : QCoreApplication::translate("ReportText", "%Ln images", nullptr, Int(count));
}

QString WrittenText(const JobCounts& c) {
    return c.planned > 0 && c.written == 0
               ? QCoreApplication::translate("ReportText", "%Ln would be written", nullptr,
                                             Int(c.planned))
               : QCoreApplication::translate("ReportText", "%Ln written", nullptr, Int(c.written));
}

// The counts after "written", zero counts left out.
QStringList OtherCounts(const JobCounts& c) {
    QStringList parts;
    if (c.kept == 1) {
        parts << QCoreApplication::translate("ReportText", "1 kept as it was");
    } else if (c.kept > 1) {
        parts << QCoreApplication::translate("ReportText", "%Ln kept as they were", nullptr,
                                             Int(c.kept));
    }
    if (c.failed > 0) {
        parts << QCoreApplication::translate("ReportText", "%Ln failed", nullptr, Int(c.failed));
    }
    if (c.listed > c.finished) {
        parts << QCoreApplication::translate("ReportText", "%Ln not cropped", nullptr,
                                             Int(c.listed - c.finished));
    }
    return parts;
}

}  // namespace

QString StoppedSentenceText(const JobReport& report) {
    const long written = CountJob(report).written;
    return report.total == 1
               ? QCoreApplication::translate("ReportText",
                                             "Cropping was stopped: %L1 of 1 image was written.")
                     .arg(written)
               : QCoreApplication::translate(
                     "ReportText", "Cropping was stopped: %L1 of %Ln images were written.", nullptr,
                     Int(report.total))
                     .arg(written);
}

QString JobCountsText(const JobReport& report) {
    const JobCounts c = CountJob(report);
    const QStringList counts = QStringList{WrittenText(c)} + OtherCounts(c);
    QString text = QCoreApplication::translate("ReportText", "%1: %2")
                       .arg(ImagesText(c.listed), counts.join(QStringLiteral(", ")));
    if (c.warned == 1) {
        text = QCoreApplication::translate("ReportText", "%1; %2")
                   .arg(text, QCoreApplication::translate("ReportText", "1 with a warning"));
    } else if (c.warned > 1) {
        text = QCoreApplication::translate("ReportText", "%1; %2")
                   .arg(text, QCoreApplication::translate("ReportText", "%Ln with warnings",
                                                          nullptr, Int(c.warned)));
    }
    return text;
}

}  // namespace vellumo
