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

void raiseTo(qint32& state, qint32 level)
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
    if (queue())
        connect(queue(), &Queue::DataReceived, this, &clsDominoHandlerC::m_oQueue_DataReceived);
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
        const QByteArray command = prepareStage();
        if (command.isEmpty())
            return;
        if (m_nStage == StageConsole) {
            // Sent also on a disabled node, with no reply clock.
            if (queue()) {
                queue()->setReplyWanted(true);
                queue()->SendData(command);
            }
            return;
        }
        if (m_bDisabled) {
            emit StatusChanged();
            return;
        }
        if (m_nStage != StageStatus && m_nStage == m_nLastStageSent)
            return;
        setPortBusy(false);
        m_nLastStageSent = m_nStage;
        if (!queue())
            return;
        queue()->setReplyWanted(true);
        queue()->SendData(command);
        m_dtLastSend = PresentTime();
    });
}

QByteArray clsDominoHandlerC::prepareStage()
{
    using namespace DominoC;
    switch (m_nStage) {
    case StageStatus:
        m_stitcher.ClearTempTerminiatingSequences();
        m_stitcher.ClearTempErrors();
        return bytes(CmdStatus);
    case StageSetup:
        return bytes(CmdSetup);
    case StageErrorLog:
        m_bAcceptNakOnce = true;
        return bytes(CmdErrorLog);
    case StageLogoList:
        m_stitcher.SetTempTerminiatingSequences({bytes(Cr)});
        return bytes(CmdLogoList);
    case StageCurrentFile:
        m_stitcher.SetTempTerminiatingSequences({bytes(Cr)});
        return bytes(CmdCurrentFile);
    case StagePrintCount:
        // The count is two raw bytes that may be anything, 21 and 1 included.
        m_stitcher.SetTempErrorStrings({NoErrorString});
        m_stitcher.FixedLength(2);
        return bytes(CmdPrintCount);
    case StageFileList:
        m_stitcher.SetTempTerminiatingSequences({bytes(Cr)});
        return bytes(CmdFileList);
    case StageSetShifts:
        m_nStage = StageStatus;
        return DominoC::SetShifts(m_oShifts);
    case StageSetDirection:
        return DominoC::SetDirection(m_nDirection);
    case StageSetOrientation:
        return DominoC::SetOrientation(m_nOrientation);
    case StageSetClock:
        m_nStage = StageStatus;
        return DominoC::SetClock(m_dtClock);
    case StageSetCounts:
        m_nStage = StageStatus;
        return DominoC::SetCounts(m_lCount);
    case StageSelectMessage:
        m_stitcher.SetTempTerminiatingSequences({bytes(Ack)});
        return DominoC::SelectMessage(m_sMessageName);
    case StageConsole:
        m_stitcher.AcceptAnything(true);
        if (ICommandConsole* console = m_console.visibleConsole())
            return console->currentCommand().value_or(QByteArray());
        return {};
    default:
        return {};
    }
}

void clsDominoHandlerC::m_oQueue_DataReceived(const QByteArray& data)
{
    m_dtLastSend = QDateTime();
    m_bTimedOut = false;
    ProcessResponse(data, false, false);
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
            // A reply that never ends isn't kept: it is lost one time-out later.
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
    using namespace DominoCReplies;
    switch (m_nStage) {
    case StageStatus: {
        const bool found = parseStatusReport(reply, m_values, m_bMonthFirst) != NothingFound;
        if (!bNoAdvance)
            nextStage();
        return found;
    }
    case StageSetup:
        parseSetupList(reply, m_values);
        break;
    case StageErrorLog:
        parseErrorLog(reply, m_values, m_bMonthFirst);
        break;
    case StageLogoList:
        m_values.logoList = parseNames(reply);
        m_stitcher.ClearTempTerminiatingSequences();
        break;
    case StageCurrentFile:
        m_values.currentFile = cleanName(reply);
        m_stitcher.ClearTempTerminiatingSequences();
        break;
    case StagePrintCount:
        parsePrintCount(reply, m_values.printCount);
        m_stitcher.ClearTempErrors();
        break;
    case StageFileList: {
        m_values.rawFileList = parseNames(reply);
        m_values.fileList = QStringList{QString()};
        for (const QString& name : m_values.rawFileList.mid(1))
            m_values.fileList.append(cleanName(name.toLatin1()));
        m_stitcher.ClearTempTerminiatingSequences();
        break;
    }
    case StageSelectMessage:
        m_stitcher.ClearTempTerminiatingSequences();
        m_nStage = StageStatus;
        return false;
    case StageConsole:
        if (ICommandConsole* console = m_console.console())
            console->SetResponseString(QString::fromLatin1(reply));
        m_stitcher.AcceptAnything(false);
        return false;
    default:
        m_nStage = StageStatus;
        return false;
    }
    nextStage();
    return false;
}

