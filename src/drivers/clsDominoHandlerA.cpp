#include "drivers/clsDominoHandlerA.h"

#include "core/IconFiles.h"
#include "core/clsComponent.h"
#include "drivers/clsASeriesMessage.h"
#include "drivers/clsAlarms.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QtEndian>

namespace {
const QString Context = QStringLiteral("clsDominoHandlerA - ");

constexpr qint32 MsgRequestFailed = 255;
// The failures of reply types 4, 5 and 6, in that order.
constexpr qint32 MsgFirstFailure = 256;

constexpr qint32 TypeWrite = 0;
constexpr qint32 TypeRead = 1;
constexpr qint32 TypeFirstFailure = 4;
constexpr qint32 TypeLastFailure = 6;

constexpr quint8 IdConfiguration = 97;
constexpr quint8 IdLastCommand = 74;
constexpr quint8 IdClock = 34;
constexpr quint8 IdCounts = 64;
constexpr quint8 IdAlarms = 233;
constexpr quint8 IdCounters = 69;
constexpr quint8 IdConsoleFailure = 9;

// The console's commands: their labels are messages 291 on, one a command.
constexpr quint8 ConsoleIds[] = {
    0,   1,   2,   16,  17,  18,  19,  20,  32,  33,  34,  37,  48,  49,  50,  51,  52,
    53,  54,  55,  57,  58,  59,  64,  65,  66,  67,  68,  69,  70,  71,  72,  73,  74,
    75,  76,  77,  78,  79,  80,  93,  96,  97,  98,  99,  100, 101, 102, 103, 104, 105,
    106, 107, 108, 110, 111, 112, 114, 118, 124, 129, 130, 145, 149, 155, 158, 159, 176,
    177, 178, 179, 180, 181, 182, 183, 184, 185, 186, 187, 188, 189, 190, 191, 192, 193,
    160, 161, 162, 163, 224, 225, 226, 227, 232, 233, 252, 253, 254, 255,
};
constexpr qint32 FirstConsoleLabel = 291;

QString commandName(quint8 id)
{
    switch (id) {
    case IdClock:
        return QStringLiteral("Real Time Clock Set-up");
    case IdConfiguration:
        return QStringLiteral("Printer Configuration");
    default:
        return QStringLiteral("Last Command");
    }
}

qint32 littleEndian32(const clsASeriesMessage& message, qint32 first)
{
    const QByteArray bytes = message.GetDataRange(first, first + 3, 1);
    return qFromLittleEndian<qint32>(bytes.constData());
}

// The state an alarm level stands for.
ErrorState stateOfLevel(qint32 level)
{
    switch (level) {
    case 1:
        return StateWarning;
    case 2:
        return StateFault;
    default:
        return StateGood;
    }
}
} // namespace

clsDominoHandlerA::clsDominoHandlerA() = default;
clsDominoHandlerA::~clsDominoHandlerA() = default;

bool clsDominoHandlerA::Initialise(clsComponent* oComponent, const QString& sKey,
                                   const QString& sName)
{
    m_oComponent = oComponent;
    m_sKey = sKey;
    m_sName = sName;
    if (!attachQueue(sName))
        return false;
    m_nStage = StageIdle;
    return true;
}

void clsDominoHandlerA::setDisabled(bool disabled)
{
    m_bDisabled = disabled;
    emit StatusChanged();
}

QString clsDominoHandlerA::PrinterIcon(qint32)
{
    return IconFile(QStringLiteral("Printer_A_Series.ico"));
}

bool clsDominoHandlerA::PortBusy()
{
    return busyOfNode(m_oComponent);
}

void clsDominoHandlerA::setPortBusy(bool busy)
{
    setBusyOfNode(m_oComponent, busy);
}

bool clsDominoHandlerA::IsPrinterTypeSupported(qint32 lPrinterNumber) const
{
    return lPrinterNumber >= 2010 && lPrinterNumber <= 2019;
}

void clsDominoHandlerA::ResetCurrentCommand()
{
    IgnoringFailure([this] {
        m_nStage = StageIdle;
        if (queue())
            queue()->setReplyWanted(false);
    });
}

void clsDominoHandlerA::Process()
{
    RunTrapped(Context + QStringLiteral("Process"), [this] {
        if ((queue() && queue()->PendingItems() >= 1) || m_nStage != StageIdle)
            return;
        m_nStage = StageFirst;
        ProcessStage();
    });
}

