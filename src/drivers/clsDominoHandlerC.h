#pragma once

#include "drivers/CommandConsoleSession.h"
#include "drivers/DominoCReplies.h"
#include "drivers/QueuedPrinterHandler.h"
#include "drivers/clsResponseStitcher.h"
#include "drivers/clsShift.h"

#include <QPointer>
#include <optional>

class clsComponent;

// The handler of a Domino C-series coder: a stage machine with one current stage. A tick
// sends the status request; each reply's event sends the next stage's command, until the
// round ends at the idle stage. An action replaces the stage in hand and is sent at once.
class clsDominoHandlerC : public QueuedPrinterHandler
{
    Q_OBJECT

public:
    // The node's stored setting that has the error log read at each round.
    inline static const QString CheckErrorLogSetting = QStringLiteral("GetErrorLog");

    enum Stage : qint32 {
        StageStatus = 0,
        StageSetup = 1,
        StageErrorLog = 2,
        StageLogoList = 3,
        StageCurrentFile = 4,
        StagePrintCount = 5,
        StageFileList = 6,
        StageIdle = 7,
        StageSetShifts = 9,
        StageSetDirection = 10,
        StageSetOrientation = 11,
        StageSetClock = 13,
        StageSetCounts = 14,
        StageSelectMessage = 16,
        StageConsole = 17,
    };
    // The bits of CommsErrors.
    static constexpr qint32 NakBit = 2;
    static constexpr qint32 SohBit = 4;
    // A reply that grows beyond this without an end is dropped.
    static constexpr qsizetype LongestReply = 64 * 1024;

    clsDominoHandlerC();
    ~clsDominoHandlerC() override;

    bool Disabled() const override { return m_bDisabled; }
    void setDisabled(bool disabled) override;
    bool Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName) override;
    QString PrinterIcon(qint32 lvbLPSize) override;
    void PopulateAlertListBox(QStringList& list) const;
    bool PortBusy() override;
    void setPortBusy(bool busy) override;

    QDateTime DateTime() const { return QDateTime(m_values.date, m_values.time); }
    qint32 Language() const { return m_values.language; }
    qint32 ShaftEncoder() const { return m_values.shaftEncoder; }
    qint32 Photocell() const { return m_values.photocell; }
    qint32 FPGA() const { return m_values.fpga; }
    qint32 InkStatus() const { return m_values.inkStatus; }
    qint32 PrintsRemaining() const { return m_values.printsRemaining; }
    qint32 Drivespace() const { return m_values.drivespace; }
    // Head 1 to 6: its two numbers, the second in two digits; empty outside.
    QString GetHead(qint32 index) const;
    QString PritnerVersion() const;
    const QString& AppVersion() const { return m_values.appVersion; }
    const QString& FirmwareVersion() const { return m_values.firmwareVersion; }
    QString GetErrorLog(qint32 index) const;
    QString GetFileList(qint32 index) const;
    // Counted from 0, as a list box counts; the name as the printer sent it.
    QString GetDominoFileList(qint32 index) const;
    QString GetLogoList(qint32 index) const;
    qint32 PrintDirection() const { return m_values.printDirection; }
    qint32 PrintOrientation() const { return m_values.printOrientation; }
    qint32 DPI() const { return m_values.dpi; }
    QString CurrentFile() override { return m_values.currentFile; }
    qint32 PrintCount() override { return m_values.printCount; }
    qint32 Delay() const { return m_values.delay; }
    qint32 Raster() const { return m_values.raster; }
    // The printer can't be asked for its shifts: there is never a record.
    const clsShift* Shifts() const { return nullptr; }

    void Process() override;
    void ProcessResponse(const QByteArray& sReply) override;
    bool ProcessResponse(const QByteArray& sReply, bool bSuppress, bool bNoAdvance);
    void ResetCurrentCommand();
    void SyncTime(const QDateTime& dtTime) override;
    void SelectMessage(const QString& sName);
    void SetDirection(qint32 nDirection);
    void SetOrientation(qint32 nOrientation);
    void SetShifts(const clsShift& oShifts);
    void SetCounts(qint32 lCount);
    void ClearCommsError() { m_lCommsErrors = 0; }
    ErrorState GetErrorState() override;
    void InvokeCommandTesting();
    void EndCommandTesting();
    void FireCommandTest();
    bool IsPrinterTypeSupported(qint32 lPrinterNumber) const override;
    QString GetControlName() const override { return QStringLiteral("ctlDominoCUI"); }
    QString GetObjectName() const override { return QStringLiteral("clsDominoHandlerC"); }
    void CloseDown() override;
    QString HighestAlert() override { return m_sHighestAlert; }
    bool bCheckErrorLog() const { return m_bCheckErrorLog; }
    void setBCheckErrorLog(bool check);
    void IgnoreCurrentErrorLog();
    void ProcessTimeout(qint16 nTimeout_seconds) override;

    qint32 CommsErrors() const { return m_lCommsErrors; }
    const QString& CommsDetail() const { return m_sCommsDetail; }
    qint32 currentStage() const { return m_nStage; }

