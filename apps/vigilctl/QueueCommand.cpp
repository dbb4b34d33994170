#include "QueueCommand.h"

#include "StoreGate.h"
#include "core/HandlerTable.h"
#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/PortAddress.h"
#include "platform/lbx/QueueStore.h"
#include "services/EventLoopWait.h"
#include "services/SettingsStore.h"
#include "sim/SimPrinter.h"

#include <memory>
#include <vector>

namespace {
const QString PortOption = QStringLiteral("--port");
const QString TypeOption = QStringLiteral("--type");
const QString FriendlyOption = QStringLiteral("--friendly");

// Opens every queue's wire at once and waits until each has come up or given up, or the
// time is over.
std::vector<std::unique_ptr<LbxQueue>> probe(const QList<QueueRecord>& records, int waitMs)
{
    std::vector<std::unique_ptr<LbxQueue>> queues;
    for (const QueueRecord& record : records)
        queues.push_back(std::make_unique<LbxQueue>(record));
    const auto settled = [&queues] {
        return std::all_of(queues.begin(), queues.end(), [](const auto& queue) {
            return queue->transport().state() != Transport::State::Connecting;
        });
    };
    TurnEventLoopUntil(settled, waitMs);
    return queues;
}

QString reachabilityOf(const LbxQueue& queue, int waitMs)
{
    switch (queue.transport().state()) {
    case Transport::State::Connected:
        return QStringLiteral("reachable");
    case Transport::State::Connecting:
        return QStringLiteral("unreachable: no answer within %1 s").arg(waitMs / 1000);
    case Transport::State::Closed:
    case Transport::State::Unusable:
        break;
    }
    return queue.reachability();
}

// What the driver that takes the printer type does with it, so that a mistyped type shows.
QString driverOf(qint16 printerNumber)
{
    const auto handler = HandlerTable::createFor(printerNumber);
    const QString name = handler ? handler->GetObjectName() : QString();
    if (name == QLatin1String("clsDominoHandlerC"))
        return QStringLiteral("Domino C-series coder: polled");
    if (name == QLatin1String("clsDominoHandlerA"))
        return QStringLiteral("Domino A-series coder: polled");
    if (name == QLatin1String("clsAveryHandler"))
        return QStringLiteral("Avery label printer: polled");
    if (name == QLatin1String("clsLBXPrinterHandler"))
        return QStringLiteral("local label printer: shown, not polled");
    return name.isEmpty() ? QStringLiteral("no driver") : name;
}
} // namespace

QueueCommand::QueueCommand(const Console& console)
    : m_console(console)
{}

QString QueueCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl queue list\n"
        "       vigilctl queue add NAME --port PORT --type NUMBER [--friendly TEXT]\n"
        "       vigilctl queue remove NAME\n"
        "\n"
        "  list     prints each queue: name, port, printer type, and whether the port can be\n"
        "           reached (each is tried for up to 3 s)\n"
        "  add      adds a printer and says which driver takes its type; a running program\n"
        "           shows it within a second\n"
        "  remove   removes a printer\n"
        "\n"
        "PORT is how the printer is reached:\n"
        "  HOST:PORT                  over the network, as in 10.0.4.21:9100\n"
        "  /dev/DEVICE[:BAUD[:8N1]]   over a serial line, as in /dev/ttyUSB0:9600:8N1\n"
        "  sim:KIND[?KNOB=VALUE&...]  a printer simulated inside the program, as in sim:echo\n"
        "NUMBER is the printer type, which chooses the driver.\n");
}

int QueueCommand::run(const QStringList& words)
{
    const CommandLine line(words, {}, {PortOption, TypeOption, FriendlyOption});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty())
        return m_console.fail(QStringLiteral("queue: unknown option %1").arg(line.unknownFlag()),
                              ExitBadArguments);
    if (!line.optionWithoutValue().isEmpty())
        return m_console.fail(
            QStringLiteral("queue: %1 needs a value").arg(line.optionWithoutValue()),
            ExitBadArguments);
    const QString verb = line.positional().value(0);
    const qsizetype arguments = line.positional().size() - 1;
    if (verb == QLatin1String("list") && arguments == 0)
        return list();
    if (verb == QLatin1String("add") && arguments == 1)
        return add(line);
    if (verb == QLatin1String("remove") && arguments == 1)
        return remove(line.positional().at(1));
    return m_console.fail(QStringLiteral("queue: say list, add NAME or remove NAME (see vigilctl "
                                         "queue --help)"),
                          ExitBadArguments);
}

