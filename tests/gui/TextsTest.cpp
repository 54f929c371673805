// The texts the window makes from numbers: fields read as numbers, the
// quality label, the job's status line.

#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <chrono>
#include <cmath>
#include <limits>

#include "ui/JobStatusText.h"
#include "ui/controls/QualityText.h"
#include "ui/controls/TextFieldNumber.h"

using namespace std::chrono_literals;
using vellumo::JobStatusText;
using vellumo::LeadingFloatValue;
using vellumo::QualityText;

class TextsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aFieldIsTheNumberItBeginsWith_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<float>("value");
        QTest::newRow("whole") << "20" << 20.0f;
        QTest::newRow("fraction") << "12.5" << 12.5f;
        QTest::newRow("blanks first") << "  7" << 7.0f;
        QTest::newRow("a unit after") << "250 px" << 250.0f;
        QTest::newRow("negative") << "-10" << -10.0f;
        QTest::newRow("plus") << "+3" << 3.0f;
        QTest::newRow("no leading digit") << ".5" << 0.5f;
        QTest::newRow("trailing point") << "5." << 5.0f;
        QTest::newRow("exponent") << "1.5e2" << 150.0f;
        QTest::newRow("exponent without digits") << "2e" << 2.0f;
        QTest::newRow("single precision") << "0.1" << 0.1f;
        QTest::newRow("empty") << "" << 0.0f;
        QTest::newRow("letters") << "abc" << 0.0f;
        QTest::newRow("letters first") << "px 120" << 0.0f;
        QTest::newRow("sign only") << "-" << 0.0f;
        QTest::newRow("point only") << "." << 0.0f;
        QTest::newRow("no infinity word") << "inf" << 0.0f;
        QTest::newRow("no nan") << "nan" << 0.0f;
        QTest::newRow("comma stops") << "1,5" << 1.0f;
    }

    void aFieldIsTheNumberItBeginsWith() {
        QFETCH(QString, text);
        QFETCH(float, value);
        QCOMPARE(LeadingFloatValue(text), value);
        QLineEdit field(text);
        QCOMPARE(vellumo::TextFieldFloatValue(field), value);
    }

    void numbersBeyondSinglePrecisionAreInfiniteOrZero() {
        QCOMPARE(LeadingFloatValue(u"1e39"), std::numeric_limits<float>::infinity());
        QCOMPARE(LeadingFloatValue(u"-1e400"), -std::numeric_limits<float>::infinity());
        QCOMPARE(LeadingFloatValue(u"1e-400"), 0.0f);
    }

    void theQualityIsShownRoundedDownAndNeverBelowOne() {
        QCOMPARE(QualityText(0.0f), QStringLiteral("1"));
        QCOMPARE(QualityText(-5.0f), QStringLiteral("1"));
        QCOMPARE(QualityText(1.0f), QStringLiteral("1"));
        QCOMPARE(QualityText(1.01f), QStringLiteral("1"));
        QCOMPARE(QualityText(2.99f), QStringLiteral("2"));
        QCOMPARE(QualityText(80.7f), QStringLiteral("80"));
        QCOMPARE(QualityText(100.0f), QStringLiteral("100"));
        QCOMPARE(QualityText(1.0e18f), QStringLiteral("999999984306749440"));
    }

    void aQualityThatIsNoWholeNumberStopsTheProgram_data() {
        QTest::addColumn<QString>("value");
        QTest::newRow("not a number") << "nan";
        QTest::newRow("infinite") << "inf";
        QTest::newRow("minus infinite") << "-inf";
        QTest::newRow("beyond 64 bits") << "1e19";
    }

    void aQualityThatIsNoWholeNumberStopsTheProgram() {
        QFETCH(QString, value);
        QProcess probe;
        probe.start(QStringLiteral(VELLUMO_FATAL_PROBE), {"quality", value});
        QVERIFY(probe.waitForFinished(30000));
        QCOMPARE(probe.exitStatus(), QProcess::CrashExit);
        const QString errors = QString::fromUtf8(probe.readAllStandardError());
        QVERIFY2(errors.contains("the quality"), qPrintable(errors));
    }

    void theStatusLineCountsAndEstimates() {
        QCOMPARE(JobStatusText(0, 120, 0ms), QStringLiteral("Cropping 1 of 120"));
        QCOMPARE(JobStatusText(36, 120, 5143ms),
                 QString::fromUtf8("Cropping 37 of 120 — about 12 s left"));
        QCOMPARE(JobStatusText(1, 3, 10ms), QString::fromUtf8("Cropping 2 of 3 — about 1 s left"));
        QCOMPARE(JobStatusText(10, 100, 60000ms),
                 QString::fromUtf8("Cropping 11 of 100 — about 9 min left"));
        QCOMPARE(JobStatusText(1, 2, 59000ms),
                 QString::fromUtf8("Cropping 2 of 2 — about 59 s left"));
        QCOMPARE(JobStatusText(1, 2, 59600ms),
                 QString::fromUtf8("Cropping 2 of 2 — about 1 min left"));
        QCOMPARE(JobStatusText(3, 3, 900ms), QString());
        QCOMPARE(JobStatusText(0, 0, 0ms), QString());
    }
};

QTEST_MAIN(TextsTest)
#include "TextsTest.moc"
