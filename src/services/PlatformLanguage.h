#pragma once

#include <QString>

// What stands in for the operating system's language calls: 16-bit language ids whose low
// six bits are the primary language, numbered as that system numbers them (de 7, en 9,
// fr 12, ja 17, ...). 0 means unknown.

// The user's language: the first of LANGUAGE, LC_ALL, LC_MESSAGES and LANG that is set.
quint16 GetUserDefaultUILanguage();
// The system's language: LANG in /etc/default/locale, else in /etc/locale.conf.
quint16 GetSystemDefaultLangID();

// "de_DE.UTF-8", "de:en", "fr", "C" -> the id of the first language named, or 0.
quint16 LanguageIdFromLocaleName(const QString& localeName);
// The LANG value of a locale configuration file's text ("LANG=de_DE.UTF-8", quotes allowed).
QString LangFromLocaleConfig(const QString& configText);
