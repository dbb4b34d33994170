#include "services/PlatformLanguage.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

namespace {
constexpr quint16 DefaultSublanguage = 1 << 10;

quint16 primaryLanguage(const QString& code)
{
    static const QHash<QString, quint16> table = {
        {"ar", 0x01}, {"bg", 0x02}, {"ca", 0x03}, {"zh", 0x04}, {"cs", 0x05}, {"da", 0x06},
        {"de", 0x07}, {"el", 0x08}, {"en", 0x09}, {"es", 0x0A}, {"fi", 0x0B}, {"fr", 0x0C},
        {"he", 0x0D}, {"hu", 0x0E}, {"is", 0x0F}, {"it", 0x10}, {"ja", 0x11}, {"ko", 0x12},
        {"nl", 0x13}, {"nb", 0x14}, {"nn", 0x14}, {"no", 0x14}, {"pl", 0x15}, {"pt", 0x16},
        {"rm", 0x17}, {"ro", 0x18}, {"ru", 0x19}, {"hr", 0x1A}, {"sr", 0x1A}, {"bs", 0x1A},
        {"sk", 0x1B}, {"sq", 0x1C}, {"sv", 0x1D}, {"th", 0x1E}, {"tr", 0x1F}, {"ur", 0x20},
        {"id", 0x21}, {"uk", 0x22}, {"be", 0x23}, {"sl", 0x24}, {"et", 0x25}, {"lv", 0x26},
        {"lt", 0x27}, {"fa", 0x29}, {"vi", 0x2A}, {"hy", 0x2B}, {"az", 0x2C}, {"eu", 0x2D},
        {"mk", 0x2F}, {"af", 0x36}, {"ka", 0x37}, {"fo", 0x38}, {"hi", 0x39}, {"mt", 0x3A},
        {"ga", 0x3C}, {"ms", 0x3E}, {"kk", 0x3F},
    };
    return table.value(code, 0);
}

QString readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll());
}
} // namespace

quint16 LanguageIdFromLocaleName(const QString& localeName)
{
    // "de_DE.UTF-8@euro" or a LANGUAGE list "de_AT:de:en": the first entry's language part.
    static const QRegularExpression language(QStringLiteral("^([A-Za-z]{2,3})(?:[_.@:-]|$)"));
    const auto match = language.match(localeName.trimmed());
    if (!match.hasMatch())
        return 0;
    const quint16 primary = primaryLanguage(match.captured(1).toLower());
    return primary == 0 ? 0 : quint16(DefaultSublanguage | primary);
}

QString LangFromLocaleConfig(const QString& configText)
{
    static const QRegularExpression lang(
        QStringLiteral("^\\s*(?:export\\s+)?LANG\\s*=\\s*[\"']?([^\"'\\s#]*)"),
        QRegularExpression::MultilineOption);
    const auto match = lang.match(configText);
    return match.hasMatch() ? match.captured(1) : QString();
}

quint16 GetUserDefaultUILanguage()
{
    for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString value = qEnvironmentVariable(variable);
        if (!value.isEmpty())
            return LanguageIdFromLocaleName(value);
    }
    return 0;
}

quint16 GetSystemDefaultLangID()
{
    for (const char* path : {"/etc/default/locale", "/etc/locale.conf"}) {
        const QString lang = LangFromLocaleConfig(readFile(QString::fromLatin1(path)));
        if (!lang.isEmpty())
            return LanguageIdFromLocaleName(lang);
    }
    return 0;
}