void clsDominoHandlerC::nextStage()
{
    m_nStage = (m_nStage == StageSetup && !m_bCheckErrorLog) ? StageLogoList : m_nStage + 1;
    ProcessStage();
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
    const QDateTime now = PresentTime();
    if (m_dtLastSend.isValid()) {
        if (m_dtLastSend.secsTo(now) < nTimeout_seconds)
            return;
        m_nTimedOutStage = m_nStage;
        m_dtTimedOutSend = m_dtLastSend;
        m_bTimedOut = true;
        m_nStage = StageIdle;
        m_dtLastSend = QDateTime();
        emit StatusChanged();
        return;
    }
    if (m_eUnfinished != Unfinished::None && m_dtUnfinishedSince.secsTo(now) >= nTimeout_seconds)
        endUnfinishedReply();
}

void clsDominoHandlerC::endUnfinishedReply()
{
    // A reply that began and never finished, failed, or couldn't be read stops the reply
    // clock and leaves its stage; without this such a printer would never be polled again,
    // or would look healthy while it only ever sends pieces.
    const Unfinished unfinished = std::exchange(m_eUnfinished, Unfinished::None);
    if (m_nStage == StageConsole)
        return;
    if (unfinished == Unfinished::Incomplete) {
        m_nTimedOutStage = m_nStage;
        m_dtTimedOutSend = m_dtUnfinishedSince;
        m_bTimedOut = true;
    } else if (m_nStage == StageStatus || m_nStage == StageIdle) {
        // The next tick asks again: the failure stays on show until then.
        return;
    }
    m_stitcher.GetCompleteResponse(true);
    m_nStage = StageIdle;
    if (queue())
        queue()->setReplyWanted(false);
    emit StatusChanged();
}

QString clsDominoHandlerC::TimeoutMessage() const
{
    if (!m_bTimedOut)
        return {};
    return timeoutText(QString::number(m_nTimedOutStage), m_dtTimedOutSend);
}

qint32 clsDominoHandlerC::GetErrorState()
{
    if (m_bDisabled)
        return 5;
    if (PortBusy())
        return 4;
    if (m_bTimedOut)
        return 0;
    qint32 state = 1;
    m_sHighestAlert.clear();
    if (m_lCommsErrors & SohBit) {
        m_sCommsDetail = FormatMessage(MsgCommsDetail, {SohBit});
        m_sHighestAlert = FormatMessage(MsgInkAlert, {m_values.printsRemaining});
        raiseTo(state, 2);
    }
    if (m_lCommsErrors & NakBit) {
        m_sCommsDetail = FormatMessage(MsgCommsDetail, {NakBit});
        m_sHighestAlert = GetMessage(MsgNak);
        raiseTo(state, 2);
    }
    if (m_values.errorLogCount > 0 && m_values.errorLog[0] != m_sIgnoredLogEntry) {
        raiseTo(state, 2);
        m_sHighestAlert = m_values.errorLog[0];
    }
    if (m_values.inkStatus >= 1) {
        m_sCommsDetail.clear();
        m_sHighestAlert = FormatMessage(MsgInkAlert, {m_values.printsRemaining});
        const qint16 limit = GetPrintsRemainingInkLowLimit();
        const bool onlyLow =
            limit != -1 && m_values.printsRemaining > limit && m_values.inkStatus != 3;
        raiseTo(state, onlyLow ? 2 : 3);
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

void clsDominoHandlerC::SyncTime(const QDateTime& dtTime)
{
    m_dtClock = dtTime;
    m_nStage = StageSetClock;
    ProcessStage();
    // The clock needs no reply: the round that reads it back starts at once.
    if (m_nStage == StageStatus)
        ProcessStage();
}

void clsDominoHandlerC::SelectMessage(const QString& sName)
{
    m_sMessageName = sName.toLatin1();
    m_nStage = StageSelectMessage;
    ProcessStage();
}

void clsDominoHandlerC::SetDirection(qint32 nDirection)
{
    m_nDirection = nDirection;
    m_nStage = StageSetDirection;
    ProcessStage();
}

void clsDominoHandlerC::SetOrientation(qint32 nOrientation)
{
    m_nOrientation = nOrientation;
    m_nStage = StageSetOrientation;
    ProcessStage();
}

void clsDominoHandlerC::SetShifts(const clsShift& oShifts)
{
    m_oShifts = oShifts;
    m_nStage = StageSetShifts;
    ProcessStage();
}

void clsDominoHandlerC::SetCounts(qint32 lCount)
{
    m_lCount = lCount;
    m_nStage = StageSetCounts;
    ProcessStage();
    // The count is read back at once, and the round goes on from there.
    if (m_nStage == StageStatus) {
        m_nStage = StagePrintCount;
        ProcessStage();
    }
}

void clsDominoHandlerC::InvokeCommandTesting()
{
    m_console.open({false, true, false}, {std::begin(ConsoleCommands), std::end(ConsoleCommands)});
}

void clsDominoHandlerC::FireCommandTest()
{
    m_nStage = StageConsole;
    ProcessStage();
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
