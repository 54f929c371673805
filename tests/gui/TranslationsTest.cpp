// The window in other languages: every translation complete and keeping the
// source's placeholders; the desktop's language choosing the translation and
// the numbers' format; a pseudo-translation that makes every text 40 % longer
// and marks it showing no English; and the window at 625 x 512 in English,
// each translation and the pseudo-translation, clipping no text.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>
#include <vector>

#include "app/WindowLanguage.h"
#include "batch/CropRectangle.h"
#include "batch/JobSummary.h"
#include "batch/NameTemplate.h"
#include "batch/Preconditions.h"
#include "tests/gui/support/LoadedWindow.h"
#include "ui/EngineText.h"
#include "ui/JobStatusText.h"
#include "ui/WindowLocale.h"
#include "ui/dialogs/OverwriteBox.h"
#include "ui/dialogs/ReportText.h"
#include "ui/list/ImageList.h"
#include "ui/preview/DimensionText.h"

using vellumo::WindowLanguage;
using vellumo::test::LoadedWindow;

namespace {

constexpr QChar kPseudoMark(0x27E6);
// The smallest window, in every language: each text whole at 625 x 512.
const QSize kSmallest(625, 512);

// One message of a Linguist file: its source and its translations (one, or
// one per plural form), and whether Linguist counts it as finished.
struct Message {
    QString context;
    QString source;
    QStringList translations;
    bool finished = true;
};

std::vector<Message> ReadMessages(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    std::vector<Message> messages;
    QString context;
    bool numerus = false;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const auto name = xml.name();
        if (name == u"name") {
            context = xml.readElementText();
        } else if (name == u"message") {
            numerus = xml.attributes().value(QStringLiteral("numerus")) == u"yes";
            messages.push_back({context, {}, {}, true});
        } else if (name == u"source") {
            messages.back().source = xml.readElementText();
        } else if (name == u"translation") {
            // "unfinished", "vanished" or "obsolete": not a finished text.
            messages.back().finished = !xml.attributes().hasAttribute(QStringLiteral("type"));
            if (!numerus) {
                messages.back().translations << xml.readElementText();
            }
        } else if (name == u"numerusform") {
            messages.back().translations << xml.readElementText();
        }
    }
    if (xml.hasError()) {
        qFatal("%s: %s", qPrintable(path), qPrintable(xml.errorString()));
    }
    return messages;
}

// The placeholders and mnemonic markers of a text, sorted: a translation
// must keep every one.
QStringList Placeholders(const QString& text) {
    static const QRegularExpression kPlaceholder(QStringLiteral(R"(%L?(\d+|n)|&(?=\S))"));
    QStringList found;
    for (const QRegularExpressionMatch& match : kPlaceholder.globalMatch(text)) {
        found << match.captured();
    }
    found.sort();
    return found;
}

// Texts that are data, not words: numbers, ratios, arrows, sizes in
// pixels, file format names ("JPG", "JP2", "TIFF") and the program's name.
bool IsData(const QString& text) {
    static const QRegularExpression kData(QStringLiteral(
        "^([\\s\\d.,:×%+\\-()\\x{2190}-\\x{21FF}\\x{2022}]*( ?px)?|[A-Z][A-Z0-9]{1,4}|Vellumo)$"));
    return kData.match(text).hasMatch();
}

QString NameOf(const QObject* object) {
    return object->objectName().isEmpty() ? QString::fromLatin1(object->metaObject()->className())
                                          : object->objectName();
}

// Qt's own parts of a widget (a spin box's line edit, a scroll area's
// viewport) carry Qt's texts, not the window's.
bool IsQtsOwn(const QObject* object) {
    return object->objectName().startsWith(QStringLiteral("qt_"));
}

