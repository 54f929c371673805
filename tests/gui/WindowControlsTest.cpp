// The interface description holds every control the window works with, each
// under its object name and of its kind, and the menu's commands with their
// shortcuts. (The window reaches them through the typed Ui::MainWindow that
// uic generates from it, so a control missing or of another kind does not
// compile.)

#include <QAction>
#include <QFile>
#include <QHash>
#include <QTabWidget>
#include <QTest>
#include <QXmlStreamReader>

#include "tests/gui/support/LoadedWindow.h"

using vellumo::test::LoadedWindow;

namespace {

struct ExpectedControl {
    const char* name;
    const char* className;  // the class in the description
    const char* kind;       // the Qt control kind it is, or extends
};

// Every control the window works with.
constexpr ExpectedControl kControls[] = {
    {"buttonAddImages", "QPushButton", "QPushButton"},
    {"buttonRemoveSelected", "QPushButton", "QPushButton"},
    {"buttonRemoveAll", "QPushButton", "QPushButton"},
    {"progressIndicator", "QProgressBar", "QProgressBar"},
    {"buttonCropImages", "QPushButton", "QPushButton"},
    {"tableViewImage", "vellumo::ImageTableView", "QTableView"},
    {"labelOriginalDimensionsWidth", "QLabel", "QLabel"},
    {"labelOriginalDimensionsHeight", "QLabel", "QLabel"},
    {"labelOutputDimensionsWidth", "QLabel", "QLabel"},
    {"labelOutputDimensionsHeight", "QLabel", "QLabel"},
    {"radioAutoCrop", "vellumo::LatchingRadioButton", "QRadioButton"},
    {"comboAutoCropFormat", "QComboBox", "QComboBox"},
    {"radioCustomCrop", "vellumo::LatchingRadioButton", "QRadioButton"},
    {"radioCustomCropPixels", "vellumo::LatchingRadioButton", "QRadioButton"},
    {"textFieldCustomCropPixelsOriginX", "QLineEdit", "QLineEdit"},
    {"textFieldCustomCropPixelsOriginY", "QLineEdit", "QLineEdit"},
    {"textFieldCustomCropPixelsWidth", "QLineEdit", "QLineEdit"},
    {"textFieldCustomCropPixelsHeight", "QLineEdit", "QLineEdit"},
    {"radioCustomCropPercents", "vellumo::LatchingRadioButton", "QRadioButton"},
    {"textFieldCustomCropPercentsOriginX", "QLineEdit", "QLineEdit"},
    {"stepperCustomCropPercentsOriginX", "vellumo::Stepper", "QAbstractSpinBox"},
    {"textFieldCustomCropPercentsOriginY", "QLineEdit", "QLineEdit"},
    {"stepperCustomCropPercentsOriginY", "vellumo::Stepper", "QAbstractSpinBox"},
    {"textFieldCustomCropPercentsWidth", "QLineEdit", "QLineEdit"},
    {"stepperCustomCropPercentsWidth", "vellumo::Stepper", "QAbstractSpinBox"},
    {"textFieldCustomCropPercentsHeight", "QLineEdit", "QLineEdit"},
    {"stepperCustomCropPercentsHeight", "vellumo::Stepper", "QAbstractSpinBox"},
    {"comboFormat", "QComboBox", "QComboBox"},
    {"sliderQuality", "vellumo::QualitySlider", "QSlider"},
    {"labelQuality", "QLabel", "QLabel"},
    {"textFieldName", "QLineEdit", "QLineEdit"},
    {"textFieldOutputFolder", "QLineEdit", "QLineEdit"},
    {"buttonBrowse", "QPushButton", "QPushButton"},
    {"checkKeepEXIFInformationAndCreationDate", "vellumo::WrappingCheckBox", "QCheckBox"},
    {"tabView", "QTabWidget", "QTabWidget"},
    {"imageViewCropPreview", "vellumo::CropPreviewView", "QWidget"},
};

struct Description {
    QHash<QString, QString> widgetClasses;  // objectName -> class
    QHash<QString, QString> extends;        // custom class -> base class
    QHash<QString, QString> actionShortcuts;
    QHash<QString, bool> actionEnabled;
};

Description ReadDescription() {
    QFile file(QStringLiteral(VELLUMO_MAIN_WINDOW_UI));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", VELLUMO_MAIN_WINDOW_UI);
    }
    Description description;
    QXmlStreamReader xml(&file);
    QString customClass;
    QString action;
    QString propertyName;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) {
            continue;
        }
        const auto element = xml.name();
        if (element == u"widget") {
            const QString name = xml.attributes().value("name").toString();
            const QString cls = xml.attributes().value("class").toString();
            description.widgetClasses.insert(name, cls);
            action.clear();
        } else if (element == u"class") {
            customClass = xml.readElementText();
        } else if (element == u"extends") {
            description.extends.insert(customClass, xml.readElementText());
        } else if (element == u"action") {
            action = xml.attributes().value("name").toString();
            description.actionEnabled.insert(action, true);
        } else if (element == u"property") {
            propertyName = xml.attributes().value("name").toString();
        } else if (element == u"string" && !action.isEmpty() && propertyName == "shortcut") {
            description.actionShortcuts.insert(action, xml.readElementText());
        } else if (element == u"bool" && !action.isEmpty() && propertyName == "enabled") {
            description.actionEnabled.insert(action, xml.readElementText() == "true");
        }
    }
    if (xml.hasError()) {
        qFatal("%s is not well-formed: %s", VELLUMO_MAIN_WINDOW_UI, qPrintable(xml.errorString()));
    }
    return description;
}

}  // namespace

class WindowControlsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theDescriptionHoldsEveryControlWithItsKind() {
        const Description description = ReadDescription();
        QCOMPARE(std::size(kControls), 36u);
        for (const ExpectedControl& control : kControls) {
            const QString name = QString::fromLatin1(control.name);
            QVERIFY2(description.widgetClasses.contains(name), control.name);
            const QString cls = description.widgetClasses.value(name);
            QCOMPARE(cls, QString::fromLatin1(control.className));
            const QString kind = description.extends.value(cls, cls);
            QVERIFY2(kind == QString::fromLatin1(control.kind) || cls == control.kind,
                     qPrintable(name + " is a " + cls + " extending " + kind));
        }
        // The tab view has a crop tab and an output tab.
        QCOMPARE(description.widgetClasses.value("tabCrop"), QStringLiteral("QWidget"));
        QCOMPARE(description.widgetClasses.value("tabOutput"), QStringLiteral("QWidget"));
    }

    void theLoadedWindowHasEveryControlOfItsKind() {
        LoadedWindow loaded;
        for (const ExpectedControl& control : kControls) {
            const auto found =
                loaded.window().findChildren<QWidget*>(QString::fromLatin1(control.name));
            QCOMPARE(found.size(), 1);
            QVERIFY2(found[0]->inherits(control.kind), control.name);
            QCOMPARE(QString::fromLatin1(found[0]->metaObject()->className()),
                     QString::fromLatin1(control.className));
        }
        auto& tabs = loaded.Control<QTabWidget>("tabView");
        QCOMPARE(tabs.count(), 3);
        QCOMPARE(tabs.tabText(0), QStringLiteral("Crop"));
        QCOMPARE(tabs.tabText(1), QStringLiteral("Output"));
        QCOMPARE(tabs.tabText(2), QStringLiteral("Faces, trim, pad"));
    }

    void theMenuCarriesTheCommandsWithTheirShortcuts() {
        const Description description = ReadDescription();
        QCOMPARE(description.actionShortcuts.value("actionNew"), QStringLiteral("Ctrl+N"));
        QCOMPARE(description.actionShortcuts.value("actionLoadProfile"), QStringLiteral("Ctrl+O"));
        QCOMPARE(description.actionShortcuts.value("actionSaveProfile"), QStringLiteral("Ctrl+S"));
        QCOMPARE(description.actionShortcuts.value("actionSaveProfileAs"),
                 QStringLiteral("Ctrl+Shift+S"));
        QCOMPARE(description.actionShortcuts.value("actionQuit"), QStringLiteral("Ctrl+Q"));
        QVERIFY(description.actionEnabled.value("actionVideoTutorial"));
        QVERIFY(description.actionEnabled.value("actionNew"));
        QVERIFY(description.actionEnabled.value("actionQuit"));
        QVERIFY(description.actionEnabled.value("actionLoadProfile", true));
        QVERIFY(description.actionEnabled.value("actionSaveProfile", true));
        QVERIFY(description.actionEnabled.value("actionSaveProfileAs", true));

        LoadedWindow loaded;
        const auto shortcut = [&](const char* name) {
            return loaded.Control<QAction>(name).shortcut();
        };
        QCOMPARE(shortcut("actionNew"), QKeySequence(Qt::CTRL | Qt::Key_N));
        QCOMPARE(shortcut("actionLoadProfile"), QKeySequence(Qt::CTRL | Qt::Key_O));
        QCOMPARE(shortcut("actionSaveProfile"), QKeySequence(Qt::CTRL | Qt::Key_S));
        QCOMPARE(shortcut("actionSaveProfileAs"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
        QCOMPARE(shortcut("actionQuit"), QKeySequence(Qt::CTRL | Qt::Key_Q));
        QCOMPARE(loaded.Control<QAction>("actionLoadProfile").text(),
                 QStringLiteral("Load Profile…"));
        QCOMPARE(loaded.Control<QAction>("actionSaveProfileAs").text(),
                 QStringLiteral("Save Profile As…"));
        QCOMPARE(loaded.Control<QAction>("actionVideoTutorial").text(),
                 QStringLiteral("Video Tutorial"));
    }
};

QTEST_MAIN(WindowControlsTest)
#include "WindowControlsTest.moc"
