#pragma once

#include "drivers/clsAveryHandler.h"
#include "pages/PrinterPage.h"

class QLabel;
class QPushButton;

// The "avery" tab of an Avery label printer: who it is, its counters, its error when it has
// one, and the buttons that start, stop and clear it.
class ctlAveryPage1 : public HandlerPage<clsAveryHandler>
{
    Q_OBJECT

public:
    explicit ctlAveryPage1(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    void applyCaptions();
    void ShowStatus();
    void showError(ErrorState state, const QString& message);
    // A button's click, sent to the handler inside the click's own trap.
    void connectCommand(QPushButton* button, const char* routine,
                        void (clsAveryHandler::*command)());

    QLabel* m_lblName;
    QLabel* m_lblNameData;
    QLabel* m_lblType;
    QLabel* m_lblTypeData;
    QLabel* m_lblPort;
    QLabel* m_lblPortData;
    QLabel* m_lblEPROMVersion;
    QLabel* m_lblEPROMVersionData;
    QLabel* m_lblFreeBytesInBuffer;
    QLabel* m_lblFreeBytesInBufferData;
    QLabel* m_lblLabelsToPrint;
    QLabel* m_lblLabelsToPrintData;
    QLabel* m_lblFormatInPrinter;
    QLabel* m_lblFormatInPrinterData;
    QLabel* m_lblError;
    QPushButton* m_cmdStart;
    QPushButton* m_cmdStop;
    QPushButton* m_cmdClear;
};
