#include "HistoryCommand.h"

#include "HistorySince.h"
#include "StateShares.h"
#include "core/PresentTime.h"
#include "core/StateWords.h"
#include "services/SettingsStore.h"
#include "services/StateHistoryFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
const QString CsvFlag = QStringLiteral("--csv");
const QString JsonFlag = QStringLiteral("--json");
const QString SummaryFlag = QStringLiteral("--summary");
const QString SinceOption = QStringLiteral("--since");
const QString GroupSeparator = QStringLiteral(" / ");

QString timeText(qint64 atMs)
{
    return QDateTime::fromMSecsSinceEpoch(atMs).toString(Qt::ISODate);
}

QString csvField(const QString& text)
{
    static const QRegularExpression needsQuotes(QStringLiteral("[\",\r\n]"));
    if (!text.contains(needsQuotes))
        return text;
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

QString csvLine(const QStringList& fields)
{
    QStringList quoted;
    for (const QString& field : fields)
        quoted << csvField(field);
    return quoted.join(QLatin1Char(',')) + QLatin1Char('\n');
}

QString placeOf(const QStringList& groups, const QString& name)
{
    return (groups + QStringList{name}).join(GroupSeparator);
}

bool concerns(const StateChange& change, const QString& name)
{
    return name.isEmpty() || change.printer == name || change.printerId == name ||
           change.groups.contains(name);
}

QString percent(double share)
{
    return QString::number(share * 100.0, 'f', 1) + QLatin1Char('%');
}

QString oldStateWord(const StateChange& change)
{
    return change.oldState ? StateWord(*change.oldState) : QString();
}

QJsonObject sharesJson(const StateShares::Row& row)
{
    QJsonObject shares;
    for (int state = 0; state < StateShares::States; ++state)
        shares.insert(StateWord(state), row.share(state));
    return {{QStringLiteral("id"), row.id},
            {QStringLiteral("name"), row.name},
            {QStringLiteral("groups"), QJsonArray::fromStringList(row.groups)},
            {QStringLiteral("observedSeconds"), double(row.observedMs()) / 1000.0},
            {QStringLiteral("shares"), shares}};
}
} // namespace

HistoryCommand::HistoryCommand(const Console& console)
    : m_console(console)
{}

QString HistoryCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl history [NAME] [--since WHEN] [--summary] [--csv|--json]\n"
        "\n"
        "The printers' changes of state, newest last, as the window and vigilctl status wrote\n"
        "them while they polled to history.sqlite beside the store: time, the printer with its\n"
        "groups, the old and the new state, the alert. A printer's first line of a run is the\n"
        "state it came up in. The history keeps 90 days, or the days of the store value\n"
        "Software\\Orvane\\Vigil\\Options\\HistoryDays.\n"
        "\n"
        "NAME     only this printer (by name or id) or the printers of this group\n"
        "--since  from WHEN on: an ISO date (2026-11-20) or date and time (2026-11-20T06:00),\n"
        "         or back from now in days or hours (7d, 12h); by default all that is kept\n"
        "--summary  per printer and per group, the share of time in each state over the\n"
        "         period; a printer counts from the state it was in when the period began,\n"
        "         and its last state runs on to now\n"
        "--csv    comma-separated values with a heading line\n"
        "--json   one JSON array of changes, or for --summary an object {\"from\", \"to\",\n"
        "         \"printers\", \"groups\"}\n"
        "\n"
        "Exit codes: 0 done; 1 no printer or group of that NAME in the history; 2 a bad\n"
        "command line; 3 the history is missing or can't be read.\n");
}

int HistoryCommand::run(const QStringList& words)
{
    const CommandLine line(words, {CsvFlag, JsonFlag, SummaryFlag}, {SinceOption});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty() || line.positional().size() > 1 ||
        !line.optionWithoutValue().isEmpty() || (line.has(CsvFlag) && line.has(JsonFlag)))
        return m_console.fail(QStringLiteral("history: see vigilctl history --help"),
                              ExitBadArguments);
    const QDateTime now = PresentTime();
    qint64 fromMs = 0;
    if (const auto since = line.value(SinceOption)) {
        const auto from = HistorySince(*since, now);
        if (!from)
            return m_console.fail(QStringLiteral("history: --since takes an ISO date or date "
                                                 "and time, or a span such as 7d or 12h, not "
                                                 "\"%1\"")
                                      .arg(*since),
                                  ExitBadArguments);
        fromMs = from->toMSecsSinceEpoch();
    }

    StateHistoryFile file(StateHistoryFile::pathBeside(SettingsStore::defaultFilePath()),
                          StateHistoryFile::Mode::Read);
    QList<StateChange> read;
    if (!file.read(fromMs, read))
        return m_console.fail(QStringLiteral("history: ") + file.problem(), ExitUnavailable);

    const QString name = line.positional().value(0);
    QList<StateChange> changes;
    for (const StateChange& change : std::as_const(read))
        if (concerns(change, name))
            changes.append(change);
    if (!name.isEmpty() && changes.isEmpty())
        return m_console.fail(
            QStringLiteral("history: no printer or group named \"%1\" in the history").arg(name),
            ExitNotFound);

    const Format format = line.has(CsvFlag)    ? Format::Csv
                          : line.has(JsonFlag) ? Format::Json
                                               : Format::Text;
    if (line.has(SummaryFlag)) {
        const qint64 toMs = now.toMSecsSinceEpoch();
        // Without --since the period begins with the oldest change kept.
        if (!line.value(SinceOption))
            fromMs = changes.isEmpty() ? toMs : changes.first().atMs;
        printShares(StateShares(changes, fromMs, toMs), fromMs, toMs, format);
    } else {
        // The states the printers were in before the period only serve the summary.
        changes.removeIf([fromMs](const StateChange& change) { return change.atMs < fromMs; });
        printChanges(changes, format);
    }
    m_console.out.flush();
    return ExitDone;
}

