// The About box tells the version and the image worker's sandbox as a
// freshly started worker reports it, layer by layer, and keeps the choice
// to refuse decoding while a layer is missing.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSettings>
#include <QTest>

#include "tests/gui/support/LoadedWindow.h"
#include "ui/dialogs/AboutBox.h"
#include "ui/job/WorkerSettings.h"
#include "worker/WorkerProcess.h"

using vellumo::AboutBox;
using vellumo::test::LoadedWindow;

class AboutBoxTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { QSettings().clear(); }

    void TheBoxShowsEveryLayerAsTheWorkerReportsIt() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.Control<QAction>("actionAbout").trigger();
        AboutBox* box = loaded.window().findChild<AboutBox*>();
        QVERIFY(box != nullptr);
        auto* headline = box->findChild<QLabel*>(QStringLiteral("sandboxHeadline"));
        auto* layers = box->findChild<QPlainTextEdit*>(QStringLiteral("sandboxLayers"));
        QVERIFY(headline != nullptr && layers != nullptr);
        QTRY_VERIFY_WITH_TIMEOUT(!layers->toPlainText().isEmpty(), 20000);

        // What a worker of this machine says, asked independently.
        vellumo::WorkerProcess worker;
        std::string failure;
        const vellumo::SandboxStatus status = worker.StartForStatus(failure);
        QVERIFY2(!status.empty(), failure.c_str());
        QCOMPARE(headline->text(), AboutBox::SandboxHeadline(status, QString()));
        for (const vellumo::SandboxLayer& layer : status) {
            QVERIFY2(layers->toPlainText().contains(QString::fromStdString(layer.name)),
                     layer.name.c_str());
        }
        auto* title = box->findChild<QLabel*>(QStringLiteral("aboutTitle"));
        QVERIFY(title->text().contains(QApplication::applicationVersion()));
    }

    void AnIncompleteSandboxIsNamedLayerByLayer() {
        vellumo::SandboxStatus status;
        for (const std::string& name : vellumo::SandboxLayerNames()) {
            status.push_back({name, name != "landlock", "the kernel has no Landlock"});
        }
        QCOMPARE(AboutBox::SandboxHeadline(status, QString()),
                 QStringLiteral("The image worker's sandbox is incomplete: landlock (the kernel "
                                "has no Landlock) missing."));
        // The table as the command line's --sandbox-status prints it, in
        // English.
        QCOMPARE(AboutBox::SandboxTable(status),
                 QString::fromStdString(vellumo::DescribeSandbox(status)));
        QCOMPARE(AboutBox::SandboxHeadline({}, QStringLiteral("no worker")),
                 QStringLiteral("The image worker did not start: no worker"));
    }

    void TheChoiceToRequireTheSandboxIsKept() {
        QVERIFY(!vellumo::workersettings::Foreground().requireSandbox);
        AboutBox box;
        auto* require = box.findChild<QCheckBox*>(QStringLiteral("requireSandbox"));
        QVERIFY(require != nullptr && !require->isChecked());
        require->click();
        QVERIFY(vellumo::workersettings::Foreground().requireSandbox);
        QVERIFY(vellumo::workersettings::Background().requireSandbox);
        AboutBox again;
        QVERIFY(again.findChild<QCheckBox*>(QStringLiteral("requireSandbox"))->isChecked());
        QTRY_VERIFY_WITH_TIMEOUT(!again.findChild<QPlainTextEdit*>()->toPlainText().isEmpty(),
                                 20000);
    }
};

QTEST_MAIN(AboutBoxTest)
#include "AboutBoxTest.moc"