// Every text a widget shows or tells: its caption, tool tip, placeholder,
// tab titles and list items.
QStringList TextsOf(const QWidget& widget) {
    QStringList texts{widget.toolTip()};
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        texts << label->text();
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        texts << button->text();
    } else if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        texts << group->title();
    } else if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
        texts << field->placeholderText();
    } else if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i) {
            texts << tabs->tabText(i) << tabs->tabToolTip(i);
        }
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        for (int i = 0; i < combo->count(); ++i) {
            texts << combo->itemText(i);
        }
    }
    return texts;
}

// The texts of the window, its menus and actions that the translation did
// not reach, each with where it was found.
QStringList Untranslated(QWidget& window) {
    QStringList english;
    const auto check = [&english](const QObject* where, const QString& text) {
        if (!text.isEmpty() && !text.contains(kPseudoMark) && !IsData(text)) {
            english << NameOf(where) + QStringLiteral(": ") + text;
        }
    };
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (IsQtsOwn(widget) || IsQtsOwn(widget->parent())) {
            continue;
        }
        for (const QString& text : TextsOf(*widget)) {
            check(widget, text);
        }
    }
    for (const QAction* action : window.findChildren<QAction*>()) {
        if (!IsQtsOwn(action) && !IsQtsOwn(action->parent())) {
            check(action, action->text());
            check(action, action->toolTip());
        }
    }
    return english;
}

// The width a text needs in `widget`'s font, one line, mnemonics hidden.
int TextWidth(const QWidget& widget, const QString& text) {
    return widget.fontMetrics()
        .boundingRect(QRect(), Qt::TextShowMnemonic | Qt::TextSingleLine, text)
        .width();
}

// What a button whose text wraps needs at its width: its text's lines
// below one another, beside what the button shows besides its text (its
// indicator), and its longest word on one line.
QSize WrappedButtonSize(const QAbstractButton& button) {
    const QString text = button.text();
    const int chrome = button.sizeHint().width() - TextWidth(button, text);
    const QFontMetrics metrics = button.fontMetrics();
    int longestWord = 0;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        longestWord = std::max(longestWord, TextWidth(button, word));
    }
    const QRect lines = metrics.boundingRect(QRect(0, 0, button.width() - chrome, 0),
                                             Qt::TextWordWrap | Qt::TextShowMnemonic, text);
    return {chrome + longestWord, button.sizeHint().height() + lines.height() - metrics.height()};
}

// What a label, button or combo box needs to show its whole text; an empty
// size for other widgets.
QSize NeededSize(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->text().isEmpty() || label->textFormat() == Qt::RichText) {
            return {};
        }
        const QMargins margins = label->contentsMargins();
        const int frame = 2 * (label->frameWidth() + std::max(0, label->margin()));
        if (label->wordWrap()) {
            const int width = label->contentsRect().width();
            return {0, label->heightForWidth(width + frame) + margins.top() + margins.bottom()};
        }
        return {TextWidth(*label, label->text()) + frame + margins.left() + margins.right() +
                    std::max(0, label->indent()),
                label->fontMetrics().height()};
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (button->text().isEmpty()) {
            return {};
        }
        return button->hasHeightForWidth() ? WrappedButtonSize(*button) : button->sizeHint();
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.editable = combo->isEditable();
        const QSize text(TextWidth(*combo, combo->currentText()), combo->fontMetrics().height());
        return combo->style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, combo);
    }
    return {};
}

// Tabs whose title is cut short.
QStringList ClippedTabs(const QTabBar& bar) {
    QStringList clipped;
    for (int i = 0; i < bar.count(); ++i) {
        if (bar.tabRect(i).width() < TextWidth(bar, bar.tabText(i)) ||
            bar.tabRect(i).right() > bar.width()) {
            clipped << QStringLiteral("tab %1").arg(bar.tabText(i));
        }
    }
    return clipped;
}