private:
    // How the end of a stage's reply is known.
    enum class ReplyEnd {
        Terminator,      // the end byte 254
        TerminatorOrNak, // the end byte, or a lone refusal that stands for an empty answer
        Cr,              // a list ends at its first byte 13
        Ack,             // byte 6
        TwoBytes,        // exactly two raw bytes, refusal bytes among them
        NotAwaited,      // nothing comes of its own: the stage gives way to the next as it sends
        Anything,        // every piece is a whole reply, whatever it holds
    };
    // What follows a reply that has been read.
    enum class Then {
        SendNext, // the next stage's command goes out at once: a round goes on
        Rest,     // the next stage waits for a tick or an action
    };
    struct StageRow
    {
        Stage stage;
        // The command, arguments included; none for a stage that sends nothing.
        QByteArray (clsDominoHandlerC::*command)() const;
        ReplyEnd replyEnd;
        // Stores what the reply says; true for a status report with something in it.
        bool (clsDominoHandlerC::*read)(const QByteArray& reply);
        // After the reply, or at the send when no reply is awaited.
        Stage next;
        Then then;
    };
    static const StageRow Stages[];
    static const StageRow& rowOf(qint32 stage);

    void ProcessStage();
    // Sets the stitcher up to know the end of the reply.
    void expectReply(ReplyEnd end);
    void send(const QByteArray& command);
    // The stage's work on a whole reply; true for a status report with something in it.
    bool finishReply(const QByteArray& reply, bool bNoAdvance);
    // The stage that follows `row` in this printer's round.
    Stage stageAfter(const StageRow& row) const;
    // Sets the stage and sends its command; then, if it went out, `followUp`'s at once.
    void runAction(Stage stage, std::optional<Stage> followUp = std::nullopt);
    void recordCommsError(const QByteArray& error);
    bool unfinishedReplyHoldsEngine() const;
    void endUnfinishedReply();

    qint32 stageInHand() const override { return m_nStage; }
    void replyLost() override { m_nStage = StageIdle; }

    template <char Byte> QByteArray bare() const { return QByteArray(1, Byte); }
    QByteArray shiftsCommand() const;
    QByteArray directionCommand() const;
    QByteArray orientationCommand() const;
    QByteArray clockCommand() const;
    QByteArray countsCommand() const;
    QByteArray selectMessageCommand() const;
    QByteArray consoleCommand() const;

    bool readStatusReport(const QByteArray& reply);
    bool readSetupList(const QByteArray& reply);
    bool readErrorLog(const QByteArray& reply);
    bool readLogoList(const QByteArray& reply);
    bool readCurrentFile(const QByteArray& reply);
    bool readPrintCount(const QByteArray& reply);
    bool readFileList(const QByteArray& reply);
    bool showOnConsole(const QByteArray& reply);

    clsResponseStitcher m_stitcher;
    DominoCValues m_values;
    QPointer<clsComponent> m_oComponent;
    QString m_sKey;
    bool m_bMonthFirst = false;

    qint32 m_nStage = StageStatus;
    qint32 m_nLastStageSent = StageStatus;
    qint32 m_lCommsErrors = 0;
    bool m_bAcceptNakOnce = false;
    // A reply whose clock stopped with its first fragment but that hasn't come to an end:
    // still in pieces, or failed or unreadable. Where nothing else would move the engine on,
    // such a reply is given up one time-out after its last fragment.
    enum class Unfinished { None, Incomplete, Failed };
    Unfinished m_eUnfinished = Unfinished::None;
    QDateTime m_dtUnfinishedSince;
    // The status report in pieces has been asked for again, for the rest to join it.
    bool m_bReportAskedAgain = false;
    bool m_bDisabled = false;
    bool m_bCheckErrorLog = false;
    QString m_sIgnoredLogEntry;
    QString m_sHighestAlert;
    QString m_sCommsDetail;

    QDateTime m_dtClock;
    qint32 m_lCount = 0;
    QByteArray m_sMessageName;
    qint32 m_nDirection = 0;
    qint32 m_nOrientation = 0;
    clsShift m_oShifts;
    CommandConsoleSession m_console;
};
