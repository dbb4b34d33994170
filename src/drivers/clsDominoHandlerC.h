#pragma once

#include "drivers/CommandConsoleSession.h"
#include "drivers/DominoCReplies.h"
#include "drivers/QueuedPrinterHandler.h"
#include "drivers/clsResponseStitcher.h"
#include "drivers/clsShift.h"

#include <QPointer>
#include <memory>

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
    qint32 GetErrorState() override;
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
    QString TimeoutMessage() const;

    qint32 CommsErrors() const { return m_lCommsErrors; }
    const QString& CommsDetail() const { return m_sCommsDetail; }
    qint32 currentStage() const { return m_nStage; }

private:
    void m_oQueue_DataReceived(const QByteArray& data);
    void ProcessStage();
    // The command of the current stage, with the stitcher set up for its reply; empty when
    // the stage sends nothing.
    QByteArray prepareStage();
    // The stage's work on a whole reply; true for a status report with something in it.
    bool finishReply(const QByteArray& reply, bool bNoAdvance);
    void nextStage();
    void recordCommsError(const QByteArray& error);
    void endUnfinishedReply();

    clsResponseStitcher m_stitcher;
    DominoCValues m_values;
    QPointer<clsComponent> m_oComponent;
    QString m_sKey;
    bool m_bMonthFirst = false;

    qint32 m_nStage = StageStatus;
    qint32 m_nLastStageSent = StageStatus;
    qint32 m_lCommsErrors = 0;
    bool m_bAcceptNakOnce = false;
    QDateTime m_dtLastSend;
    bool m_bTimedOut = false;
    qint32 m_nTimedOutStage = 0;
    QDateTime m_dtTimedOutSend;
    // A reply whose clock stopped with its first fragment but that never came to an end:
    // still in pieces, or failed or unreadable. It is given up one time-out after its last
    // fragment.
    enum class Unfinished { None, Incomplete, Failed };
    Unfinished m_eUnfinished = Unfinished::None;
    QDateTime m_dtUnfinishedSince;
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
