#include "drivers/clsDominoHandlerC.h"

#include "core/IconFiles.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "drivers/DominoCCommands.h"
#include "drivers/ICommandConsole.h"
#include "drivers/PrinterDateTime.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"
#include "services/VigilError.h"

namespace {
const QString Context = QStringLiteral("clsDominoHandlerC - ");
// No printer sends this: as the only error string it lets any byte through.
const QByteArray NoErrorString = QByteArrayLiteral("nevergetthis");

constexpr qint32 MsgCommsDetail = 115;
constexpr qint32 MsgInkAlert = 169;
constexpr qint32 MsgNak = 171;

// The commands the console offers, each with the message that labels it.
constexpr std::pair<qint32, char> ConsoleCommands[] = {
    {235, 26}, {236, 23}, {237, 27}, {238, 16}, {239, 21}, {240, 22},
    {241, 17}, {242, 20}, {243, 18}, {244, 19}, {245, 4},  {246, 15},
    {247, 25}, {248, 24}, {249, 14}, {250, 29}, {251, 10}, {252, 1},
};

QByteArray bytes(char byte)
{
    return QByteArray(1, byte);
}

void raiseTo(ErrorState& state, ErrorState level)
{
    state = std::max(state, level);
}
} // namespace

clsDominoHandlerC::clsDominoHandlerC() = default;
clsDominoHandlerC::~clsDominoHandlerC() = default;

bool clsDominoHandlerC::Initialise(clsComponent* oComponent, const QString& sKey,
                                   const QString& sName)
{
    m_oComponent = oComponent;
    m_sKey = sKey;
    m_sName = sName;
    QString stored;
    m_bCheckErrorLog = oComponent && oComponent->GetStoredSetting(CheckErrorLogSetting, stored) &&
                       stored.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
    m_bMonthFirst = PrinterDateTime::localeWritesMonthFirst();
    if (!attachQueue(sName))
        return false;
    m_values = DominoCValues();
    m_nStage = StageStatus;
    m_nLastStageSent = StageStatus;
    m_lCommsErrors = 0;
    m_stitcher.SetErrorStrings({bytes(DominoC::Nak), bytes(DominoC::Soh)});
    m_stitcher.SetTerminiatingSequences({bytes(DominoC::Terminator)});
    return true;
}

void clsDominoHandlerC::setDisabled(bool disabled)
{
    m_bDisabled = disabled;
    emit StatusChanged();
}

QString clsDominoHandlerC::PrinterIcon(qint32)
{
    return IconFile(QStringLiteral("Printer_C_Series.ico"));
}

bool clsDominoHandlerC::PortBusy()
{
    return busyOfNode(m_oComponent);
}

void clsDominoHandlerC::setPortBusy(bool busy)
{
    setBusyOfNode(m_oComponent, busy);
}

bool clsDominoHandlerC::IsPrinterTypeSupported(qint32 lPrinterNumber) const
{
    return (lPrinterNumber >= 2000 && lPrinterNumber <= 2009) ||
           (lPrinterNumber >= 2100 && lPrinterNumber <= 2199);
}

// The stages of the engine. Stages 0 to 6 are one poll round: a tick sends the status
// request, and each reply that is read sends the next stage's command at once, until the
// round rests at 7. Stage 2 belongs to the round only while the error log is asked for.
// Stages 9 to 16 are the user's actions and 17 the console; an action replaces the stage in
// hand and goes out at once.
// clang-format off
using Handler = clsDominoHandlerC;
using namespace DominoC;
const Handler::StageRow Handler::Stages[] = {
    // stage              command                         reply ends by              read                        next              then
    {StageStatus,         &Handler::bare<CmdStatus>,      ReplyEnd::Terminator,      &Handler::readStatusReport, StageSetup,       Then::SendNext},
    {StageSetup,          &Handler::bare<CmdSetup>,       ReplyEnd::Terminator,      &Handler::readSetupList,    StageErrorLog,    Then::SendNext},
    {StageErrorLog,       &Handler::bare<CmdErrorLog>,    ReplyEnd::TerminatorOrNak, &Handler::readErrorLog,     StageLogoList,    Then::SendNext},
    {StageLogoList,       &Handler::bare<CmdLogoList>,    ReplyEnd::Cr,              &Handler::readLogoList,     StageCurrentFile, Then::SendNext},
    {StageCurrentFile,    &Handler::bare<CmdCurrentFile>, ReplyEnd::Cr,              &Handler::readCurrentFile,  StagePrintCount,  Then::SendNext},
    {StagePrintCount,     &Handler::bare<CmdPrintCount>,  ReplyEnd::TwoBytes,        &Handler::readPrintCount,   StageFileList,    Then::SendNext},
    {StageFileList,       &Handler::bare<CmdFileList>,    ReplyEnd::Cr,              &Handler::readFileList,     StageIdle,        Then::SendNext},
    // Idle: a late piece ends only at the end byte, and isn't read.
    {StageIdle,           nullptr,                        ReplyEnd::Terminator,      nullptr,                    StageStatus,      Then::Rest},
    {StageSetShifts,      &Handler::shiftsCommand,        ReplyEnd::NotAwaited,      nullptr,                    StageStatus,      Then::Rest},
    {StageSetDirection,   &Handler::directionCommand,     ReplyEnd::Terminator,      nullptr,                    StageStatus,      Then::Rest},
    {StageSetOrientation, &Handler::orientationCommand,   ReplyEnd::Terminator,      nullptr,                    StageStatus,      Then::Rest},
    {StageSetClock,       &Handler::clockCommand,         ReplyEnd::NotAwaited,      nullptr,                    StageStatus,      Then::Rest},
    {StageSetCounts,      &Handler::countsCommand,        ReplyEnd::NotAwaited,      nullptr,                    StageStatus,      Then::Rest},
    {StageSelectMessage,  &Handler::selectMessageCommand, ReplyEnd::Ack,             nullptr,                    StageStatus,      Then::Rest},
    {StageConsole,        &Handler::consoleCommand,       ReplyEnd::Anything,        &Handler::showOnConsole,    StageConsole,     Then::Rest},
};
// clang-format on

