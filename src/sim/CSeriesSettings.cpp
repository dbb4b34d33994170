#include "sim/CSeriesSettings.h"

#include "sim/CSeriesArguments.h"
#include "sim/CSeriesCommand.h"
#include "sim/CSeriesErrorLog.h"

#include <QSet>
#include <algorithm>

namespace {
constexpr qint64 kLongestWait = 10'000'000; // seconds, about four months
constexpr qsizetype kLongestText = 32;
// A message is selected by at most 8 characters, so a longer name could never be selected.
constexpr qsizetype kLongestFileName = 8;

// The first bad knob is the one named, as SimKnobs does.
void refuse(QString& error, const QString& name, const QString& what)
{
    if (error.isEmpty())
        error = QStringLiteral("the knob \"%1\" %2").arg(name, what);
}

// Control bytes would cut a reply short, and the wire carries one byte per character.
bool isPrintable(const QString& text)
{
    for (const QChar c : text)
        if (c.unicode() < 32 || c.unicode() > 126)
            return false;
    return true;
}

QByteArray textOf(const SimKnobs& knobs, const QString& name, const QString& defaultText,
                  QString& error)
{
    const QString text = knobs.text(name, defaultText);
    if (text.isEmpty() || text.size() > kLongestText || !isPrintable(text)) {
        refuse(error, name,
               QStringLiteral("must be 1 to %1 printable ASCII characters").arg(kLongestText));
        return defaultText.toLatin1();
    }
    return text.toLatin1();
}

bool isName(const QString& name, qsizetype longest)
{
    return !name.isEmpty() && name.size() <= longest && isPrintable(name);
}

QList<QByteArray> namesOf(const SimKnobs& knobs, const QString& name, const QString& defaultText,
                          qsizetype longest, QString& error)
{
    const QString text = knobs.text(name, defaultText);
    if (text.trimmed().isEmpty())
        return {};
    QList<QByteArray> names;
    QSet<QString> seen;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const QString each = part.trimmed();
        if (!isName(each, longest) || seen.contains(each)) {
            refuse(error, name,
                   QStringLiteral("must be different names of 1 to %1 printable ASCII "
                                  "characters, separated by commas")
                       .arg(longest));
            return {};
        }
        seen.insert(each);
        names.append(each.toLatin1());
    }
    return names;
}

int commandOf(const SimKnobs& knobs, const QString& name, QString& error)
{
    const int code = int(knobs.number(name, -1, 0, 255, error));
    if (code >= 0 && !CSeriesCommand::isKnown(code)) {
        refuse(error, name, QStringLiteral("must be a command byte the printer knows"));
        return -1;
    }
    return code;
}

void readDateFormat(const SimKnobs& knobs, CSeriesSettings& settings, QString& error)
{
    const QString order = knobs.text(QStringLiteral("dateformat"), QStringLiteral("dmy")).toLower();
    if (order != QLatin1String("dmy") && order != QLatin1String("mdy"))
        refuse(error, QStringLiteral("dateformat"), QStringLiteral("must be dmy or mdy"));
    settings.bMonthFirst = order == QLatin1String("mdy");
    // A blank or a digit would run the date into the words around it.
    const QString separator = knobs.text(QStringLiteral("dateseparator"), QStringLiteral("/"));
    if (separator != QLatin1String("/") && separator != QLatin1String("-") &&
        separator != QLatin1String("."))
        refuse(error, QStringLiteral("dateseparator"), QStringLiteral("must be /, - or ."));
    else
        settings.dateSeparator = separator.at(0).toLatin1();
}