void HistoryCommand::printChanges(const QList<StateChange>& changes, Format format) const
{
    if (format == Format::Json) {
        QJsonArray lines;
        for (const StateChange& change : changes)
            lines.append(QJsonObject{
                {QStringLiteral("time"), timeText(change.atMs)},
                {QStringLiteral("printerId"), change.printerId},
                {QStringLiteral("printer"), change.printer},
                {QStringLiteral("groups"), QJsonArray::fromStringList(change.groups)},
                {QStringLiteral("old"),
                 change.oldState ? QJsonValue(StateWord(*change.oldState)) : QJsonValue()},
                {QStringLiteral("new"), StateWord(change.newState)},
                {QStringLiteral("alert"), change.alert}});
        m_console.out << QJsonDocument(lines).toJson();
        return;
    }
    if (format == Format::Csv)
        m_console.out << "time,printer_id,printer,groups,old_state,new_state,alert\n";
    for (const StateChange& change : changes) {
        if (format == Format::Csv) {
            m_console.out << csvLine({timeText(change.atMs), change.printerId, change.printer,
                                      change.groups.join(GroupSeparator), oldStateWord(change),
                                      StateWord(change.newState), change.alert});
            continue;
        }
        const QString move = change.oldState
                                 ? QStringLiteral("%1 -> %2")
                                       .arg(StateWord(*change.oldState), StateWord(change.newState))
                                 : QStringLiteral("came up %1").arg(StateWord(change.newState));
        m_console.out << timeText(change.atMs) << "  " << placeOf(change.groups, change.printer)
                      << "  " << move;
        if (!change.alert.isEmpty())
            m_console.out << "  \"" << change.alert << '"';
        m_console.out << '\n';
    }
}

void HistoryCommand::printShares(const StateShares& shares, qint64 fromMs, qint64 toMs,
                                 Format format) const
{
    if (format == Format::Json) {
        QJsonArray printers;
        QJsonArray groups;
        for (const StateShares::Row& row : shares.printers())
            printers.append(sharesJson(row));
        for (const StateShares::Row& row : shares.groups())
            groups.append(sharesJson(row));
        m_console.out << QJsonDocument(QJsonObject{{QStringLiteral("from"), timeText(fromMs)},
                                                   {QStringLiteral("to"), timeText(toMs)},
                                                   {QStringLiteral("printers"), printers},
                                                   {QStringLiteral("groups"), groups}})
                             .toJson();
        return;
    }
    const auto kinds = {std::pair{QStringLiteral("printer"), &shares.printers()},
                        std::pair{QStringLiteral("group"), &shares.groups()}};
    if (format == Format::Csv) {
        QStringList heading{QStringLiteral("kind"), QStringLiteral("name"),
                            QStringLiteral("groups"), QStringLiteral("observed_seconds")};
        for (int state = 0; state < StateShares::States; ++state)
            heading << StateWord(state);
        m_console.out << csvLine(heading);
        for (const auto& [kind, rows] : kinds)
            for (const StateShares::Row& row : *rows) {
                QStringList fields{kind, row.name, row.groups.join(GroupSeparator),
                                   QString::number(row.observedMs() / 1000)};
                for (int state = 0; state < StateShares::States; ++state)
                    fields << QString::number(row.share(state), 'f', 4);
                m_console.out << csvLine(fields);
            }
        return;
    }
    m_console.out << "Share of time in each state from " << timeText(fromMs) << " to "
                  << timeText(toMs) << '\n';
    for (const auto& [kind, rows] : kinds)
        for (const StateShares::Row& row : *rows) {
            QStringList parts;
            for (int state = 0; state < StateShares::States; ++state)
                if (row.ms[state] > 0)
                    parts << StateWord(state) + QLatin1Char(' ') + percent(row.share(state));
            m_console.out << kind << "  " << placeOf(row.groups, row.name) << ": "
                          << (parts.isEmpty() ? QStringLiteral("nothing observed")
                                              : parts.join(QStringLiteral(", ")))
                          << '\n';
        }
}