const clsDominoHandlerC::StageRow& clsDominoHandlerC::rowOf(qint32 stage)
{
    const auto row = std::find_if(std::begin(Stages), std::end(Stages),
                                  [stage](const StageRow& each) { return each.stage == stage; });
    // The engine only ever takes the stages of the table.
    Q_ASSERT(row != std::end(Stages));
    return *row;
}

clsDominoHandlerC::Stage clsDominoHandlerC::stageAfter(const StageRow& row) const
{
    if (row.next == StageErrorLog && !m_bCheckErrorLog)
        return rowOf(StageErrorLog).next;
    return row.next;
}

void clsDominoHandlerC::Process()
{
    RunTrapped(Context + QStringLiteral("Process"), [this] {
        if (queue() && queue()->PendingItems() >= 1)
            return;
        if (m_nStage != StageIdle && m_nStage != StageStatus)
            return;
        m_nStage = StageStatus;
        ProcessStage();
    });
}

void clsDominoHandlerC::ProcessStage()
{
    RunTrapped(Context + QStringLiteral("ProcessStage"), [this] {
        if (queue() && queue()->PendingItems() >= 1) {
            m_nStage = StageIdle;
            return;
        }
        m_stitcher.AcceptAnything(false);
        const StageRow& row = rowOf(m_nStage);
        if (!row.command)
            return;
        const QByteArray command = (this->*row.command)();
        expectReply(row.replyEnd);
        if (row.replyEnd == ReplyEnd::NotAwaited)
            m_nStage = row.next;
        if (command.isEmpty())
            return;
        if (row.stage == StageConsole) {
            // Sent also on a disabled node, with no reply clock.
            if (queue()) {
                queue()->setReplyWanted(true);
                queue()->SendData(command);
            }
            return;
        }
        if (m_bDisabled) {
            // Nothing goes out; at rest, the first tick after the node is enabled again starts
            // a round.
            m_nStage = StageIdle;
            emit StatusChanged();
            return;
        }
        if (m_nStage != StageStatus && m_nStage == m_nLastStageSent)
            return;
        setPortBusy(false);
        m_nLastStageSent = m_nStage;
        send(command);
    });
}

void clsDominoHandlerC::expectReply(ReplyEnd end)
{
    // Each reply starts from the permanent terminator and error bytes.
    m_stitcher.ClearTempErrors();
    m_stitcher.ClearTempTerminiatingSequences();
    switch (end) {
    case ReplyEnd::Terminator:
    case ReplyEnd::NotAwaited:
        break;
    case ReplyEnd::TerminatorOrNak:
        m_bAcceptNakOnce = true;
        break;
    case ReplyEnd::Cr:
        m_stitcher.SetTempTerminiatingSequences({bytes(DominoC::Cr)});
        break;
    case ReplyEnd::Ack:
        m_stitcher.SetTempTerminiatingSequences({bytes(DominoC::Ack)});
        break;
    case ReplyEnd::TwoBytes:
        // Two raw bytes that may be anything, 21 and 1 included.
        m_stitcher.SetTempErrorStrings({NoErrorString});
        m_stitcher.FixedLength(2);
        break;
    case ReplyEnd::Anything:
        m_stitcher.AcceptAnything(true);
        break;
    }
}

