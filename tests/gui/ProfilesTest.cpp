// Profiles in the window: save and load every setting, all or nothing, the
// window title, the same outputs as the command line with the same profile,
// and the folder each file dialog remembers between runs.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "batch/Profile.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/support/Commands.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/Stepper.h"
#include "ui/dialogs/LastFolders.h"
#include "ui/dialogs/OpenFilesDialog.h"

using vellumo::test::Click;
using vellumo::test::LoadedWindow;

namespace {

// Every control a profile holds, as text, for comparing whole windows. A
// profile holds the crop mode the radio buttons make, not each button: with
// auto-crop on, which of pixels and percents is on below it is not kept.
QStringList Controls(LoadedWindow& w) {
    QStringList state;
    const auto radio = [&w](const char* name) {
        return w.Control<vellumo::LatchingRadioButton>(name).isChecked();
    };
    state << QString("mode=%1").arg(static_cast<int>(vellumo::CropModeOfRadios(
        radio("radioAutoCrop"), radio("radioCustomCrop"), radio("radioCustomCropPixels"),
        radio("radioCustomCropPercents"))));
    for (const char* combo : {"comboAutoCropFormat", "comboFormat"}) {
        state << QString("%1=%2").arg(combo, w.Control<QComboBox>(combo).currentText());
    }
    for (const char* field :
         {"textFieldCustomCropPixelsOriginX", "textFieldCustomCropPixelsOriginY",
          "textFieldCustomCropPixelsWidth", "textFieldCustomCropPixelsHeight",
          "textFieldCustomCropPercentsOriginX", "textFieldCustomCropPercentsOriginY",
          "textFieldCustomCropPercentsWidth", "textFieldCustomCropPercentsHeight", "textFieldName",
          "textFieldOutputFolder", "textFieldMaxSize"}) {
        state << QString("%1=%2").arg(field, w.Control<QLineEdit>(field).text());
    }
    state << QString("slider=%1 enabled=%2")
                 .arg(w.Control<vellumo::QualitySlider>("sliderQuality").doubleValue())
                 .arg(w.Control<vellumo::QualitySlider>("sliderQuality").isEnabled());
    state << "label=" + w.Control<QLabel>("labelQuality").text();
    state << QString("keep=%1").arg(
        w.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate").isChecked());
    state << "unit=" + w.Control<QComboBox>("comboMaxSizeUnit").currentText();
    for (const char* check : {"checkScaleDownToFit", "checkKeepFolderStructure"}) {
        state << QString("%1=%2").arg(check).arg(w.Control<QCheckBox>(check).isChecked());
    }
    return state;
}

// Sets every control away from its start value, by hand.
void ChangeEverything(LoadedWindow& w) {
    Click(w.Control<vellumo::LatchingRadioButton>("radioAutoCrop"));
    Click(w.Control<vellumo::LatchingRadioButton>("radioCustomCropPercents"));
    vellumo::test::Choose(w.Control<QComboBox>("comboAutoCropFormat"), "3:2");
    w.Control<QLineEdit>("textFieldCustomCropPixelsOriginX").setText("-12.5");
    w.Control<QLineEdit>("textFieldCustomCropPixelsOriginY").setText("7");
    w.Control<QLineEdit>("textFieldCustomCropPixelsWidth").setText("640.25");
    w.Control<QLineEdit>("textFieldCustomCropPixelsHeight").setText("480");
    w.Control<QLineEdit>("textFieldCustomCropPercentsOriginX").setText("12.3");
    w.Control<QLineEdit>("textFieldCustomCropPercentsOriginY").setText("0.125");
    w.Control<QLineEdit>("textFieldCustomCropPercentsWidth").setText("150");
    w.Control<QLineEdit>("textFieldCustomCropPercentsHeight").setText("33.333");
    // The size limit while JPG offers it; the tree is kept although no
    // folder is listed (a profile holds the choice all the same).
    vellumo::test::Type(w.Control<QLineEdit>("textFieldMaxSize"), "750");
    vellumo::test::Choose(w.Control<QComboBox>("comboMaxSizeUnit"), "MB");
    Click(w.Control<QCheckBox>("checkScaleDownToFit"));
    w.Control<QCheckBox>("checkKeepFolderStructure").setChecked(true);
    vellumo::test::Choose(w.Control<QComboBox>("comboFormat"), "TIF");
    w.Control<vellumo::QualitySlider>("sliderQuality").setDoubleValue(42.5);
    w.settings().ShowQuality();
    w.Control<QLineEdit>("textFieldName").setText("shot [FileIndex] é");
    w.Control<QLineEdit>("textFieldOutputFolder").setText("/somewhere/out");
    Click(w.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate"));
}

}  // namespace

class ProfilesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void saveThenLoadRestoresEveryControlExactly() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        ChangeEverything(loaded);
        const QStringList changed = Controls(loaded);
        const vellumo::CropSettings settings = loaded.settings().Read();

        // Save As adds the extension.
        loaded.saveDialogAnswers.push_back(dir.filePath("mine"));
        loaded.profiles().SaveAs();
        QVERIFY(QFile::exists(dir.filePath("mine.vellumo")));
        QCOMPARE(loaded.saveDialogs.at(0).fileType, QStringLiteral("vellumo"));

        loaded.controller().OnFileNew();
        QVERIFY(Controls(loaded) != changed);
        loaded.openDialogAnswers.push_back(QStringList{dir.filePath("mine.vellumo")});
        loaded.profiles().Load();
        QCOMPARE(Controls(loaded), changed);
        const vellumo::CropSettings back = loaded.settings().Read();
        QCOMPARE(back.percentsOriginX, settings.percentsOriginX);  // 12.3f, exactly
        QCOMPARE(back.percentsHeight, settings.percentsHeight);
        QCOMPARE(back.quality, 42.5f);
        QCOMPARE(back.byteLimit.maxBytes, std::uint64_t{750000000});
        QVERIFY(back.byteLimit.scaleDown);
        QVERIFY(back.keepStructure);
        QVERIFY(loaded.boxes.empty());
    }