void readMessages(const SimKnobs& knobs, CSeriesSettings& settings, QString& error)
{
    settings.files =
        namesOf(knobs, QStringLiteral("files"), QStringLiteral("LINE1,BESTBY,BATCH07,EXPIRY01"),
                kLongestFileName, error);
    // Empty: no message is selected.
    const QString file =
        knobs.text(QStringLiteral("file"), QString::fromLatin1(settings.files.value(0))).trimmed();
    if (!file.isEmpty() && !isName(file, kLongestFileName))
        refuse(error, QStringLiteral("file"),
               QStringLiteral("must be 1 to %1 printable ASCII characters").arg(kLongestFileName));
    settings.currentFile = file.toLatin1();
    // The message in use is always one of the printer's files.
    if (!file.isEmpty() && !settings.files.contains(settings.currentFile))
        settings.files.append(settings.currentFile);
    settings.logos = namesOf(knobs, QStringLiteral("logos"), QStringLiteral("DOMINO,RECYCLE"),
                             kLongestText, error);
}

void readVersions(const SimKnobs& knobs, CSeriesSettings& settings, QString& error)
{
    // Read back as its first character and its last three, the latter as a number.
    settings.version = textOf(knobs, QStringLiteral("version"), QStringLiteral("A1.234"), error);
    const QByteArray lastThree = settings.version.right(3);
    if (settings.version.size() < 4 ||
        !std::all_of(lastThree.begin(), lastThree.end(), CSeriesArguments::isDigit))
        refuse(error, QStringLiteral("version"),
               QStringLiteral("must have at least 4 characters, the last three digits"));
    settings.app = textOf(knobs, QStringLiteral("app"), QStringLiteral("2.05"), error);
    settings.fpga = textOf(knobs, QStringLiteral("fpga"), QStringLiteral("1.10"), error);
}

void readFaults(const SimKnobs& knobs, CSeriesSettings& settings, QString& error)
{
    settings.nakCode = commandOf(knobs, QStringLiteral("nak"), error);
    settings.sohCode = commandOf(knobs, QStringLiteral("soh"), error);
    if (settings.nakCode >= 0 && settings.nakCode == settings.sohCode)
        refuse(error, QStringLiteral("soh"), QStringLiteral("must not be the same as \"nak\""));
    // Only these replies carry numbers as text.
    settings.garbleCode = commandOf(knobs, QStringLiteral("garble"), error);
    if (settings.garbleCode >= 0 && settings.garbleCode != CSeriesCommand::Status &&
        settings.garbleCode != CSeriesCommand::Setup &&
        settings.garbleCode != CSeriesCommand::ErrorLog)
        refuse(error, QStringLiteral("garble"), QStringLiteral("must be 14, 128 or 29"));
}
} // namespace

std::optional<CSeriesSettings> CSeriesSettings::read(const SimKnobs& knobs, QString& error)
{
    CSeriesSettings settings;
    settings.inkStatus = int(knobs.number(QStringLiteral("ink"), 0, 0, 3, error));
    settings.remaining = int(knobs.number(QStringLiteral("remaining"), 99, 0, 65535, error));
    settings.errors =
        int(knobs.number(QStringLiteral("errors"), 0, 0, CSeriesErrorLog::kCapacity, error));
    settings.wrap = int(knobs.number(QStringLiteral("wrap"), 0, 0, settings.errors, error));
    settings.count = int(knobs.number(QStringLiteral("count"), 0, 0, 65535, error));
    settings.heads = int(knobs.number(QStringLiteral("heads"), 6, 1, 6, error));
    settings.inkLowAfter = knobs.number(QStringLiteral("inklowafter"), -1, 0, kLongestWait, error);
    settings.errorAfter = knobs.number(QStringLiteral("errorafter"), -1, 0, kLongestWait, error);
    settings.errorFor = knobs.number(QStringLiteral("errorfor"), 0, 0, kLongestWait, error);
    settings.bHighBit = knobs.flag(QStringLiteral("highbit"), true, error);
    settings.bPacked = knobs.flag(QStringLiteral("packed"), true, error);
    readDateFormat(knobs, settings, error);
    readMessages(knobs, settings, error);
    readVersions(knobs, settings, error);
    readFaults(knobs, settings, error);
    if (!error.isEmpty())
        return std::nullopt;
    return settings;
}
