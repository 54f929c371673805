#pragma once

#include <QLocale>
#include <QStringList>
#include <QTranslator>

namespace vellumo {

// The language the window speaks: Vellumo's own texts (the .qm files built
// from resources/translations/ and embedded under :/i18n/) and Qt's texts of
// standard buttons and file dialogs (the qtbase_*.qm Qt installs), for the
// first of the person's languages that Vellumo has a translation for.
// English is the language the texts are written in: when it comes first, or
// no language has a translation, nothing is installed.
//
// Numbers shown in the texts follow the chosen language's locale
// (WindowLocale, and QLocale's default for Qt's widgets); in English they
// are written as they always were, without group separators, whatever the
// system's locale.
class WindowLanguage {
  public:
    // The person's languages in order of preference, as the desktop gives
    // them (LANGUAGE, then LC_ALL, LC_MESSAGES, LANG).
    static QStringList PreferredLanguages();

    // Chooses from `languages` ("de-DE", "fr", "en-GB"...) and installs the
    // translations into the application; false when the window stays in
    // English. Call once, before the window is made.
    bool Install(const QStringList& languages);

    // The language chosen, English when nothing was installed.
    QLocale::Language language() const { return language_; }

  private:
    bool Load(QLocale::Language language);

    QTranslator own_;
    QTranslator qt_;
    QLocale::Language language_ = QLocale::English;
};

}  // namespace vellumo
