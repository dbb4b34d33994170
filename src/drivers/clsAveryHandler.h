#pragma once

#include "drivers/QueuedPrinterHandler.h"

// The handler of an Avery label printer: each tick sends one status request in ASCII, and
// each status frame of fixed length stands by itself.
class clsAveryHandler : public QueuedPrinterHandler
{
    Q_OBJECT

public:
    static constexpr int ShortFrame = 22;
    static constexpr int LongFrame = 40;

    qint32 FormatInPrinter = 0;
    qint32 LabelsToPrint = 0;
    qint32 FreeBytesInBuffer = 0;
    QString EPROMVersion;

    bool Disabled() const override { return m_bDisabled; }
    void setDisabled(bool disabled) override;
    bool Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName) override;
    void Process() override;
    ErrorState GetErrorState() override;
    QString PrinterIcon(qint32 lvbLPSize) override;
    bool PortBusy() override { return m_bPortBusy; }
    void setPortBusy(bool busy) override;
    bool IsPrinterTypeSupported(qint32 lPrinterNumber) const override;
    QString GetControlName() const override { return QStringLiteral("ctlAveryUI"); }
    QString GetObjectName() const override { return QStringLiteral("clsAveryHandler"); }
    QString CurrentFile() override { return {}; }
    qint32 PrintCount() override { return LabelsToPrint; }
    // No clock command is sent to these printers.
    void SyncTime(const QDateTime&) override {}
    void ProcessResponse(const QByteArray& sReply) override;
    void ProcessResponse(const QByteArray& sReply, bool bSuppress);
    const QString& ErrorCode() const { return m_sErrorCode; }
    QString HighestAlert() override;
    QString ErrorMessage() const;
    void StartPrinting();
    void StopPrinting();
    void ClearPrinter();

    // The model's letter, from the printer number: only "H" has the long frame.
    static QString ModelLetter(qint32 printerNumber);
    // "#!A", the address, the body, the address.
    QByteArray Command(const char* body) const;

private:
    void sendCommand(const char* body);
    // Stores the frame's fields; false when a marker or a number isn't where it belongs.
    bool readFrame(const QByteArray& frame);

    qint16 m_nAddress = 1;
    QString m_sModel;
    QString m_sErrorCode;
    bool m_bErrorFlagged = false;
    QByteArray m_receiveBuffer;
    bool m_bPortBusy = false;
    bool m_bDisabled = false;
};
