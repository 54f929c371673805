#include "app/WindowLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include "ui/WindowLocale.h"

namespace vellumo {

namespace {

const QString kOwnTranslations = QStringLiteral(":/i18n");

// "vellumo_de", the file name lrelease gave the language's translation.
QString FileName(const QString& prefix, QLocale::Language language) {
    return prefix + QLatin1Char('_') + QLocale::languageToCode(language);
}

// The system's own locale when it is of `language` (so de_CH keeps its
// separators), otherwise the language's main one. Made from the system
// locale's name: the system locale itself takes its language from LANGUAGE
// but its separators from LC_NUMERIC, and would write "4,080" in German
// under LANGUAGE=de with LANG=C.UTF-8.
QLocale NumberLocale(QLocale::Language language) {
    const QLocale system(QLocale::system().name());
    return system.language() == language ? system : QLocale(language);
}

}  // namespace

QStringList WindowLanguage::PreferredLanguages() {
    return QLocale::system().uiLanguages();
}

bool WindowLanguage::Install(const QStringList& languages) {
    for (const QString& name : languages) {
        const QLocale::Language language = QLocale(name).language();
        // English, or the "C" locale, is the source text itself.
        if (language == QLocale::English || language == QLocale::C) {
            break;
        }
        if (Load(language)) {
            language_ = language;
            // Qt's widgets and the list's sorting follow the language too.
            QLocale::setDefault(NumberLocale(language));
            SetWindowLocale(NumberLocale(language));
            return true;
        }
    }
    return false;
}

bool WindowLanguage::Load(QLocale::Language language) {
    if (!own_.load(FileName(QStringLiteral("vellumo"), language), kOwnTranslations)) {
        return false;
    }
    QCoreApplication::installTranslator(&own_);
    // Qt's own texts are a comfort, not a condition: a system without them
    // shows Qt's standard buttons in English.
    if (qt_.load(FileName(QStringLiteral("qtbase"), language),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&qt_);
    }
    return true;
}

}  // namespace vellumo