    void aSavedProfileIsOfferedUnderLoadRecentAndLoadsFromThere() {
        QSettings().remove(QStringLiteral("recent"));
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        ChangeEverything(loaded);
        const QStringList changed = Controls(loaded);
        loaded.saveDialogAnswers.push_back(dir.filePath("first"));
        loaded.profiles().SaveAs();
        loaded.saveDialogAnswers.push_back(dir.filePath("second"));
        loaded.profiles().SaveAs();
        QVERIFY(QFile::remove(dir.filePath("second.vellumo")));  // gone: not offered

        auto& menu = loaded.Control<QMenu>("menuRecentProfiles");
        Q_EMIT menu.aboutToShow();
        QStringList titles;
        for (const QAction* action : menu.actions()) {
            titles << action->text();
        }
        QCOMPARE(titles, (QStringList{QStringLiteral("&1 first.vellumo"), QString(),
                                      QStringLiteral("Clear Menu")}));
        QCOMPARE(menu.actions().front()->toolTip(), dir.filePath("first.vellumo"));

        loaded.controller().OnFileNew();
        QVERIFY(Controls(loaded) != changed);
        menu.actions().front()->trigger();
        QCOMPARE(Controls(loaded), changed);
        QVERIFY(loaded.openDialogs.empty());  // no dialog asked

        menu.actions().back()->trigger();  // Clear Menu
        Q_EMIT menu.aboutToShow();
        QCOMPARE(menu.actions().size(), 1);
        QVERIFY(!menu.actions().front()->isEnabled());
    }

    void aSavedCropPlanIsOfferedUnderOpenRecentAndOpensFromThere() {
        QSettings().remove(QStringLiteral("recent"));
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        const QString picture = vellumo::test::Write(vellumo::test::Plain(40, 30, Qt::blue),
                                                     dir.filePath(QStringLiteral("a.png")));
        loaded.AddImages({picture});
        loaded.saveDialogAnswers.push_back(dir.filePath("batch"));
        QVERIFY(loaded.plans().Save());

        loaded.controller().OnFileNew();
        QCOMPARE(loaded.imageList().count(), 0);
        auto& menu = loaded.Control<QMenu>("menuRecentPlans");
        Q_EMIT menu.aboutToShow();
        QCOMPARE(menu.actions().front()->text(), QStringLiteral("&1 batch.vellumoplan"));
        menu.actions().front()->trigger();
        QCOMPARE(loaded.imageList().paths(), QStringList{picture});
    }