int QueueCommand::list()
{
    if (const int code = StoreGate::open(StoreGate::Access::Read, m_console))
        return code;
    const QList<QueueRecord> records = QueueStore::load();
    const auto queues = probe(records, ProbeMs);
    QStringList names{QStringLiteral("NAME")};
    QStringList ports{QStringLiteral("PORT")};
    for (const QueueRecord& record : records) {
        names << SettingsStore::visibleName(record.name);
        ports << record.portName;
    }
    const auto widest = [](const QStringList& column) {
        qsizetype width = 0;
        for (const QString& text : column)
            width = std::max(width, text.size());
        return int(width) + 2;
    };
    const int nameWidth = widest(names);
    const int portWidth = widest(ports);
    m_console.out << names.first().leftJustified(nameWidth)
                  << ports.first().leftJustified(portWidth) << QStringLiteral("TYPE   PORT STATE")
                  << Qt::endl;
    for (qsizetype row = 0; row < records.size(); ++row) {
        const QueueRecord& record = records.at(row);
        m_console.out << names.at(row + 1).leftJustified(nameWidth)
                      << record.portName.leftJustified(portWidth)
                      << QString::number(record.printerNumber).leftJustified(7)
                      << reachabilityOf(*queues.at(row), ProbeMs) << Qt::endl;
    }
    return ExitDone;
}

int QueueCommand::add(const CommandLine& line)
{
    const std::optional<QString> port = line.value(PortOption);
    const std::optional<QString> type = line.value(TypeOption);
    if (!port || !type)
        return m_console.fail(QStringLiteral("queue add: --port and --type are needed"),
                              ExitBadArguments);
    bool ok = false;
    const int number = type->toInt(&ok);
    if (!ok || number < 1 || number > 32767)
        return m_console.fail(
            QStringLiteral("queue add: \"%1\" is no printer type (1 to 32767)").arg(*type),
            ExitBadArguments);
    const PortAddress address = PortAddress::parse(*port);
    if (address.kind == PortAddress::Kind::Unusable)
        return m_console.fail(QStringLiteral("queue add: %1").arg(address.problem),
                              ExitBadArguments);
    QString refusal;
    if (address.kind == PortAddress::Kind::Simulated &&
        !SimPrinter::fromAddress(address.simAddress, refusal))
        return m_console.fail(QStringLiteral("queue add: sim:%1").arg(refusal), ExitBadArguments);
    const QString name = line.positional().at(1);
    if (const QString problem = QueueStore::nameProblem(name); !problem.isEmpty())
        return m_console.fail(QStringLiteral("queue add: %1").arg(problem), ExitBadArguments);
    if (const int code = StoreGate::open(StoreGate::Access::Write, m_console))
        return code;
    QString problem;
    const QueueStore::Outcome added = QueueStore::add(
        {name, address.portName, qint16(number), line.value(FriendlyOption).value_or(name)},
        problem);
    if (!added)
        return m_console.fail(QStringLiteral("queue add: %1").arg(problem),
                              added.kind == QueueStore::Outcome::Refused ? ExitBadArguments
                                                                         : ExitUnavailable);
    m_console.out << QStringLiteral("added \"%1\", type %2, %3")
                         .arg(name)
                         .arg(number)
                         .arg(driverOf(qint16(number)))
                  << Qt::endl;
    return ExitDone;
}

int QueueCommand::remove(const QString& name)
{
    if (const int code = StoreGate::open(StoreGate::Access::Write, m_console))
        return code;
    QString problem;
    const QueueStore::Outcome removed = QueueStore::remove(name, problem);
    if (!removed)
        return m_console.fail(QStringLiteral("queue remove: %1").arg(problem),
                              removed.kind == QueueStore::Outcome::NoSuchQueue ? ExitNotFound
                                                                               : ExitUnavailable);
    return ExitDone;
}