void clsDominoHandlerA::ProcessStage()
{
    RunTrapped(Context + QStringLiteral("ProcessStage"), [this] {
        if (queue() && queue()->PendingItems() >= 1) {
            m_nStage = StageIdle;
            return;
        }
        const QByteArray frame = prepareStage();
        if (frame.isEmpty())
            return;
        if (m_nStage == m_nLastStageSent && m_nStage != StageFirst &&
            m_nStage != StageConfiguration) {
            ++m_nStage;
            return;
        }
        setPortBusy(false);
        m_nLastStageSent = m_nStage;
        if (m_bDisabled) {
            // Nothing goes out; at rest, the first tick after the node is enabled again starts
            // a round.
            m_nStage = StageIdle;
            emit StatusChanged();
            return;
        }
        if (!queue())
            return;
        queue()->setReplyWanted(true);
        queue()->SendData(frame);
        replyClock().start();
    });
}

QByteArray clsDominoHandlerA::prepareStage()
{
    clsASeriesMessage message;
    const auto read = [&](quint8 id) {
        m_nExpectedCommand = id;
        return message.BuildCommand(id, TypeRead);
    };
    switch (m_nStage) {
    case StageFirst:
    case StageConfiguration:
        m_nStage = StageConfiguration;
        return read(IdConfiguration);
    case StageRaster:
        m_nExpectedCommand = IdLastCommand;
        return message.BuildCommandWithData(IdLastCommand, TypeRead, QByteArray(1, '\0'), false);
    case StageClock:
        return read(IdClock);
    case StageCounts:
        return read(IdCounts);
    case StageAlarms:
        return read(IdAlarms);
    case StageCounters:
        return read(IdCounters);
    case StageSetClock: {
        m_nExpectedCommand = IdClock;
        const QDate date = m_dtClock.date();
        const QTime time = m_dtClock.time();
        const char data[] = {char(date.year() / 100), char(date.year() % 100), char(date.month()),
                             char(date.day()),        char(time.hour()),       char(time.minute()),
                             char(time.second())};
        return message.BuildCommandWithData(IdClock, TypeWrite, QByteArray(data, 7), false);
    }
    case StageConsole: {
        m_nLastStageSent = StageIdle;
        ICommandConsole* console = m_console.visibleConsole();
        const auto command = console ? console->currentFrameCommand() : std::nullopt;
        if (!command)
            return {};
        m_nExpectedCommand = command->id;
        return message.BuildCommandWithData(command->id, command->type, command->data,
                                            !command->usesData);
    }
    default:
        return {};
    }
}

void clsDominoHandlerA::ProcessResponse(const QByteArray& sReply)
{
    ProcessResponse(sReply, false);
}

bool clsDominoHandlerA::ProcessResponse(const QByteArray& sReply, bool bSuppress)
{
    bool good = false;
    RunTrapped(Context + QStringLiteral("ProcessResponse"), [&] {
        clsASeriesMessage message;
        good = message.ParseMessage(sReply, m_nExpectedCommand);
        if (!good) {
            if (m_nStage >= StageConfiguration && m_nStage <= StageCounters) {
                // The request that failed is skipped: the round goes on.
                moveOn();
            } else if (m_nStage == StageConsole) {
                m_nStage = StageIdle;
                if (ICommandConsole* console = m_console.console())
                    console->SetResponseBytes(
                        clsASeriesMessage().BuildCommand(IdConsoleFailure, TypeLastFailure));
            }
            return;
        }
        const qint32 type = message.CommandType();
        if (type >= TypeFirstFailure && type <= TypeLastFailure)
            m_sHighestAlert =
                FormatMessage(MsgRequestFailed, {GetMessage(MsgFirstFailure + type - 4),
                                                 commandName(message.CommandID())});
        readReply(message);
        if (m_nStage >= StageConfiguration && m_nStage <= StageCounters) {
            moveOn();
        } else {
            if (m_nStage == StageConsole)
                if (ICommandConsole* console = m_console.console())
                    console->SetResponseBytes(message.Raw());
            m_nStage = StageIdle;
        }
        if (m_nStage == StageIdle && queue())
            queue()->setReplyWanted(false);
        RaiseStatusChanged(bSuppress);
    });
    return good;
}