QStringList Clipped(QWidget& window) {
    QStringList clipped;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window) || IsQtsOwn(widget) || IsQtsOwn(widget->parent())) {
            continue;
        }
        if (const auto* bar = qobject_cast<const QTabBar*>(widget)) {
            clipped << ClippedTabs(*bar);
            continue;
        }
        const QSize needed = NeededSize(*widget);
        if (widget->width() < needed.width() || widget->height() < needed.height()) {
            clipped << QStringLiteral("%1 %2x%3 < %4x%5")
                           .arg(NameOf(widget))
                           .arg(widget->width())
                           .arg(widget->height())
                           .arg(needed.width())
                           .arg(needed.height());
        }
    }
    return clipped;
}

// Labels, buttons and fields: what a person reads or uses.
bool IsControl(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QLabel*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

// Visible controls of one parent that cover each other.
QStringList Overlapping(QWidget& window) {
    QStringList overlapping;
    for (QWidget* parent : window.findChildren<QWidget*>()) {
        QList<QWidget*> controls;
        for (QWidget* child : parent->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (IsControl(child) && child->isVisibleTo(&window) && !IsQtsOwn(child)) {
                controls << child;
            }
        }
        for (qsizetype i = 0; i < controls.size(); ++i) {
            for (qsizetype j = i + 1; j < controls.size(); ++j) {
                if (controls[i]->geometry().intersects(controls[j]->geometry())) {
                    overlapping << NameOf(controls[i]) + QStringLiteral(" / ") +
                                       NameOf(controls[j]);
                }
            }
        }
    }
    return overlapping;
}

// Whether `widget` lies whole within each of its parents up to the window,
// or up to the viewport of a scroll area (whose page may reach beyond it:
// the part out of view is scrolled to).
bool WithinItsParents(const QWidget& widget, const QWidget& window) {
    QRect area = widget.geometry();
    for (const QWidget* parent = widget.parentWidget(); parent != nullptr && parent != &window;
         parent = parent->parentWidget()) {
        if (parent->objectName() == QStringLiteral("qt_scrollarea_viewport")) {
            return true;
        }
        if (!parent->rect().contains(area)) {
            return false;
        }
        area.translate(parent->pos());
    }
    return true;
}

// Visible controls that a parent too small for them cuts off.
QStringList CutOff(QWidget& window) {
    QStringList cut;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (IsControl(widget) && widget->isVisibleTo(&window) && !IsQtsOwn(widget) &&
            !IsQtsOwn(widget->parent()) && !WithinItsParents(*widget, window)) {
            cut << NameOf(widget) + QStringLiteral(" in ") + NameOf(widget->parent());
        }
    }
    return cut;
}

// What the window's main parts need at least, for a message when the
// window cannot be made small enough.
QString PartsNeed(QWidget& window) {
    QStringList parts;
    for (const char* name :
         {"centralWidget", "panelImages", "panelSettings", "tabView", "groupPreview",
          "cropTabContents", "outputTabContents", "finishTabContents"}) {
        if (const auto* part = window.findChild<QWidget*>(QString::fromLatin1(name))) {
            const QSize need = part->minimumSizeHint().expandedTo(part->minimumSize());
            parts << QStringLiteral("%1 %2 x %3")
                         .arg(QString::fromLatin1(name))
                         .arg(need.width())
                         .arg(need.height());
        }
    }
    return parts.join(QStringLiteral(", "));
}

// A job's report with images of these outcomes, the first `warned` of the
// written ones with a warning.
vellumo::JobReport Report(std::initializer_list<vellumo::ImageStatus> outcomes, int warned = 0) {
    vellumo::JobReport report;
    for (const vellumo::ImageStatus status : outcomes) {
        vellumo::ImageReport image;
        image.index = static_cast<long>(report.images.size());
        image.outcome.status = status;
        if (status == vellumo::ImageStatus::Written && warned-- > 0) {
            image.outcome.warnings = {{"Clipped to %1 × %2", {"10", "20"}}};
        }
        report.allSucceeded = report.allSucceeded && status != vellumo::ImageStatus::Failed;
        report.images.push_back(image);
    }
    report.total = static_cast<long>(report.images.size());
    return report;
}

