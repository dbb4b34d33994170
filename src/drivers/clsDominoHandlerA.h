#pragma once

#include "drivers/CommandConsoleSession.h"
#include "drivers/QueuedPrinterHandler.h"

#include <QDateTime>
#include <QPointer>
#include <memory>

class clsComponent;

// The handler of a Domino A-series ink-jet printer: a round of six framed requests, one
// reply frame each. A frame that fails moves the round on to the next request.
class clsDominoHandlerA : public QueuedPrinterHandler
{
    Q_OBJECT

public:
    enum Stage : qint32 {
        StageFirst = 0,
        StageConfiguration = 1,
        StageRaster = 2,
        StageClock = 3,
        StageCounts = 4,
        StageAlarms = 5,
        StageCounters = 6,
        StageIdle = 7,
        StageSetClock = 8,
        StageConsole = 9,
    };

    struct Alarm
    {
        qint32 AlarmId = 0;
        QString AlarmText;
        quint8 status = 0;
    };

    clsDominoHandlerA();
    ~clsDominoHandlerA() override;

    bool Disabled() const override { return m_bDisabled; }
    void setDisabled(bool disabled) override;
    bool Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName) override;
    void ResetCurrentCommand();
    QString PrinterIcon(qint32 lvbLPSize) override;
    bool PortBusy() override;
    void setPortBusy(bool busy) override;
    const QString& MachineType() const { return m_sMachineType; }
    const QString& NozzleType() const { return m_sNozzleType; }
    const QString& InkSystem() const { return m_sInkSystem; }
    const QDateTime& DateTime() const { return m_dtDateTime; }
    const QString& RasterType() const { return m_sRasterType; }
    void PopulateAlertListBox(QStringList& list) const;
    ErrorState GetErrorState() override;
    void Process() override;
    void ProcessResponse(const QByteArray& sReply) override;
    bool ProcessResponse(const QByteArray& sReply, bool bSuppress);
    void SyncTime(const QDateTime& dtTime) override;
    void InvokeCommandTesting();
    void EndCommandTesting();
    void FireCommandTest();
    bool IsPrinterTypeSupported(qint32 lPrinterNumber) const override;
    QString GetControlName() const override { return QStringLiteral("ctlDominoAUI"); }
    QString GetObjectName() const override { return QStringLiteral("clsDominoHandlerA"); }
    void CloseDown() override;
    // No list of files is read from an A-series printer.
    QString CurrentFile() override { return {}; }
    qint32 PrintCount() override { return m_lPrintCount; }
    qint32 PrintDetected() const { return m_lPrintDetected; }
    QString HighestAlert() override { return m_sHighestAlert; }

    qint32 currentStage() const { return m_nStage; }
    const QList<Alarm>& alarms() const { return m_alarms; }

private:
    void ProcessStage();
    // The frame of the current stage, with the id its reply must carry; empty for none.
    QByteArray prepareStage();
    void readReply(const class clsASeriesMessage& message);
    void readAlarms(const class clsASeriesMessage& message);
    void moveOn();
    qint32 stageInHand() const override { return m_nStage; }
    void replyLost() override { m_nStage = StageIdle; }

    QPointer<clsComponent> m_oComponent;
    QString m_sKey;
    qint32 m_nStage = StageIdle;
    qint32 m_nLastStageSent = 0;
    qint32 m_nExpectedCommand = -1;
    // Not answering until the first alarm reply.
    ErrorState m_nAlarmState = StateNoAnswer;
    QString m_sHighestAlert;
    QDateTime m_dtClock;
    bool m_bDisabled = false;

    QString m_sMachineType;
    QString m_sInkSystem;
    QString m_sNozzleType;
    QString m_sRasterType;
    QDateTime m_dtDateTime;
    qint32 m_lPrintDetected = 0;
    qint32 m_lPrintCount = 0;
    QList<Alarm> m_alarms;
    qint32 m_counters[3] = {0, 0, 0};
    CommandConsoleSession m_console;
};