    void badProfilesChangeNoSettingAndSayWhy() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        ChangeEverything(loaded);
        const QStringList before = Controls(loaded);
        const struct {
            const char* name;
            const char* text;
            const char* problem;
        } files[] = {
            {"corrupt.vellumo", "{ \"version\": 1, \"quality\": ", "the file is not valid JSON"},
            {"future.vellumo", "{\"version\": 99, \"format\": \"PNG\"}",
             "version 99 is not one this Vellumo reads (it reads versions 1 and 2)"},
            {"loud.vellumo", "{\"version\": 1, \"format\": \"PNG\", \"quality\": 300}",
             "\"quality\" must be between 0 and 100"},
        };
        for (const auto& file : files) {
            const QString path = dir.filePath(file.name);
            QFile out(path);
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write(file.text);
            out.close();
            loaded.openDialogAnswers.push_back(QStringList{path});
            loaded.profiles().Load();
            QCOMPARE(Controls(loaded), before);
            QCOMPARE(loaded.boxes.back().text,
                     "The profile " + path + " could not be loaded: " + file.problem + ".");
            QCOMPARE(loaded.boxes.back().style, vellumo::MessageBoxStyle::Warning);
            QCOMPARE(loaded.profiles().currentPath(), QString());
        }
    }

    void missingKeysKeepTheWindowsValues() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        ChangeEverything(loaded);
        QStringList expected = Controls(loaded);
        QFile out(dir.filePath("small.vellumo"));
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(R"({"version": 1, "format": "PNG", "whatIsThis": true})");
        out.close();
        loaded.openDialogAnswers.push_back(QStringList{dir.filePath("small.vellumo")});
        loaded.profiles().Load();
        expected.replaceInStrings("comboFormat=TIF", "comboFormat=PNG");
        expected.replaceInStrings("enabled=1", "enabled=0");
        QCOMPARE(Controls(loaded), expected);
    }

    void theTitleFollowsSaveLoadAndNew() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        QCOMPARE(loaded.window().windowTitle(), QStringLiteral("Vellumo"));

        // Save with no profile yet acts as Save As.
        loaded.saveDialogAnswers.push_back(dir.filePath("Portraits.vellumo"));
        loaded.profiles().Save();
        QCOMPARE(loaded.saveDialogs.size(), std::size_t{1});
        QCOMPARE(loaded.window().windowTitle(), QString::fromUtf8("Vellumo — Portraits"));
        QCOMPARE(loaded.profiles().currentPath(), dir.filePath("Portraits.vellumo"));

        // Save again writes there without asking.
        vellumo::test::Choose(loaded.Control<QComboBox>("comboFormat"), "GIF");
        loaded.profiles().Save();
        QCOMPARE(loaded.saveDialogs.size(), std::size_t{1});
        QFile saved(dir.filePath("Portraits.vellumo"));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().contains("\"format\": \"GIF\""));

        loaded.controller().OnFileNew();
        QCOMPARE(loaded.window().windowTitle(), QStringLiteral("Vellumo"));
        QCOMPARE(loaded.profiles().currentPath(), QString());

        loaded.openDialogAnswers.push_back(QStringList{dir.filePath("Portraits.vellumo")});
        loaded.profiles().Load();
        QCOMPARE(loaded.window().windowTitle(), QString::fromUtf8("Vellumo — Portraits"));
        QCOMPARE(loaded.Control<QComboBox>("comboFormat").currentText(), QStringLiteral("GIF"));
    }

    void aSaveThatFailsSaysWhyAndKeepsTheTitle() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.saveDialogAnswers.push_back(QStringLiteral("/no/such/folder/p.vellumo"));
        loaded.profiles().SaveAs();
        QCOMPARE(loaded.boxes.back().text,
                 QStringLiteral("The profile could not be saved to /no/such/folder/p.vellumo: "
                                "the folder does not exist."));
        QCOMPARE(loaded.window().windowTitle(), QStringLiteral("Vellumo"));
        QCOMPARE(loaded.profiles().currentPath(), QString());
    }

    void theCommandLineWithTheSameProfileWritesTheSameBytes() {
        QTemporaryDir dir;
        QStringList sources;
        sources << vellumo::test::Write(vellumo::test::Quarters(640, 480), dir.filePath("a.png"))
                << vellumo::test::Write(vellumo::test::Quarters(300, 500), dir.filePath("b.png"));
        QDir(dir.path()).mkdir("window");
        QDir(dir.path()).mkdir("cli");

        LoadedWindow loaded;
        loaded.Show();
        Click(loaded.Control<vellumo::LatchingRadioButton>("radioAutoCrop"));
        vellumo::test::Choose(loaded.Control<QComboBox>("comboAutoCropFormat"), "16:9");
        vellumo::test::Choose(loaded.Control<QComboBox>("comboFormat"), "JPG");
        loaded.Control<vellumo::QualitySlider>("sliderQuality").setDoubleValue(67);
        loaded.Control<QLineEdit>("textFieldName").setText("[FileName]-profiled");
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("window"));
        loaded.saveDialogAnswers.push_back(dir.filePath("job.vellumo"));
        loaded.profiles().SaveAs();

        loaded.controller().OnFileNew();
        loaded.openDialogAnswers.push_back(QStringList{dir.filePath("job.vellumo")});
        loaded.profiles().Load();
        loaded.AddImages(sources);
        Click(loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_VERIFY_WITH_TIMEOUT(!loaded.boxes.empty() && !loaded.controller().isCropping(), 60000);
        QCOMPARE(loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));

        const vellumo::test::CommandResult cli = vellumo::test::RunCommand(
            vellumo::test::ShellQuote(VELLUMO_CLI) + " --profile " +
            vellumo::test::ShellQuote(dir.filePath("job.vellumo").toStdString()) + " --output " +
            vellumo::test::ShellQuote(dir.filePath("cli").toStdString()) + " " +
            vellumo::test::ShellQuote(sources[0].toStdString()) + " " +
            vellumo::test::ShellQuote(sources[1].toStdString()) + " </dev/null");
        QCOMPARE(cli.exitCode, 0);
        for (const char* name : {"a-profiled.jpg", "b-profiled.jpg"}) {
            QFile fromWindow(dir.filePath(QString("window/") + name));
            QFile fromCli(dir.filePath(QString("cli/") + name));
            QVERIFY2(fromWindow.open(QIODevice::ReadOnly), name);
            QVERIFY2(fromCli.open(QIODevice::ReadOnly), name);
            const QByteArray windowBytes = fromWindow.readAll();
            QVERIFY(windowBytes.size() > 1000);
            QVERIFY2(windowBytes == fromCli.readAll(), name);
        }
    }

    void eachFileDialogRemembersItsLastFolderBetweenRuns() {
        QTemporaryDir dir;
        QDir(dir.path()).mkdir("photos");
        const QString photo = vellumo::test::Write(vellumo::test::Plain(20, 10, Qt::red),
                                                   dir.filePath("photos/p.png"));
        vellumo::RememberLastFolder("addImages", QString());
        LoadedWindow loaded;
        loaded.Show();
        vellumo::OpenFilesRequest request;
        request.allowsMultipleSelection = true;
        request.allowedFileTypes = {"png"};
        request.memoryKey = "addImages";

        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            dialog->setDirectory(dir.filePath("photos"));
            dialog->selectFile(photo);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        const vellumo::OpenFilesResult chosen =
            vellumo::RunOpenFilesDialog(request, &loaded.window());
        QVERIFY(chosen.has_value());
        QCOMPARE(*chosen, QStringList{photo});
        QCOMPARE(vellumo::LastFolder("addImages"), dir.filePath("photos"));

        // The next time (also in another run: the settings file is read
        // anew), the dialog starts there.
        QString startedIn;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            startedIn = dialog->directory().absolutePath();
            dialog->reject();
        });
        QVERIFY(!vellumo::RunOpenFilesDialog(request, &loaded.window()).has_value());
        QCOMPARE(startedIn, dir.filePath("photos"));
        // Another dialog has its own memory.
        QCOMPARE(vellumo::LastFolder("profiles"), QString());
    }
};

QTEST_MAIN(ProfilesTest)
#include "ProfilesTest.moc"
