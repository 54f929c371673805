#include "ui/dialogs/ReportText.h"

#include <QCoreApplication>
#include <QStringList>

#include "batch/JobSummary.h"
#include "ui/WindowLocale.h"

namespace vellumo {

namespace {

// `text` (marked for the translations with QT_TRANSLATE_N_NOOP) in the
// plural form for `count`, with the count written the window's way. Qt's
// counts are ints; a list of more than two thousand million images is not
// shown.
QString Counted(const char* text, long count) {
    return QCoreApplication::translate("ReportText", text, nullptr, static_cast<int>(count))
        .arg(WindowNumber(count));
}

QString Translated(const char* text) {
    return QCoreApplication::translate("ReportText", text);
}

// English says "1 image", not "1 images": a count of one has texts of its
// own; the translations' plural forms take the rest.
QString ImagesText(long count) {
    return count == 1 ? Translated(QT_TRANSLATE_NOOP("ReportText", "1 image"))
                      : Counted(QT_TRANSLATE_N_NOOP("ReportText", "%L1 images"), count);
}

QString WrittenText(const JobCounts& c) {
    return c.planned > 0 && c.written == 0
               ? Counted(QT_TRANSLATE_N_NOOP("ReportText", "%L1 would be written"), c.planned)
               : Counted(QT_TRANSLATE_N_NOOP("ReportText", "%L1 written"), c.written);
}

// The counts after "written", zero counts left out.
QStringList OtherCounts(const JobCounts& c) {
    QStringList parts;
    if (c.kept == 1) {
        parts << Translated(QT_TRANSLATE_NOOP("ReportText", "1 kept as it was"));
    } else if (c.kept > 1) {
        parts << Counted(QT_TRANSLATE_N_NOOP("ReportText", "%L1 kept as they were"), c.kept);
    }
    if (c.failed > 0) {
        parts << Counted(QT_TRANSLATE_N_NOOP("ReportText", "%L1 failed"), c.failed);
    }
    if (c.listed > c.finished) {
        parts << Counted(QT_TRANSLATE_N_NOOP("ReportText", "%L1 not cropped"),
                         c.listed - c.finished);
    }
    return parts;
}

}  // namespace

QString StoppedSentenceText(const JobReport& report) {
    const long written = CountJob(report).written;
    if (report.total == 1) {
        return Translated(QT_TRANSLATE_NOOP("ReportText",
                                            "Cropping was stopped: %L1 of 1 image was written."))
            .arg(WindowNumber(written));
    }
    const int total = static_cast<int>(report.total);
    return QCoreApplication::translate("ReportText",
                                       "Cropping was stopped: %L1 of %L2 images were written.",
                                       nullptr, total)
        .arg(WindowNumber(written), WindowNumber(total));
}

QString JobCountsText(const JobReport& report) {
    const JobCounts c = CountJob(report);
    const QStringList counts = QStringList{WrittenText(c)} + OtherCounts(c);
    QString text = Translated(QT_TRANSLATE_NOOP("ReportText", "%1: %2"))
                       .arg(ImagesText(c.listed), counts.join(QStringLiteral(", ")));
    if (c.warned > 0) {
        const QString warnings =
            c.warned == 1
                ? Translated(QT_TRANSLATE_NOOP("ReportText", "1 with a warning"))
                : Counted(QT_TRANSLATE_N_NOOP("ReportText", "%L1 with warnings"), c.warned);
        text = Translated(QT_TRANSLATE_NOOP("ReportText", "%1; %2")).arg(text, warnings);
    }
    return text;
}

}  // namespace vellumo