void clsDominoHandlerC::send(const QByteArray& command)
{
    if (!queue())
        return;
    queue()->setReplyWanted(true);
    queue()->SendData(command);
    replyClock().start();
    // A report cut short waits for the next tick's report to join it; anything else starts
    // anew.
    m_bReportAskedAgain = m_eUnfinished == Unfinished::Incomplete && m_nStage == StageStatus;
    if (!m_bReportAskedAgain)
        m_eUnfinished = Unfinished::None;
}

QByteArray clsDominoHandlerC::shiftsCommand() const
{
    return DominoC::SetShifts(m_oShifts);
}

QByteArray clsDominoHandlerC::directionCommand() const
{
    return DominoC::SetDirection(m_nDirection);
}

QByteArray clsDominoHandlerC::orientationCommand() const
{
    return DominoC::SetOrientation(m_nOrientation);
}

QByteArray clsDominoHandlerC::clockCommand() const
{
    return DominoC::SetClock(m_dtClock);
}

QByteArray clsDominoHandlerC::countsCommand() const
{
    return DominoC::SetCounts(m_lCount);
}

QByteArray clsDominoHandlerC::selectMessageCommand() const
{
    return DominoC::SelectMessage(m_sMessageName);
}

QByteArray clsDominoHandlerC::consoleCommand() const
{
    ICommandConsole* console = m_console.visibleConsole();
    return console ? console->currentCommand().value_or(QByteArray()) : QByteArray();
}

void clsDominoHandlerC::ProcessResponse(const QByteArray& sReply)
{
    ProcessResponse(sReply, false, false);
}

bool clsDominoHandlerC::ProcessResponse(const QByteArray& sReply, bool bSuppress, bool bNoAdvance)
{
    bool result = false;
    RunTrapped(Context + QStringLiteral("ProcessResponse"), [&] {
        setPortBusy(false);
        // Until the reply is whole and read, it counts as gone wrong.
        m_eUnfinished = Unfinished::Failed;
        m_dtUnfinishedSince = PresentTime();
        clsResponseStitcher::StitchStatus status = m_stitcher.StitchResponse(sReply, m_nStage);
        if (status == clsResponseStitcher::StitchError) {
            const QByteArray error = m_stitcher.LastError();
            if (error == bytes(DominoC::Nak) && m_bAcceptNakOnce) {
                status = clsResponseStitcher::StitchComplete;
            } else {
                recordCommsError(error);
                if (m_lCommsErrors != 0) {
                    result = true;
                    RaiseStatusChanged(bSuppress);
                }
            }
        }
        m_bAcceptNakOnce = false;
        if (status == clsResponseStitcher::StitchIncomplete) {
            m_eUnfinished = Unfinished::Incomplete;
            // A reply that never ends isn't kept.
            if (m_stitcher.heldBytes() > LongestReply)
                m_stitcher.GetCompleteResponse(true);
            return;
        }
        if (status != clsResponseStitcher::StitchComplete &&
            status != clsResponseStitcher::StitchSurplus)
            return;
        // A reply that can't be read stays a failed one.
        if (finishReply(m_stitcher.GetCompleteResponse(true), bNoAdvance))
            result = true;
        m_eUnfinished = Unfinished::None;
        if (m_nStage == StageIdle && queue())
            queue()->setReplyWanted(false);
        RaiseStatusChanged(bSuppress);
    });
    return result;
}

void clsDominoHandlerC::recordCommsError(const QByteArray& error)
{
    const auto setBit = [this](qint32 bit, bool set) {
        m_lCommsErrors = set ? (m_lCommsErrors | bit) : (m_lCommsErrors & ~bit);
    };
    setBit(SohBit, error == bytes(DominoC::Soh));
    setBit(NakBit, error == bytes(DominoC::Nak));
}

bool clsDominoHandlerC::finishReply(const QByteArray& reply, bool bNoAdvance)
{
    const StageRow& row = rowOf(m_nStage);
    const bool found = row.read && (this->*row.read)(reply);
    // What the stage changed of the reply's end lasts for that reply only.
    m_stitcher.ClearTempErrors();
    m_stitcher.ClearTempTerminiatingSequences();
    m_stitcher.AcceptAnything(false);
    if (bNoAdvance && row.stage == StageStatus)
        return found;
    m_nStage = stageAfter(row);
    if (row.then == Then::SendNext)
        ProcessStage();
    return found;
}