// The image list's count line with `count` images listed.
QString ListCountText(int count, int selected) {
    vellumo::ImageList list;
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths << QStringLiteral("/photos/%1.jpg").arg(i);
    }
    list.Append(paths);
    return list.CountText(selected);
}

// Tabs whose page is wider than their scroll area shows, so that the page
// scrolls sideways, each with the width its page needs and the width shown.
QStringList ScrollingSideways(QTabWidget& tabs) {
    QStringList scrolling;
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        QApplication::processEvents();
        auto* area = tabs.widget(tab)->findChild<QScrollArea*>();
        if (area == nullptr || area->widget() == nullptr) {
            continue;
        }
        const int needed = area->widget()->minimumSizeHint().width();
        const int shown = area->viewport()->width();
        const int sideways = area->horizontalScrollBar()->maximum();
        qInfo("  %-20s page needs %4d, viewport %4d, scrolls sideways %3d",
              qPrintable(tabs.tabText(tab)), needed, shown, sideways);
        if (sideways > 0 || needed > shown) {
            scrolling << QStringLiteral("%1: page needs %2, shows %3, scrolls %4")
                             .arg(tabs.tabText(tab))
                             .arg(needed)
                             .arg(shown)
                             .arg(sideways);
        }
    }
    return scrolling;
}

// Puts the window's texts in `language`: English as written, a
// translation through `translation`, or "pseudo" through `pseudo`; false
// when that fails.
bool Speak(const QString& language, WindowLanguage& translation, QTranslator& pseudo) {
    if (language == QStringLiteral("pseudo")) {
        return pseudo.load(QStringLiteral(VELLUMO_PSEUDO_QM)) &&
               QCoreApplication::installTranslator(&pseudo);
    }
    return translation.Install({language}) == (language != QStringLiteral("en"));
}

QString Listed(const QStringList& problems) {
    return problems.join(QStringLiteral("\n  "));
}

}  // namespace

class TranslationsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    // Each test chooses its language; the next starts in English again.
    void cleanup() {
        vellumo::SetWindowLocale(QLocale::c());
        QLocale::setDefault(QLocale::system());
    }

    void everyLanguageIsCompleteAndKeepsThePlaceholders_data() {
        QTest::addColumn<QString>("path");
        for (const QString& path : QStringLiteral(VELLUMO_TS_FILES).split(QLatin1Char('|'))) {
            QTest::newRow(qPrintable(path.section(QLatin1Char('/'), -1))) << path;
        }
    }

    void everyLanguageIsCompleteAndKeepsThePlaceholders() {
        QFETCH(QString, path);
        const std::vector<Message> messages = ReadMessages(path);
        QVERIFY(messages.size() > 200);
        QStringList problems;
        for (const Message& message : messages) {
            const QString where = message.context + QStringLiteral(": ") + message.source;
            if (!message.finished) {
                problems << QStringLiteral("unfinished: ") + where;
            }
            for (const QString& translation : message.translations) {
                if (translation.trimmed().isEmpty()) {
                    problems << QStringLiteral("empty: ") + where;
                } else if (Placeholders(translation) != Placeholders(message.source)) {
                    problems << QStringLiteral("placeholders differ: ") + where;
                }
            }
        }
        qInfo("%s: %zu texts", qPrintable(path.section(QLatin1Char('/'), -1)), messages.size());
        QVERIFY2(problems.isEmpty(), qPrintable(Listed(problems)));
    }

    void theDesktopsFirstLanguageWithATranslationIsChosen() {
        WindowLanguage language;
        QVERIFY(language.Install({QStringLiteral("de-CH"), QStringLiteral("fr")}));
        QCOMPARE(language.language(), QLocale::German);
        QCOMPARE(QCoreApplication::translate("MainWindow", "Remove All"),
                 QStringLiteral("Alle entfernen"));
        // The plural forms are German's, the numbers grouped the German way.
        QCOMPARE(ListCountText(1234, 2), QStringLiteral("1.234 Bilder, 2 ausgewählt"));
        QCOMPARE(ListCountText(1, 0), QStringLiteral("1 Bild"));
        QCOMPARE(ListCountText(0, 0), QStringLiteral("Keine Bilder"));
        QCOMPARE(vellumo::DimensionText(vellumo::kWidthCaption, 6000.5),
                 QStringLiteral("Breite: 6.000"));
        // Qt's own buttons speak German too, where Debian's translations of
        // Qt are installed.
        if (QFile::exists(QStringLiteral("/usr/share/qt6/translations/qtbase_de.qm"))) {
            QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"),
                     QStringLiteral("Abbrechen"));
        }
    }

    // Run by its own ctest with LANGUAGE=de and LANG=C.UTF-8, as a desktop
    // sets them for a German session on an English system: the system
    // locale then says German but separates numbers the C way.
    void theDesktopsLanguageVariableIsFollowed() {
        if (qEnvironmentVariable("LANGUAGE") != QStringLiteral("de")) {
            QSKIP("needs LANGUAGE=de (vellumo_gui_translations_test.LANGUAGE=de)");
        }
        WindowLanguage language;
        QVERIFY(language.Install(WindowLanguage::PreferredLanguages()));
        QCOMPARE(language.language(), QLocale::German);
        QCOMPARE(vellumo::DimensionText(vellumo::kWidthCaption, 4080),
                 QStringLiteral("Breite: 4.080"));
        QCOMPARE(ListCountText(1234, 0), QStringLiteral("1.234 Bilder"));
    }

    void frenchAndSpanishHaveTheirOwnFormsAndNumbers() {
        {
            WindowLanguage french;
            QVERIFY(french.Install({QStringLiteral("fr-FR")}));
            QCOMPARE(ListCountText(2, 2), QString::fromUtf8("2 images, 2 sélectionnées"));
            QCOMPARE(vellumo::DimensionText(vellumo::kHeightCaption, 12000),
                     QString::fromUtf8("Hauteur\u00a0: 12\u202f000"));
        }
        WindowLanguage spanish;
        QVERIFY(spanish.Install({QStringLiteral("es")}));
        QCOMPARE(ListCountText(3, 0), QString::fromUtf8("3 imágenes"));
        QCOMPARE(vellumo::JobStatusText(1234, 5000, std::chrono::seconds(1234)),
                 QString::fromUtf8("Recortando 1235 de 5000 — quedan unos 63 min"));
    }

    void englishFirstKeepsTheTextsAsWritten() {
        WindowLanguage language;
        QVERIFY(!language.Install({QStringLiteral("en-GB"), QStringLiteral("de")}));
        QCOMPARE(language.language(), QLocale::English);
        QCOMPARE(QCoreApplication::translate("MainWindow", "Remove All"),
                 QStringLiteral("Remove All"));
        // Numbers as English always had them, whatever the system's locale
        // (the C.UTF-8 system locale would write "1,234").
        QCOMPARE(vellumo::DimensionText(vellumo::kWidthCaption, 6000),
                 QStringLiteral("Width: 6000"));
        QCOMPARE(ListCountText(1234, 2), QStringLiteral("1234 images, 2 selected"));
        QVERIFY(!WindowLanguage().Install({QStringLiteral("C")}));
        QVERIFY(!WindowLanguage().Install({QStringLiteral("nl-NL")}));
    }

    void theReportsCountsAreTheEnginesInEnglishAndTranslatedOtherwise() {
        using S = vellumo::ImageStatus;
        vellumo::JobReport stopped = Report({S::Written, S::Failed});
        stopped.stopped = true;
        stopped.total = 1300;
        vellumo::JobReport stoppedAtOne = Report({});
        stoppedAtOne.stopped = true;
        stoppedAtOne.total = 1;
        const std::vector<vellumo::JobReport> reports = {
            Report({S::Written}, 1),
            Report({S::Skipped}),
            Report({S::Written, S::Written, S::Failed}, 2),
            Report({S::Skipped, S::Skipped, S::Skipped}),
            Report({S::Planned, S::Planned}),
            stopped,
            stoppedAtOne,
        };
        for (const vellumo::JobReport& report : reports) {
            QCOMPARE(vellumo::JobCountsText(report),
                     QString::fromStdString(vellumo::JobSummaryText(report)));
        }
        QCOMPARE(vellumo::StoppedSentenceText(stopped),
                 QString::fromStdString(vellumo::JobResultSentence(stopped)));
        QCOMPARE(vellumo::StoppedSentenceText(stoppedAtOne),
                 QString::fromStdString(vellumo::JobResultSentence(stoppedAtOne)));

        WindowLanguage german;
        QVERIFY(german.Install({QStringLiteral("de")}));
        QCOMPARE(vellumo::JobCountsText(reports[2]),
                 QStringLiteral("3 Bilder: 2 geschrieben, 1 fehlgeschlagen; 2 mit Warnungen"));
        QCOMPARE(vellumo::JobCountsText(stopped),
                 QStringLiteral("1.300 Bilder: 1 geschrieben, 1 fehlgeschlagen, "
                                "1.298 nicht zugeschnitten"));
        QCOMPARE(
            vellumo::StoppedSentenceText(stopped),
            QStringLiteral("Das Zuschneiden wurde angehalten: 1 von 1.300 Bildern geschrieben."));
    }

    // The engine says what happened to an image in sentences with values;
    // the window words them in its language, and in English as the
    // command line prints them.
    void theEnginesSentencesAreWordedInTheWindowsLanguage() {
        using vellumo::Failure;
        using vellumo::FailureStage;
        using vellumo::Sentence;
        const vellumo::Sentences notes = {Sentence{"Clipped to %1 × %2", {"80", "58"}},
                                          vellumo::FirstPageNote(12)};
        std::string problem;
        vellumo::NameValues photo;
        photo.source = "/photos/a.jpg";
        const vellumo::ExpandedName name =
            vellumo::NameTemplate::Parse("[Camera]_[FileName]", problem)->Expand(photo);
        const Failure unreadable = Failure::At(
            FailureStage::Decode, Sentence{"the file is not an image Vellumo can read", {}});
        const Failure library = Failure::At(FailureStage::Decode, "VipsJpeg: Premature end");
        QCOMPARE(vellumo::EngineText(notes), QString::fromStdString(vellumo::EnglishLine(notes)));
        QCOMPARE(vellumo::EngineText(name.warnings),
                 QStringLiteral("[Camera] has no value: left empty in the name"));
        QCOMPARE(vellumo::FailureText(unreadable), QString::fromStdString(unreadable.reason));
        QCOMPARE(vellumo::FailureText(library), QString::fromStdString(library.reason));

        WindowLanguage german;
        QVERIFY(german.Install({QStringLiteral("de")}));
        QCOMPARE(vellumo::EngineText(notes),
                 QStringLiteral("Beschnitten auf 80 × 58; nur das erste Bild (von 12)"));
        QCOMPARE(vellumo::EngineText(name.warnings),
                 QStringLiteral("[Camera] hat keinen Wert: im Namen leer gelassen"));
        QCOMPARE(
            vellumo::FailureText(unreadable),
            QStringLiteral(
                "kann nicht dekodiert werden: die Datei ist kein Bild, das Vellumo lesen kann"));
        // A library's own words stay as they are, in the window's sentence.
        QCOMPARE(vellumo::FailureText(library),
                 QStringLiteral("kann nicht dekodiert werden: VipsJpeg: Premature end"));
        // The notice of a job that cannot start.
        QCOMPARE(vellumo::EngineText(*vellumo::CropJobRefusal({}, vellumo::CropSettings{})),
                 QStringLiteral("Es gibt keine Bilder zum Zuschneiden."));
        QCOMPARE(vellumo::OverwriteBoxRequest(QStringLiteral("/out/a.jpg")).text,
                 QStringLiteral("Die Datei /out/a.jpg existiert bereits. "
                                "Möchten Sie sie überschreiben?"));
    }

    void aLongerLanguageShowsNoEnglish() {
        QTranslator pseudo;
        QVERIFY(pseudo.load(QStringLiteral(VELLUMO_PSEUDO_QM)));
        QCoreApplication::installTranslator(&pseudo);
        LoadedWindow loaded;
        loaded.Show();
        const QStringList english = Untranslated(loaded.window());
        QVERIFY2(english.isEmpty(),
                 qPrintable(QStringLiteral("untranslated:\n  ") + Listed(english)));
    }

    void theSmallestWindowClipsNothingInAnyLanguage_data() {
        QTest::addColumn<QString>("language");
        for (const char* language : {"en", "de", "fr", "es", "pseudo"}) {
            QTest::newRow(language) << QString::fromLatin1(language);
        }
    }

    void noSettingsTabScrollsSidewaysAtTheSmallestWindow_data() {
        theSmallestWindowClipsNothingInAnyLanguage_data();
    }

    // A sideways scroll bar hides the end of every row from a reader who
    // does not think to scroll: at 625 x 512 each tab's page fits its width.
    void noSettingsTabScrollsSidewaysAtTheSmallestWindow() {
        QFETCH(QString, language);
        WindowLanguage translation;
        QTranslator pseudo;
        QVERIFY(Speak(language, translation, pseudo));
        LoadedWindow loaded;
        loaded.Show();
        loaded.window().resize(kSmallest);
        QApplication::processEvents();
        qInfo("%s at %d x %d:", qPrintable(language), loaded.window().width(),
              loaded.window().height());
        const QStringList scrolling = ScrollingSideways(loaded.Control<QTabWidget>("tabView"));
        QVERIFY2(scrolling.isEmpty(),
                 qPrintable(QStringLiteral("scrolling sideways:\n  ") + Listed(scrolling)));
    }

    // English, each translation, and the pseudo-translation 40 % longer.
    void theSmallestWindowClipsNothingInAnyLanguage() {
        QFETCH(QString, language);
        WindowLanguage translation;
        QTranslator pseudo;
        QVERIFY(Speak(language, translation, pseudo));
        LoadedWindow loaded;
        loaded.Show();
        QWidget& window = loaded.window();
        // Asked for less than it can take, the window takes its smallest.
        window.resize(kSmallest / 2);
        QApplication::processEvents();
        qInfo("%s: smallest window %d x %d; %s", qPrintable(language), window.width(),
              window.height(), qPrintable(PartsNeed(window)));
        QVERIFY2(window.width() <= kSmallest.width() && window.height() <= kSmallest.height(),
                 qPrintable(QStringLiteral("%1 x %2: %3")
                                .arg(window.width())
                                .arg(window.height())
                                .arg(PartsNeed(window))));
        window.resize(kSmallest);
        QApplication::processEvents();
        auto& tabs = loaded.Control<QTabWidget>("tabView");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            QApplication::processEvents();
            const QStringList clipped = Clipped(window);
            QVERIFY2(clipped.isEmpty(),
                     qPrintable(QStringLiteral("clipped:\n  ") + Listed(clipped)));
            const QStringList cut = CutOff(window);
            QVERIFY2(cut.isEmpty(), qPrintable(QStringLiteral("cut off:\n  ") + Listed(cut)));
            const QStringList overlapping = Overlapping(window);
            QVERIFY2(overlapping.isEmpty(),
                     qPrintable(QStringLiteral("overlapping:\n  ") + Listed(overlapping)));
        }
    }
};

QTEST_MAIN(TranslationsTest)
#include "TranslationsTest.moc"