void clsDominoHandlerA::moveOn()
{
    ++m_nStage;
    ProcessStage();
}

void clsDominoHandlerA::readReply(const clsASeriesMessage& message)
{
    switch (m_nStage) {
    case StageConfiguration: {
        const QStringList strings = message.GetStringNZArray(5, 1);
        if (strings.size() >= 6) {
            m_sMachineType = strings.at(3);
            m_sInkSystem = strings.at(4);
            m_sNozzleType = strings.at(5);
        }
        break;
    }
    case StageRaster: {
        qint32 end = 0;
        qint32 position = 1;
        if (message.GetStringNZ(position, 1, end).isEmpty())
            position = end + 1;
        const QStringList strings = message.GetStringNZArray(position, 1);
        if (strings.size() >= 2)
            m_sRasterType = strings.at(1).trimmed();
        break;
    }
    case StageClock:
        if (message.GetData().size() >= 7) {
            const auto byte = [&message](qint32 position) {
                return int(message.GetDataSingle(position, 1));
            };
            m_dtDateTime = QDateTime(QDate(byte(1) * 100 + byte(2), byte(3), byte(4)),
                                     QTime(byte(5), byte(6), byte(7)));
        }
        break;
    case StageCounts:
        m_lPrintDetected = littleEndian32(message, 1);
        m_lPrintCount = littleEndian32(message, 5);
        break;
    case StageAlarms:
        readAlarms(message);
        break;
    case StageCounters:
        for (int counter = 0; counter < 3; ++counter)
            m_counters[counter] = littleEndian32(message, 1 + 4 * counter);
        break;
    default:
        break;
    }
}

void clsDominoHandlerA::readAlarms(const clsASeriesMessage& message)
{
    m_nAlarmState = StateGood;
    const int count = message.GetDataSingle(1, 1);
    m_alarms.clear();
    for (int index = 1; index <= count; ++index) {
        Alarm alarm;
        alarm.AlarmId = message.GetDataSingle(2 * index, 1);
        alarm.status = message.GetDataSingle(2 * index + 1, 1);
        std::shared_ptr<clsAlarms> known;
        IgnoringFailure([&] { known = GetAlarmLookup(1).Item(QString::number(alarm.AlarmId)); });
        if (!known) {
            // An alarm the catalogue doesn't know counts as a fault.
            m_sHighestAlert.clear();
            m_nAlarmState = std::max(m_nAlarmState, StateFault);
        } else {
            alarm.AlarmText = known->AlarmText;
            const ErrorState state = stateOfLevel(known->AlarmLevel);
            if (state > StateGood && state > m_nAlarmState)
                m_sHighestAlert = known->AlarmText;
            m_nAlarmState = std::max(m_nAlarmState, state);
        }
        m_alarms.append(alarm);
    }
}

ErrorState clsDominoHandlerA::GetErrorState()
{
    if (m_bDisabled)
        return StateDisabled;
    if (replyClock().timedOut())
        return StateNoAnswer;
    return m_nAlarmState;
}

void clsDominoHandlerA::PopulateAlertListBox(QStringList& list) const
{
    list.clear();
    for (const Alarm& alarm : m_alarms)
        list.append(QStringLiteral("%1 (%2)").arg(alarm.AlarmText).arg(alarm.AlarmId));
}

void clsDominoHandlerA::SyncTime(const QDateTime& dtTime)
{
    m_dtClock = dtTime;
    m_nStage = StageSetClock;
    ProcessStage();
    m_nStage = StageFirst;
    ProcessStage();
}

void clsDominoHandlerA::InvokeCommandTesting()
{
    QList<std::pair<qint32, char>> commands;
    for (qsizetype index = 0; index < qsizetype(std::size(ConsoleIds)); ++index)
        commands.append({FirstConsoleLabel + qint32(index), char(ConsoleIds[index])});
    m_console.open({true, false, true}, commands, CommandConsoleSession::hooksOf(*this));
}

void clsDominoHandlerA::FireCommandTest()
{
    m_nStage = StageConsole;
    ProcessStage();
}

void clsDominoHandlerA::EndCommandTesting()
{
    if (m_console.close())
        ResetCurrentCommand();
}

void clsDominoHandlerA::CloseDown()
{
    if (queue())
        queue()->setReplyWanted(false);
    QueuedPrinterHandler::CloseDown();
}