bool clsDominoHandlerC::readStatusReport(const QByteArray& reply)
{
    return DominoCReplies::parseStatusReport(reply, m_values, m_bMonthFirst) !=
           DominoCReplies::NothingFound;
}

bool clsDominoHandlerC::readSetupList(const QByteArray& reply)
{
    DominoCReplies::parseSetupList(reply, m_values);
    return false;
}

bool clsDominoHandlerC::readErrorLog(const QByteArray& reply)
{
    DominoCReplies::parseErrorLog(reply, m_values, m_bMonthFirst);
    return false;
}

bool clsDominoHandlerC::readLogoList(const QByteArray& reply)
{
    m_values.logoList = DominoCReplies::parseNames(reply);
    return false;
}

bool clsDominoHandlerC::readCurrentFile(const QByteArray& reply)
{
    m_values.currentFile = DominoCReplies::cleanName(reply);
    return false;
}

bool clsDominoHandlerC::readPrintCount(const QByteArray& reply)
{
    DominoCReplies::parsePrintCount(reply, m_values.printCount);
    return false;
}

bool clsDominoHandlerC::readFileList(const QByteArray& reply)
{
    m_values.rawFileList = DominoCReplies::parseNames(reply);
    m_values.fileList = QStringList{QString()};
    for (const QString& name : m_values.rawFileList.mid(1))
        m_values.fileList.append(DominoCReplies::cleanName(name.toLatin1()));
    return false;
}

bool clsDominoHandlerC::showOnConsole(const QByteArray& reply)
{
    if (ICommandConsole* console = m_console.console())
        console->SetResponseString(QString::fromLatin1(reply));
    return false;
}

void clsDominoHandlerC::ResetCurrentCommand()
{
    IgnoringFailure([this] {
        m_nStage = StageIdle;
        if (queue())
            queue()->setReplyWanted(false);
    });
}

void clsDominoHandlerC::ProcessTimeout(qint16 nTimeout_seconds)
{
    QueuedPrinterHandler::ProcessTimeout(nTimeout_seconds);
    if (unfinishedReplyHoldsEngine() && !replyClock().isRunning() &&
        m_dtUnfinishedSince.secsTo(PresentTime()) >= nTimeout_seconds)
        endUnfinishedReply();
}

bool clsDominoHandlerC::unfinishedReplyHoldsEngine() const
{
    switch (m_nStage) {
    case StageStatus:
        // The next tick asks again and the pieces join the next report; only a report that
        // still has no end after that is taken for one that never ends.
        return m_bReportAskedAgain && m_eUnfinished == Unfinished::Incomplete;
    case StageIdle:
        // Nothing is awaited: a late piece stays until another stage's reply.
    case StageConsole:
        // The console waits for its user.
        return false;
    default:
        // In the middle of a round or an action nothing else would move the engine on.
        return m_eUnfinished != Unfinished::None;
    }
}

void clsDominoHandlerC::endUnfinishedReply()
{
    // A reply that never came to an end counts as lost; one that failed or couldn't be read
    // has had its say already.
    m_bReportAskedAgain = false;
    if (std::exchange(m_eUnfinished, Unfinished::None) == Unfinished::Incomplete)
        replyClock().markLost(m_nStage);
    m_stitcher.GetCompleteResponse(true);
    m_nStage = StageIdle;
    if (queue())
        queue()->setReplyWanted(false);
    emit StatusChanged();
}

ErrorState clsDominoHandlerC::GetErrorState()
{
    if (m_bDisabled)
        return StateDisabled;
    if (PortBusy())
        return StatePortBusy;
    if (replyClock().timedOut())
        return StateNoAnswer;
    ErrorState state = StateGood;
    m_sHighestAlert.clear();
    if (m_lCommsErrors & SohBit) {
        m_sCommsDetail = FormatMessage(MsgCommsDetail, {SohBit});
        m_sHighestAlert = FormatMessage(MsgInkAlert, {m_values.printsRemaining});
        raiseTo(state, StateWarning);
    }
    if (m_lCommsErrors & NakBit) {
        m_sCommsDetail = FormatMessage(MsgCommsDetail, {NakBit});
        m_sHighestAlert = GetMessage(MsgNak);
        raiseTo(state, StateWarning);
    }
    if (m_values.errorLogCount > 0 && m_values.errorLog[0] != m_sIgnoredLogEntry) {
        raiseTo(state, StateWarning);
        m_sHighestAlert = m_values.errorLog[0];
    }
    if (m_values.inkStatus >= 1) {
        m_sCommsDetail.clear();
        m_sHighestAlert = FormatMessage(MsgInkAlert, {m_values.printsRemaining});
        const qint16 limit = GetPrintsRemainingInkLowLimit();
        const bool onlyLow =
            limit != -1 && m_values.printsRemaining > limit && m_values.inkStatus != 3;
        raiseTo(state, onlyLow ? StateWarning : StateFault);
    }
    return state;
}

