#include "services/MessageCatalogue.h"

#include "services/ApplicationOptions.h"
#include "services/Conversions.h"
#include "services/ErrorBox.h"
#include "services/PlatformLanguage.h"
#include "services/SettingsAccess.h"

#include <QFile>

namespace {
const QString CommentMark = QStringLiteral("//");
const QString Escape = QStringLiteral("\\n");
const QString LineBreak = QStringLiteral("\r\n");

QString configuredLanguageUnder(const QString& sharedKey)
{
    QVariant language;
    TransferValueEx(HKEY_LOCAL_MACHINE, sharedKey + QStringLiteral("\\Settings"), TransferRead,
                    REG_SZ, QStringLiteral("Language"), language, QString(), false);
    return language.toString();
}

// A comment mark from the second character on cuts the line; a line that begins with one
// isn't a comment at all, and is kept whole, later marks included.
QString withoutComment(const QString& line)
{
    if (line.startsWith(CommentMark))
        return line;
    const qsizetype mark = line.indexOf(CommentMark, 1);
    if (mark < 0)
        return line;
    QString text = line.left(mark);
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}
} // namespace

MessageCatalogue& MessageCatalogue::process()
{
    static MessageCatalogue catalogue;
    return catalogue;
}

QString MessageCatalogue::getMessage(qint32 id, const QString& defaultText)
{
    if (id == NoMessage)
        return defaultText;
    if (!m_bLoaded)
        loadMessageFile(GetMessageFolder(), GetMessageFileName());
    if (id < 1 || id > capacity())
        return defaultText;
    return m_table.at(id);
}

QString MessageCatalogue::formatMessage(qint32 id, const QVariantList& args)
{
    QString text = getMessage(id, QString());
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString mark = QLatin1Char('%') + QString::number(i + 1);
        const qsizetype at = text.indexOf(mark);
        if (at >= 0)
            text.replace(at, mark.size(), TextOf(args.at(i)));
    }
    return text;
}

void MessageCatalogue::loadMessageFile(const QString& folder, const QString& fileName)
{
    // Set before the file is opened: a lookup made while the load runs, or after it failed,
    // never starts another load.
    m_bLoaded = true;
    if (m_table.size() < InitialCapacity + 1)
        m_table.resize(InitialCapacity + 1);

    const QString path = folder + fileName;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        ShowError(file.errorString() + LineBreak + path, QStringLiteral("LoadMessageFile"));
        return;
    }
    qsizetype lineNumber = 0;
    while (!file.atEnd()) {
        QByteArray bytes = file.readLine();
        if (bytes.isEmpty() && file.error() != QFileDevice::NoError) {
            ShowError(file.errorString() + LineBreak + path, QStringLiteral("LoadMessageFile"));
            return;
        }
        if (bytes.endsWith('\n'))
            bytes.chop(1);
        if (bytes.endsWith('\r'))
            bytes.chop(1);
        storeLine(++lineNumber, QString::fromUtf8(bytes));
    }
}

void MessageCatalogue::storeLine(qsizetype lineNumber, const QString& line)
{
    if (lineNumber > capacity())
        m_table.resize(lineNumber + Growth + 1);
    QString text = withoutComment(line);
    text.replace(Escape, LineBreak);
    m_table[lineNumber] = ApplyBranding(text);
}

QString GetMessage(qint32 id, const QString& defaultText)
{
    return MessageCatalogue::process().getMessage(id, defaultText);
}

QString FormatMessage(qint32 id, const QVariantList& args)
{
    return MessageCatalogue::process().formatMessage(id, args);
}

void LoadMessageFile(const QString& folder, const QString& fileName)
{
    MessageCatalogue::process().loadMessageFile(folder, fileName);
}

QString GetConfiguredLanguage()
{
    const QString language = configuredLanguageUnder(QStringLiteral("SOFTWARE\\Orvane\\Common"));
    return language.isEmpty() ? configuredLanguageUnder(QStringLiteral("SOFTWARE\\Trellan\\Common"))
                              : language;
}

QString LanguageCodeFromId(quint16 languageId)
{
    if (languageId == 0)
        return {};
    switch (languageId & 63) {
    case 6:
        return QStringLiteral("da");
    case 7:
        return QStringLiteral("de");
    case 9:
        return QStringLiteral("en");
    case 10:
        return QStringLiteral("es");
    case 12:
        return QStringLiteral("fr");
    case 16:
        return QStringLiteral("it");
    case 19:
        return QStringLiteral("nl");
    case 22:
        return QStringLiteral("pt");
    case 29:
        return QStringLiteral("sv");
    default:
        return {};
    }
}

QString ChooseLanguageCode(const QString& configured, quint16 userLanguageId,
                           quint16 systemLanguageId)
{
    if (!configured.isEmpty())
        return configured;
    if (const QString user = LanguageCodeFromId(userLanguageId); !user.isEmpty())
        return user;
    if (const QString system = LanguageCodeFromId(systemLanguageId); !system.isEmpty())
        return system;
    return QStringLiteral("en");
}

QString GetLanguageFolder()
{
    return QStringLiteral("MSG") + ChooseLanguageCode(GetConfiguredLanguage(),
                                                      GetUserDefaultUILanguage(),
                                                      GetSystemDefaultLangID());
}
