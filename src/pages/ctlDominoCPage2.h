#pragma once

#include "core/ErrorState.h"
#include "core/ImageList.h"
#include "drivers/clsDominoHandlerC.h"
#include "pages/PrinterPage.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

// The alerts tab of a C-series coder: its current alert, its ink, its communications and
// its error log, with what the operator can do about them.
class ctlDominoCPage2 : public HandlerPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    explicit ctlDominoCPage2(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

    // What the comms line says: a refusal, overruled by a comms fault, overruled by a busy
    // port.
    static QString CommsText(qint32 commsErrors, bool portBusy);

private:
    void layOut();
    void applyCaptions();
    void ShowInkState();
    void ShowCommsState();
    void ShowAlertList();
    void showPicture(qint32 index);

    void chkGetErrorLog_Click();
    void cmdIgnoreErrLog_Click();
    void cmdErrComms_Click();
    void lstAlarm_DblClick();

    QGroupBox* fraCurrentError;
    QLabel* lblErrID;
    QLineEdit* txtErrID;
    QLabel* lblErrMsg;
    QPlainTextEdit* txtErrMsg;
    QGroupBox* fraErrors;
    QPushButton* cmdErrInk;
    QLabel* imgInk;
    QLabel* lblInk;
    QPushButton* cmdErrComms;
    QLabel* lblComms;
    QCheckBox* chkGetErrorLog;
    QLabel* lblLog;
    QListWidget* lstAlarm;
    QPushButton* cmdIgnoreErrLog;
    // The ink pictures loaded so far.
    ImageList imlInk;
};