void clsDominoHandlerC::PopulateAlertListBox(QStringList& list) const
{
    list.clear();
    for (qint32 entry = 0; entry < m_values.errorLogCount && entry < DominoCValues::LogSlots;
         ++entry)
        list.append(m_values.errorLog[size_t(entry)]);
}

QString clsDominoHandlerC::GetErrorLog(qint32 index) const
{
    if (index < 1 || index > m_values.errorLogCount || index > DominoCValues::LogSlots)
        return {};
    return m_values.errorLog[size_t(index - 1)];
}

void clsDominoHandlerC::setBCheckErrorLog(bool check)
{
    m_bCheckErrorLog = check;
    if (m_oComponent)
        m_oComponent->AddStoredSetting(CheckErrorLogSetting,
                                       check ? QStringLiteral("True") : QStringLiteral("False"));
}

void clsDominoHandlerC::IgnoreCurrentErrorLog()
{
    if (!m_values.errorLog[0].trimmed().isEmpty())
        m_sIgnoredLogEntry = m_values.errorLog[0];
}

QString clsDominoHandlerC::GetHead(qint32 index) const
{
    if (index < 1 || index > DominoCValues::Heads)
        return {};
    const DominoCValues::Head& head = m_values.heads[size_t(index - 1)];
    return QString::number(head.first) +
           QStringLiteral("%1").arg(head.second, 2, 10, QLatin1Char('0'));
}

QString clsDominoHandlerC::PritnerVersion() const
{
    bool numeric = false;
    const int second = m_values.versionSecond.toInt(&numeric);
    return m_values.versionFirst + QLatin1Char('.') +
           (numeric ? QStringLiteral("%1").arg(second, 3, 10, QLatin1Char('0'))
                    : m_values.versionSecond);
}

QString clsDominoHandlerC::GetFileList(qint32 index) const
{
    return index >= 0 && index < m_values.fileList.size() ? m_values.fileList.at(index) : QString();
}

QString clsDominoHandlerC::GetDominoFileList(qint32 index) const
{
    return index >= 0 && index + 1 < m_values.rawFileList.size()
               ? m_values.rawFileList.at(index + 1)
               : QString();
}

QString clsDominoHandlerC::GetLogoList(qint32 index) const
{
    return index >= 0 && index < m_values.logoList.size() ? m_values.logoList.at(index) : QString();
}

void clsDominoHandlerC::runAction(Stage stage, std::optional<Stage> followUp)
{
    m_nStage = stage;
    ProcessStage();
    // Nothing went out (print work waiting, or the node disabled): the engine is at rest.
    if (followUp && m_nStage != StageIdle) {
        m_nStage = *followUp;
        ProcessStage();
    }
}

void clsDominoHandlerC::SyncTime(const QDateTime& dtTime)
{
    m_dtClock = dtTime;
    // The clock needs no reply: the round that reads it back starts at once.
    runAction(StageSetClock, StageStatus);
}

void clsDominoHandlerC::SelectMessage(const QString& sName)
{
    m_sMessageName = sName.toLatin1();
    runAction(StageSelectMessage);
}

void clsDominoHandlerC::SetDirection(qint32 nDirection)
{
    m_nDirection = nDirection;
    runAction(StageSetDirection);
}

void clsDominoHandlerC::SetOrientation(qint32 nOrientation)
{
    m_nOrientation = nOrientation;
    runAction(StageSetOrientation);
}

void clsDominoHandlerC::SetShifts(const clsShift& oShifts)
{
    m_oShifts = oShifts;
    runAction(StageSetShifts);
}

void clsDominoHandlerC::SetCounts(qint32 lCount)
{
    m_lCount = lCount;
    // The count is read back at once, and the round goes on from there.
    runAction(StageSetCounts, StagePrintCount);
}

void clsDominoHandlerC::InvokeCommandTesting()
{
    m_console.open({false, true, false}, {std::begin(ConsoleCommands), std::end(ConsoleCommands)},
                   CommandConsoleSession::hooksOf(*this));
}

void clsDominoHandlerC::FireCommandTest()
{
    runAction(StageConsole);
}

void clsDominoHandlerC::EndCommandTesting()
{
    if (m_console.close())
        ResetCurrentCommand();
}

void clsDominoHandlerC::CloseDown()
{
    if (queue())
        queue()->setReplyWanted(false);
    QueuedPrinterHandler::CloseDown();
}
